#pragma once

#include <string>
#include <vector>

namespace nalt {

/// Starts a program that goes on by itself; the first argument is its name, looked for in the folders of PATH. False
/// when it can't be started.
bool startProgram(const std::vector<std::string>& arguments);

} // namespace nalt
