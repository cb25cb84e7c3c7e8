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

// What can be done with the references of some paths. Each lets go of the selection and of all commands, since both may
// hold what goes away: whoever calls them has asked the user. The scene follows.

/// Drops the content that is shown.
void unloadExternals(Model& model, const std::vector<std::string>& paths);
/// Loads the content anew, whatever the preferences say about opening models. False when one of them has none after
/// that; a warning has said which.
bool loadExternals(Model& model, const std::vector<std::string>& paths);
/// Makes references to `path` refer to `newPath` (at most 199 bytes) and loads that. The model is dirty then. False
/// when nothing was changed.
bool redirectExternals(Model& model, const std::string& path, const std::string& newPath);

} // namespace nalt
