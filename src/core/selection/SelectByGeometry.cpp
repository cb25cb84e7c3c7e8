#include "core/LuaText.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/WaitCursor.h"
#include "core/selection/Collect.h"
#include "core/selection/RecordedChange.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/FaceRecord.h"
#include "fltapi/nodes/HeaderRecord.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <span>

// Selections by where corners lie: at a place, on slivers, along open borders.

namespace nalt {

namespace {

/// Everything of a family in the selection, or in the whole file when nothing is selected.
std::unique_ptr<Selection> inScope(Model& model, SelectionMode mode)
{
  auto result = Selection::make(mode);
  for (const auto& [family, selection] : model.selections().current().families()) {
    auto converted = selection->convert(mode);
    if (!converted) continue;
    if (result->empty()) {
      result = std::move(converted);
    } else {
      result->add(*converted);
    }
  }
  if (model.selections().empty() && model.fltFile() && model.fltFile()->header()) {
    collect(*model.fltFile()->header(), *result);
  }
  return result;
}

/// Half the length of the summed cross products of neighbouring corners.
double areaOf(const std::vector<osg::Vec3d>& corners)
{
  osg::Vec3d sum;
  for (std::size_t i = 2; i < corners.size(); ++i)
    sum += (corners[i - 1] - corners[0]) ^ (corners[i] - corners[0]);
  return sum.length() / 2;
}

/// One tolerance serves as degrees for the angle and as square units for the area.
bool isSliver(const fltapi::FaceRecord& face, double tolerance)
{
  const auto corners = face.positions();
  const auto count = corners.size();
  if (count < 3) return true;
  if (!(areaOf(corners) < tolerance)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const auto& middle = corners[(i + 1) % count];
    auto a = corners[(i + 2) % count] - middle;
    auto b = corners[i] - middle;
    a.normalize();
    b.normalize();
    const double x = a * b;
    if (x <= -1) continue;
    const double angle = std::acos(x) * 180 / std::numbers::pi;
    if (angle < tolerance || std::isnan(angle)) return true;
  }
  return false;
}

/// 64-bit FNV-1a over the eight bytes of a coordinate; the two zeros count as one.
std::uint64_t hashOf(double coordinate)
{
  const auto bits = std::bit_cast<std::uint64_t>(coordinate == 0 ? 0.0 : coordinate);
  std::uint64_t hash = 0xcbf29ce484222325u;
  for (int shift = 0; shift < 64; shift += 8) {
    hash ^= bits >> shift & 0xff;
    hash *= 0x100000001b3u;
  }
  return hash;
}

std::uint64_t hashOf(const osg::Vec3d& point)
{
  const auto hx = hashOf(point.x());
  const auto hy = hashOf(point.y());
  const auto hz = hashOf(point.z());
  return (hz >> 32) ^ ((hy ^ (hy >> 32)) * 2) ^ hz ^ (hx ^ (hx >> 32));
}

bool isNear(const osg::Vec3d& a, const osg::Vec3d& b, double tolerance)
{
  return std::abs(a.x() - b.x()) <= tolerance && std::abs(a.y() - b.y()) <= tolerance &&
         std::abs(a.z() - b.z()) <= tolerance;
}

/// An edge under a key that doesn't depend on its direction.
struct KeyedEdge {
  std::uint64_t key;
  double endPlace; ///< of the second end, on a line that no grid is aligned with
  const FltEdge* edge;
};

/// A line on which points that are near each other have near places, and few others do.
double placeOnLine(const osg::Vec3d& point)
{
  return point.x() * 0.5773 + point.y() * 0.7071 + point.z() * 0.4142;
}

bool runsAgainst(const FltEdge& a, const FltEdge& b, double tolerance)
{
  return isNear(a.from->position(), b.to->position(), tolerance) &&
         isNear(a.to->position(), b.from->position(), tolerance);
}

/// Whether one of the edges under the same key, ordered by where they end, ends where `edge` begins and begins where it
/// ends.
bool hasNeighbour(const FltEdge& edge, std::span<const KeyedEdge> sameKey, double tolerance)
{
  const double place = placeOnLine(edge.from->position());
  const double reach = 2 * tolerance;
  auto other = std::ranges::lower_bound(sameKey, place - reach, {}, &KeyedEdge::endPlace);
  for (; other != sameKey.end() && other->endPlace <= place + reach; ++other) {
    if (other->edge != &edge && runsAgainst(edge, *other->edge, tolerance)) return true;
  }
  return false;
}

} // namespace

bool selectVerticesByLocation(Model& model, double x, double y, bool undoable)
{
  const WaitCursor cursor;
  const double tolerance = Preferences::get().tolerance;
  auto found = std::make_unique<VertexSelection>(SelectionMode::vertex);
  if (model.fltFile() && model.fltFile()->header()) {
    forEachVertexList(*model.fltFile()->header(), [&](fltapi::VertexListRecord& list) {
      if (!list.parent() || list.parent()->opcode() != fltapi::FaceRecord::code) return;
      for (const auto& vertex : list.vertices()) {
        const auto place = vertex->position();
        if (std::abs(place.x() - x) < tolerance && std::abs(place.y() - y) < tolerance) found->insert({&list, vertex});
      }
    });
  }
  if (found->empty()) return false;
  model.selections().select(std::move(found), recordedChange("selectVerticesByLocation",
                                                             luaCall("selectVerticesByLocation", x, y), undoable));
  return true;
}

bool selectSliverPolygons(Model& model, bool undoable)
{
  const WaitCursor cursor;
  const auto polygons = inScope(model, SelectionMode::polygon);
  auto found = std::make_unique<NodeSelection>(SelectionMode::polygon);
  for (const auto& element : static_cast<const NodeSelection&>(*polygons).elements()) {
    if (isSliver(static_cast<const fltapi::FaceRecord&>(*element.node), Preferences::get().tolerance))
      found->insert(element);
  }
  if (found->empty()) return false;
  model.selections().select(std::move(found),
                            recordedChange("selectSliverPolygons", luaCall("selectSliverPolygons"), undoable));
  return true;
}

bool selectNakedEdges(Model& model, bool undoable)
{
  const WaitCursor cursor;
  const double tolerance = Preferences::get().tolerance;
  const auto edges = inScope(model, SelectionMode::edge);
  std::vector<KeyedEdge> keyed;
  keyed.reserve(edges->size());
  for (const auto& edge : static_cast<const EdgeSelection&>(*edges).elements()) {
    keyed.push_back(
        {hashOf(edge.from->position()) ^ hashOf(edge.to->position()), placeOnLine(edge.to->position()), &edge});
  }
  std::ranges::sort(keyed, {}, [](const KeyedEdge& edge) { return std::pair(edge.key, edge.endPlace); });

  auto naked = std::make_unique<EdgeSelection>(SelectionMode::edge);
  for (auto first = keyed.begin(); first != keyed.end();) {
    const auto last = std::find_if(first, keyed.end(), [&](const KeyedEdge& other) { return other.key != first->key; });
    for (auto one = first; one != last; ++one) {
      if (!hasNeighbour(*one->edge, {first, last}, tolerance)) naked->insert(*one->edge);
    }
    first = last;
  }
  model.selections().noteFreedElements(edges->size());
  if (naked->empty()) return false;
  model.selections().select(std::move(naked),
                            recordedChange("selectNakedEdges", luaCall("selectNakedEdges"), undoable));
  return true;
}

} // namespace nalt
