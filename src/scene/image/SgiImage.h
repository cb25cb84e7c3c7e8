#pragma once

#include <string>

namespace nalt {

/// Whether a file holds an SGI image (".rgb", ".rgba", ".int", ".inta", ".bw", ".sgi") that a reader can follow to its
/// end: the one at hand trusts sizes and runs blindly. True for files of other kinds by their name.
bool isSoundImageFile(const std::string& path);

} // namespace nalt
