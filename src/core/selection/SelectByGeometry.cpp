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
#include <numeric>
#include <span>

// Selections by where corners lie: at a place, on slivers, along open borders.

namespace nalt {

namespace {

/// Everything of a family in the selection, or in the whole file when nothing is selected.
std::unique_ptr<Selection> inScope(Model& model, SelectionMode mode)
{
  auto result = converted(model.selections().current(), mode);
  auto* header = headerOf(model);
  if (model.selections().empty() && header) collect(*header, *result);
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

/// An edge under a key that doesn't depend on its direction. Not counted: its polygon stays where it is meanwhile.
struct KeyedEdge {
  std::uint64_t key;
  fltapi::VertexListRecord* list;
  fltapi::VertexBaseRecord* from;
  fltapi::VertexBaseRecord* to;
};
using KeyedEdges = std::vector<KeyedEdge>;

void addEdges(fltapi::VertexListRecord& list, KeyedEdges& edges)
{
  const auto& vertices = list.vertices();
  if (vertices.size() < 2) return;
  const auto firstHash = hashOf(vertices.front()->position());
  auto hash = firstHash;
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const bool isLast = i + 1 == vertices.size();
    auto& next = *vertices[isLast ? 0 : i + 1];
    const auto nextHash = isLast ? firstHash : hashOf(next.position());
    edges.push_back({hash ^ nextHash, &list, vertices[i], &next});
    hash = nextHash;
  }
}

/// The edges of the selection, or of the whole file when nothing is selected.
KeyedEdges edgesInScope(Model& model)
{
  KeyedEdges edges;
  const auto& selected = model.selections().current();
  if (selected.empty()) {
    if (auto* header = headerOf(model))
      forEachVertexList(*header, [&](fltapi::VertexListRecord& list) { addEdges(list, edges); });
    return edges;
  }
  const auto scope = inScope(model, SelectionMode::edge);
  edges.reserve(scope->size());
  for (const auto& edge : static_cast<const EdgeSelection&>(*scope).elements()) {
    edges.push_back({hashOf(edge.from->position()) ^ hashOf(edge.to->position()), edge.list, edge.from, edge.to});
  }
  return edges;
}

/// Brings edges of equal keys together, in a time that grows with their number only: a first pass deals them out to
/// parts that fit into a processor's cache.
void sortByKey(KeyedEdges& edges)
{
  constexpr std::size_t edgesOfAPart = 1024;
  const auto bits = std::bit_width(edges.size() / edgesOfAPart);
  const auto partOf = [&](const KeyedEdge& edge) {
    return bits == 0 ? 0 : edge.key * 0x9e3779b97f4a7c15U >> (64 - bits);
  };
  std::vector<std::size_t> starts((std::size_t{1} << bits) + 1);
  for (const auto& edge : edges)
    ++starts[partOf(edge) + 1];
  std::partial_sum(starts.begin(), starts.end(), starts.begin());
  KeyedEdges dealt(edges.size());
  auto places = starts;
  for (const auto& edge : edges)
    dealt[places[partOf(edge)]++] = edge;
  for (std::size_t part = 0; part + 1 < starts.size(); ++part) {
    const auto at = [&](std::size_t i) { return dealt.begin() + static_cast<std::ptrdiff_t>(starts[i]); };
    std::sort(at(part), at(part + 1), [](const KeyedEdge& a, const KeyedEdge& b) { return a.key < b.key; });
  }
  edges = std::move(dealt);
}

/// A line on which points that are near each other have near places, and few others do. A point that has no place,
/// being near to none, is put anywhere: what isn't a number can't be sorted.
double placeOnLine(const osg::Vec3d& point)
{
  const double place = point.x() * 0.5773 + point.y() * 0.7071 + point.z() * 0.4142;
  return std::isnan(place) ? 0 : place;
}

bool runsAgainst(const KeyedEdge& a, const KeyedEdge& b, double tolerance)
{
  return isNear(a.from->position(), b.to->position(), tolerance) &&
         isNear(a.to->position(), b.from->position(), tolerance);
}

/// Edges under one key. Most keys have two; where thousands lie on one another they are found by where they end.
class SameKey {
public:
  SameKey(std::span<const KeyedEdge> edges, double tolerance) : edges_(edges), tolerance_(tolerance)
  {
    if (edges.size() <= fewEdges) return;
    for (const auto& edge : edges)
      byEnd_.emplace_back(placeOnLine(edge.to->position()), &edge);
    std::ranges::sort(byEnd_);
  }

