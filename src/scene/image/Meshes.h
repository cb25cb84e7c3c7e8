#pragma once

#include "scene/image/MeshGeometry.h"

#include <osg/ref_ptr>

namespace fltapi {
class MeshRecord;
}

namespace nalt {

class FaceState;
class FaceTranslator;
struct FacePlace;

/// The geometry of a mesh: the vertices of its pool, and one primitive set for each of its primitives. Null for a mesh
/// without a pool. Indices that lead out of the pool are left out with the primitive that has them.
osg::ref_ptr<MeshGeometry> meshGeometry(const fltapi::MeshRecord& mesh, const FacePlace& place, const FaceState& state,
                                        FaceTranslator& translator, const ViewportTable& viewports);

} // namespace nalt
