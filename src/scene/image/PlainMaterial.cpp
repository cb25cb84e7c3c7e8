#include "scene/image/PlainMaterial.h"

namespace nalt {

osg::ref_ptr<osg::Material> plainMaterial(const osg::Vec4f& color)
{
  const osg::Vec4f none(0, 0, 0, 1);
  osg::ref_ptr<osg::Material> material = new osg::Material;
  material->setColorMode(osg::Material::OFF);
  material->setAmbient(osg::Material::FRONT_AND_BACK, none);
  material->setDiffuse(osg::Material::FRONT_AND_BACK, none);
  material->setSpecular(osg::Material::FRONT_AND_BACK, none);
  material->setEmission(osg::Material::FRONT_AND_BACK, color);
  return material;
}

} // namespace nalt
