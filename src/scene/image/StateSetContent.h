#pragma once

namespace nalt {

class FaceState;
class Shaders;
class Textures;

/// Fills the state sets of `state` with what its key asks for, in place of what was in them. Palette entries that are
/// missing leave out what they would give.
void fillStateSet(FaceState& state, Textures& textures, Shaders& shaders);

} // namespace nalt
