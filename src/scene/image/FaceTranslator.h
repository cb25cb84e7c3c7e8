#pragma once

#include "scene/image/Colors.h"
#include "scene/image/Complaints.h"
#include "scene/image/FaceState.h"
#include "scene/image/PolygonShape.h"

#include <optional>

namespace fltapi {
class FaceRecord;
class MeshRecord;
class PrimNodeRecord;
} // namespace fltapi

namespace nalt {

/// What a polygon takes from the records above it.
struct FacePlace {
  int subfaceDepth = 0; ///< polygons above the polygon
  float opacity = 1;    ///< of the object, 0 clear to 1 opaque

  static FacePlace of(const fltapi::PrimNodeRecord& record);
};

/// Says of faces how they are drawn: first the state that they need, then, for that state, their corners. Serves one
/// batch of records, for as long as no palette changes.
class FaceTranslator {
public:
  /// `complaints` hears of what can't be drawn, and stays longer than this.
  explicit FaceTranslator(Complaints& complaints) : complaints_(&complaints) {}

  FaceStateKey keyOf(const fltapi::FaceRecord& face, const FacePlace& place);
  FaceStateKey keyOf(const fltapi::MeshRecord& mesh, const FacePlace& place);
  /// Fills `shape` for a state made from the face's key; it has no corners when there is nothing to draw,
  /// or nowhere to draw it.
  void describe(const fltapi::FaceRecord& face, const FacePlace& place, const FaceState& state, PolygonShape& shape);
  /// Color of the whole polygon, with all that makes it transparent.
  osg::Vec4ub colorOf(const fltapi::FaceRecord& face, const FacePlace& place, const FaceState& state);
  osg::Vec4ub colorOf(const fltapi::MeshRecord& mesh, const FacePlace& place, const FaceState& state);

  /// Whether the edges are drawn over the polygon, and how.
  static bool hasOutline(const fltapi::FaceRecord& face);
  FaceStateKey outlineKeyOf(const FaceStateKey& key) const;
  /// Turns the shape of a polygon into that of its outline.
  void describeOutline(const fltapi::FaceRecord& face, PolygonShape& shape);

  const Colors& colorsOf(const fltapi::FltFile* file);
  Complaints& complaints() { return *complaints_; }

private:
  template <class FaceLike>
  FaceStateKey commonKey(const FaceLike& face, const FacePlace& place, DrawKind kind);
  template <class FaceLike>
  osg::Vec4ub plainColor(const FaceLike& face);
  template <class FaceLike>
  osg::Vec4ub wholeColor(const FaceLike& face, const FacePlace& place, const FaceState& state);

  Complaints* complaints_;
  const fltapi::FltFile* colorsFile_ = nullptr;
  std::optional<Colors> colors_;
};

/// Whether the light mode takes its colors from the corners.
bool usesVertexColors(const fltapi::FaceRecord& face);
/// `opacity` (0 to 1) multiplied into the color's alpha.
osg::Vec4ub faded(osg::Vec4ub color, float opacity);

} // namespace nalt
