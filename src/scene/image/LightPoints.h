#pragma once

#include "scene/image/FaceState.h"
#include "scene/image/PolygonShape.h"

namespace fltapi {
class PrimNodeRecord;
}

namespace nalt {

class Colors;

/// How a light point of either kind looks: one point of one size for each of its vertices, in the vertex's color.
/// Directions, animation and fog aren't shown.
FaceStateKey keyOfLightPoint(const fltapi::PrimNodeRecord& lightPoint, int subfaceDepth);
/// Fills `shape`, which stays empty for a light point without vertices.
void describeLightPoint(const fltapi::PrimNodeRecord& lightPoint, const Colors& colors, PolygonShape& shape);

} // namespace nalt
