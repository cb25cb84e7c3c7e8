#pragma once

namespace nalt {

/// Makes the program's own file formats known to OpenSceneGraph, which then finds them by the ending of a file's name.
/// To be called once, before other threads read or write files.
void registerFormats();

} // namespace nalt
