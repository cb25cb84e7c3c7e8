#pragma once

#include <string>

namespace nalt {

/// Finds an image or a program that a model names: at the path as it stands, in the folder of the model file, then in
/// each folder of the user's search path; in each folder by the whole path first, then by the file's name alone.
/// Separators of other systems and other letter cases are tolerated. Empty when there is no such file.
std::string findFileOfModel(const std::string& path, const std::string& modelPath);

} // namespace nalt
