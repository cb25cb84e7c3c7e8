#pragma once

#include <string>
#include <vector>

namespace nalt {

class Model;

/// All references of a document with one path.
struct ExternalReferenceInfo {
  std::string path;      ///< as the records hold it
  std::string foundPath; ///< where the content came from; empty while none is loaded
  int references = 0;
  bool loaded = false;
  bool changed = false; ///< the file is newer than what was loaded
};

/// By path, in byte order. Content of the references is left out, with what it refers to in its turn.
std::vector<ExternalReferenceInfo> externalReferencesOf(const Model& model);

/// Reads what references with one of these paths and without content refer to, whatever the preferences say about
/// opening models. A worker may call it: the scene stays as it is until `showExternals`. False when one of them has no
/// content after that; a warning has said which.
bool readExternals(Model& model, const std::vector<std::string>& paths);
/// Makes references to `path` refer to `newPath` (at most 199 bytes), and drops their content as `dropExternals` does.
/// The model is dirty then. False when nothing was changed.
bool redirectExternals(Model& model, const std::string& path, const std::string& newPath);

} // namespace nalt
