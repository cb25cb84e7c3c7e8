#pragma once

namespace nalt {

/// A number for one OpenGL context, never given twice in a process: OpenSceneGraph keeps the objects of each context
/// under it, and a context that is made anew must not find those of the one before.
unsigned nextContextId();

} // namespace nalt
