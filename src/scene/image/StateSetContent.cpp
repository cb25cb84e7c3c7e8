#include "scene/image/StateSetContent.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/image/FaceState.h"
#include "scene/image/Shaders.h"
#include "scene/image/Textures.h"

#include <osg/AlphaFunc>
#include <osg/BlendFunc>
#include <osg/CullFace>
#include <osg/Depth>
#include <osg/LineStipple>
#include <osg/LineWidth>
#include <osg/Material>
#include <osg/Notify>
#include <osg/Point>
#include <osg/PolygonMode>
#include <osg/PolygonOffset>

#include <algorithm>

namespace nalt {

namespace {

using fltapi::MaterialPaletteRecord;
using Value = osg::StateAttribute;

// Steps by which each level of subfaces comes nearer to the eye.
constexpr float subfaceFactor = -1;
constexpr float subfaceUnits = -20;

// The outlines of all polygons, which a viewport draws in bin 21, must not cover an outline in a color of its own.
constexpr int outlineBin = 25;
constexpr float outlineOffset = -2;

constexpr std::uint16_t solidPattern = 0xffff;

template <class Palette>
const Palette* entryOf(const fltapi::FltFile& file, const decltype(Palette::fields.index)& indexField, int index)
{
  for (const auto* record : file.palette(Palette::code)) {
    if (record->get(indexField) == index) return static_cast<const Palette*>(record);
  }
  return nullptr;
}

class Filler {
public:
  Filler(FaceState& state, Textures& textures, Shaders& shaders)
      : state_(state), key_(state.key()), textures_(textures), shaders_(shaders)
  {}

  void fill()
  {
    transparent_ = key_.transparent;
    setDepth();
    setCulling();
    setLighting();
    setTextures();
    setLines();
    setShader();
    if (transparent_) setBlending();
    state_.setContent(*content_);
  }

private:
  void setDepth()
  {
    content_->setAttributeAndModes(new osg::Depth(osg::Depth::LESS, 0, 1, /*writeMask=*/true));
    if (key_.subfaceDepth == 0) return;
    const auto depth = static_cast<float>(key_.subfaceDepth);
    content_->setAttributeAndModes(new osg::PolygonOffset(subfaceFactor * depth, subfaceUnits * depth));
  }

  void setCulling()
  {
    switch (key_.kind) {
    case DrawKind::culled:
    case DrawKind::outline:
      content_->setAttributeAndModes(new osg::CullFace(osg::CullFace::BACK));
      break;
    default:
      content_->setMode(GL_CULL_FACE, Value::OFF);
    }
  }

  void setLighting()
  {
    content_->setMode(GL_LIGHTING, key_.lit ? Value::ON : Value::OFF);
    // Without light a material does nothing, and its opacity doesn't either.
    const auto* palette = key_.lit ? material() : nullptr;
    state_.setAlpha(palette ? palette->get(MaterialPaletteRecord::fields.alpha) : 1);
    if (state_.alpha() < 1) transparent_ = true;
    if (!key_.lit) return;
    const osg::ref_ptr<osg::Material> material = new osg::Material;
    if (palette)
      describe(*palette, *material);
    else
      material->setColorMode(osg::Material::AMBIENT_AND_DIFFUSE);
    content_->setAttributeAndModes(material);
  }

  const MaterialPaletteRecord* material() const
  {
    if (key_.material < 0) return nullptr;
    if (!state_.file()) {
      OSG_WARN << "No FLT file found for retrieving material palette." << std::endl;
      return nullptr;
    }
    return entryOf<MaterialPaletteRecord>(*state_.file(), MaterialPaletteRecord::fields.index, key_.material);
  }

  /// Ambient and diffuse light take the polygon's color, the other two are the material's alone.
  void describe(const MaterialPaletteRecord& palette, osg::Material& material) const
  {
    constexpr auto both = osg::Material::FRONT_AND_BACK;
    const auto& fields = MaterialPaletteRecord::fields;
    const auto component = [&](int i) { return static_cast<float>(key_.litColor >> (8 * i) & 0xff) / 255.0F; };
    const osg::Vec3 color(component(0), component(1), component(2));
    const auto alpha = state_.alpha() * (1 - static_cast<float>(key_.transparency) / 65535.0F);
    const auto with = [&](const osg::Vec3f& value) { return osg::Vec4(value, alpha); };
    material.setColorMode(osg::Material::OFF);
    material.setAmbient(both, with(osg::componentMultiply(palette.get(fields.ambient), color)));
    material.setDiffuse(both, with(osg::componentMultiply(palette.get(fields.diffuse), color)));
    material.setSpecular(both, with(palette.get(fields.specular)));
    material.setEmission(both, with(palette.get(fields.emissive)));
    material.setShininess(both, std::clamp(palette.get(fields.shininess), 0.0F, 128.0F));
  }

  void setTextures()
  {
    for (int unit = 0; unit < textureLayers; ++unit) {
      if (!key_.hasLayer(unit)) continue;
      const auto* loaded = textures_.find(state_.file(), key_.textures[static_cast<std::size_t>(unit)]);
      if (!loaded) continue;
      const auto place = static_cast<unsigned>(unit);
      content_->setTextureAttributeAndModes(place, loaded->texture);
      content_->setTextureAttributeAndModes(place, loaded->environment);
      if (!loaded->hasAlpha) continue;
      transparent_ = true;
      // What can't be seen at all must not hide what is behind it.
      content_->setAttributeAndModes(new osg::AlphaFunc(osg::AlphaFunc::GREATER, 0));
    }
  }

  void setLines()
  {
    if (key_.kind == DrawKind::points) {
      content_->setAttribute(new osg::Point(key_.pointSize));
      return;
    }
    if (key_.kind == DrawKind::outline) {
      content_->setAttributeAndModes(new osg::PolygonMode(osg::PolygonMode::FRONT_AND_BACK, osg::PolygonMode::LINE));
      content_->setAttributeAndModes(new osg::PolygonOffset(outlineOffset, outlineOffset));
      content_->setRenderBinDetails(outlineBin, "RenderBin");
      content_->setNestRenderBins(false);
    }
    if (key_.lineStyle == 0 || !state_.file()) return;
    using fltapi::LineStylePaletteRecord;
    const auto& fields = LineStylePaletteRecord::fields;
    const auto* style = entryOf<LineStylePaletteRecord>(*state_.file(), fields.index, key_.lineStyle);
    if (!style) return;
    content_->setAttributeAndModes(new osg::LineWidth(static_cast<float>(std::clamp(style->get(fields.width), 1, 64))));
    if (style->get(fields.pattern) != solidPattern)
      content_->setAttributeAndModes(new osg::LineStipple(1, style->get(fields.pattern)));
  }

  void setShader()
  {
    if (key_.shader < 0) return;
    if (auto* program = shaders_.find(state_.file(), key_.shader)) content_->setAttributeAndModes(program);
  }

  void setBlending()
  {
    content_->setAttributeAndModes(new osg::BlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
    if (key_.kind == DrawKind::outline) return; // stays in its own bin
    content_->setRenderingHint(osg::StateSet::TRANSPARENT_BIN);
  }

  FaceState& state_;
  const FaceStateKey& key_;
  osg::ref_ptr<osg::StateSet> content_ = new osg::StateSet;
  Textures& textures_;
  Shaders& shaders_;
  bool transparent_ = false;
};

} // namespace

void fillStateSet(FaceState& state, Textures& textures, Shaders& shaders)
{
  Filler(state, textures, shaders).fill();
}

} // namespace nalt
