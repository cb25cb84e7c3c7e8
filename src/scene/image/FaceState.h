#pragma once

#include "fltapi/Field.h"
#include "fltapi/FltFile.h"
#include "scene/image/PolygonShape.h"

#include <array>
#include <compare>
#include <cstdint>
#include <osg/Referenced>
#include <osg/StateSet>
#include <osg/observer_ptr>
#include <osg/ref_ptr>
#include <vector>

namespace nalt {

/// How the corners of a polygon become something to see.
enum class DrawKind : std::uint8_t {
  culled,    ///< filled, seen from its front
  bothSides, ///< filled
  lines,
  points,
  outline, ///< the edges of a filled polygon, over it
};

/// Everything that decides how a polygon is drawn, apart from its corners: polygons of one parent with equal keys share
/// a geometry. Palette entries are named by their indices, so that a changed palette changes no key.
struct FaceStateKey {
  static constexpr std::uint16_t noTexture = 0xffff;
  using Layers = std::array<std::uint16_t, textureLayers>;
  static constexpr Layers noLayers = {noTexture, noTexture, noTexture, noTexture,
                                      noTexture, noTexture, noTexture, noTexture};

  std::uint32_t file = 0; ///< serial number of the header whose palettes count
  DrawKind kind = DrawKind::culled;
  bool lit = false;
  bool transparent = false; ///< by the polygon itself; a texture or a material can make it so too
  std::uint8_t lineStyle = 0;
  std::uint16_t subfaceDepth = 0;
  std::int16_t material = -1;
  std::int16_t shader = -1;
  float pointSize = 1;            ///< pixels
  std::uint32_t litColor = 0;     ///< red, green, blue in bytes from the lowest; only for lit polygons with a material
  std::uint16_t transparency = 0; ///< 0 opaque to 65535 clear; only for lit polygons with a material
  Layers textures = noLayers;     ///< by texture unit

  bool hasLayer(int unit) const { return textures[static_cast<std::size_t>(unit)] != noTexture; }
  friend auto operator<=>(const FaceStateKey&, const FaceStateKey&) = default;
};

/// The state that all polygons with one key share.
class FaceState : public osg::Referenced {
public:
  FaceState(const FaceStateKey& key, const fltapi::FltFile* file);

  const FaceStateKey& key() const { return key_; }
  /// What draws the polygons. The list goes by `stateSetWithRoom`.
  const std::vector<osg::ref_ptr<osg::StateSet>>& stateSets() const { return stateSets_; }
  /// A state set for one more node. A state set looks through the list of its nodes whenever one goes, so many nodes
  /// don't hang on one, but on copies that share what is in them.
  osg::StateSet* stateSetWithRoom();
  /// Takes over the content of `content` in all state sets.
  void setContent(const osg::StateSet& content);
  /// Null when the file is gone.
  const fltapi::FltFile* file() const { return file_.get(); }
  /// Of the material, 0 clear to 1 opaque.
  float alpha() const { return alpha_; }
  void setAlpha(float alpha) { alpha_ = alpha; }

protected:
  ~FaceState() override;

private:
  FaceStateKey key_;
  osg::observer_ptr<const fltapi::FltFile> file_;
  std::vector<osg::ref_ptr<osg::StateSet>> stateSets_{new osg::StateSet};
  float alpha_ = 1;
};

} // namespace nalt
