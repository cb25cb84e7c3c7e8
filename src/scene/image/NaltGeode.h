#pragma once

#include <osg/Geode>

namespace nalt {

/// A geode that carries polygons, so that code can tell it from all others by a cast. Its one drawable is a
/// FaceGeometry or the geometry of a mesh.
class NaltGeode : public osg::Geode {
public:
  NaltGeode() { setName(faceGeodeName); }
  static constexpr const char* faceGeodeName = "facegeode";

protected:
  ~NaltGeode() override = default;
};

} // namespace nalt
