#pragma once

#include <string>
#include <vector>

namespace fltapi {
class ExternalRecord;
}

namespace nalt {

class Model;

/// The references of the document to other files; those within the files that it shows aren't its own.
std::vector<fltapi::ExternalRecord*> externalsOf(const Model& model);

/// Takes the content of all external references out of document and scene. What was selected and what could be undone
/// may have been part of it, so both are forgotten.
void dropExternals(Model& model);
/// The same for those alone that have one of these paths in their records.
void dropExternals(Model& model, const std::vector<std::string>& paths);

/// Shows what the external references hold now, after the document read them again.
void showExternals(Model& model);

} // namespace nalt
