#pragma once

#include <string>

namespace nalt {

/// The folder of the user's settings and macros, without a separator at its end: "Nalt" in $XDG_CONFIG_HOME, else in
/// .config of $HOME, else in .config of the home that the user's account names. Makes it, with the folders above it,
/// for the user's eyes only. Empty if it can't be made.
std::string configFolder();

/// The folder of data that programs of this user share, made if it is missing; empty when there can be none.
std::string dataFolder();

} // namespace nalt
