#pragma once

#include <osg/Material>
#include <osg/ref_ptr>

namespace nalt {

/// Draws everything in one color, whatever its own color and the light are. Needs lighting to be on.
osg::ref_ptr<osg::Material> plainMaterial(const osg::Vec4f& color);

} // namespace nalt
