#pragma once

#include <osg/Vec3f>
#include <osg/Vec4f>

namespace nalt {

enum class AxesCorner { topLeft = 0, topRight = 1, bottomLeft = 2, bottomRight = 3, none = 4 };

/// What can be set for each viewport on its own.
struct ViewportPreferences {
  osg::Vec3f backgroundTop{0.325F, 0.451F, 0.737F};
  osg::Vec3f backgroundBottom{0.718F, 0.82F, 0.91F};
  osg::Vec4f gridColor{0.3F, 0.3F, 0.3F, 1.0F};
  osg::Vec4f gridAxisColor{0.8F, 0.8F, 0.8F, 1.0F};
  double gridSpacing = 1.0;
  int thickLineNumber = 10; ///< every n-th line of the grid is thick; never 0
  bool automaticClip = true;
  double nearClip = 0.1;
  double farClip = 100000.0;
  double fieldOfView = 60.0;    ///< horizontal, degrees
  double largeVertexSize = 4.0; ///< pixels
  osg::Vec3f largeVertexInner{1.0F, 1.0F, 1.0F};
  osg::Vec3f largeVertexOuter{1.0F, 0.0F, 0.0F};
  osg::Vec4f lightAmbient{0.2F, 0.2F, 0.2F, 1.0F};
  osg::Vec4f lightDiffuse{0.8F, 0.8F, 0.8F, 1.0F};
  osg::Vec4f lightSpecular{1.0F, 1.0F, 1.0F, 1.0F};
  AxesCorner axesCorner = AxesCorner::topLeft;
  osg::Vec4f normalsColor{0.85F, 0.0F, 0.0F, 1.0F};
  double normalsScale = 1.0;
  bool normalsOnlySelection = false;
  bool normalsEverywhere = false; ///< for replications, instances and externals too
  bool smallFeatureCulling = true;
  float smallFeaturePixels = 1.0F;
};

/// `wanted`, but with the values of `former` in place of those that nothing can be drawn with: a spacing of 0, say.
ViewportPreferences usable(ViewportPreferences wanted, const ViewportPreferences& former);

} // namespace nalt