  /// Whether another edge begins where `edge` ends and ends where it begins.
  bool hasNeighbour(const KeyedEdge& edge) const
  {
    const auto isNeighbour = [&](const KeyedEdge& other) {
      return &other != &edge && runsAgainst(edge, other, tolerance_);
    };
    if (byEnd_.empty()) return std::ranges::any_of(edges_, isNeighbour);
    const double place = placeOnLine(edge.from->position());
    const double reach = 2 * tolerance_;
    auto other = std::ranges::lower_bound(byEnd_, place - reach, {}, &Ended::first);
    for (; other != byEnd_.end() && other->first <= place + reach; ++other) {
      if (isNeighbour(*other->second)) return true;
    }
    return false;
  }

private:
  using Ended = std::pair<double, const KeyedEdge*>;
  static constexpr std::size_t fewEdges = 8;

  std::span<const KeyedEdge> edges_;
  std::vector<Ended> byEnd_;
  double tolerance_;
};

} // namespace

bool selectVerticesByLocation(Model& model, double x, double y, bool undoable)
{
  const WaitCursor cursor;
  const double tolerance = Preferences::get().tolerance;
  auto found = std::make_unique<VertexSelection>(SelectionMode::vertex);
  if (auto* header = headerOf(model)) {
    forEachVertexList(*header, [&](fltapi::VertexListRecord& list) {
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

namespace {

/// The corners of edges under one key lie all over the memory: they are asked for before they are needed.
class Prefetch {
public:
  explicit Prefetch(std::span<const KeyedEdge> edges) : edges_(edges) {}

  void before(std::size_t i) const
  {
    constexpr std::size_t near = 12;
    if (i + 2 * near < edges_.size()) {
      __builtin_prefetch(edges_[i + 2 * near].from);
      __builtin_prefetch(edges_[i + 2 * near].to);
    }
    if (i + near < edges_.size()) {
      __builtin_prefetch(edges_[i + near].from->data());
      __builtin_prefetch(edges_[i + near].to->data());
    }
  }

private:
  std::span<const KeyedEdge> edges_;
};

} // namespace

bool selectNakedEdges(Model& model, bool undoable)
{
  const WaitCursor cursor;
  const double tolerance = Preferences::get().tolerance;
  auto edges = edgesInScope(model);
  sortByKey(edges);
  auto naked = std::make_unique<EdgeSelection>(SelectionMode::edge);
  std::vector<const KeyedEdge*> found;
  const Prefetch prefetch(edges);
  for (auto first = edges.begin(); first != edges.end();) {
    const auto last = std::find_if(first, edges.end(), [&](const KeyedEdge& other) { return other.key != first->key; });
    const SameKey sameKey({first, last}, tolerance);
    for (; first != last; ++first) {
      prefetch.before(static_cast<std::size_t>(first - edges.begin()));
      if (!sameKey.hasNeighbour(*first)) found.push_back(&*first);
    }
  }
  std::ranges::sort(found, {}, [](const KeyedEdge* edge) { return edge->from->serial(); });
  for (const auto* edge : found)
    naked->insert({edge->list, edge->from, edge->to});
  model.selections().noteFreedElements(edges.size());
  if (naked->empty()) return false;
  model.selections().select(std::move(naked),
                            recordedChange("selectNakedEdges", luaCall("selectNakedEdges"), undoable));
  return true;
}

} // namespace nalt
