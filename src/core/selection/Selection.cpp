#include "core/selection/Selection.h"

#include "core/Shell.h"
#include "core/selection/Collect.h"
#include "fltapi/visitors/FltBoundingSphereVisitor.h"

#include <algorithm>
#include <map>

namespace nalt {

using fltapi::PrimNodeRecord;
using fltapi::VertexBaseRecord;

bool Selection::refuse(const std::string& action) const
{
  const std::string word = infoOf(mode_).word;
  Shell::get().warning("Can't " + action + " selection of other type" + (word.empty() ? "." : " than " + word + "."));
  return false;
}

void Selection::accept(fltapi::RecordVisitor& visitor) const
{
  forEach([&](PrimNodeRecord& node, VertexBaseRecord*) { node.accept(visitor); });
}

bool Selection::containsExternal() const
{
  bool found = false;
  forEach([&](PrimNodeRecord& node, VertexBaseRecord*) { found = found || node.externalFile(); });
  return found;
}

std::unique_ptr<Selection> Selection::make(SelectionMode mode)
{
  switch (mode) {
  case SelectionMode::vertex:
    return std::make_unique<VertexSelection>(mode);
  case SelectionMode::edge:
    return std::make_unique<EdgeSelection>(mode);
  default:
    return std::make_unique<NodeSelection>(mode);
  }
}

std::unique_ptr<Selection> Selection::convert(SelectionMode target) const
{
  auto result = make(target);
  if (mode_ == SelectionMode::edge && target == SelectionMode::vertex) {
    for (const auto& edge : static_cast<const EdgeSelection&>(*this).elements()) {
      static_cast<VertexSelection&>(*result).insert({edge.list, edge.from});
      static_cast<VertexSelection&>(*result).insert({edge.list, edge.to});
    }
    return result->empty() ? nullptr : std::move(result);
  }
  forEach([&](PrimNodeRecord& node, VertexBaseRecord* vertex) { convertElement(node, vertex, *result); });
  return result->empty() ? nullptr : std::move(result);
}

std::unique_ptr<Selection> selectionOf(PrimNodeRecord& node)
{
  auto selection = std::make_unique<NodeSelection>(selectionModeOf(node.opcode()));
  selection->insert({&node});
  return selection;
}

// ---- what an element is --------------------------------------------------------------------------------------------

namespace {

PrimNodeRecord* ownerOf(const FltNode& element)
{
  return element.node.get();
}
/// Null when the polygon is gone for good, as after a deletion that nobody can undo.
template <class Element>
PrimNodeRecord* ownerOf(const Element& element)
{
  return element.owner();
}

VertexBaseRecord* vertexOf(const FltNode&)
{
  return nullptr;
}
VertexBaseRecord* vertexOf(const FltVertex& element)
{
  return element.vertex;
}
VertexBaseRecord* vertexOf(const FltEdge& element)
{
  return element.from;
}

/// World matrices of the nodes above vertices; a polygon's corners share one.
class WorldMatrices {
public:
  const osg::Matrixd& of(const PrimNodeRecord& node)
  {
    auto [entry, isNew] = matrices_.try_emplace(node.parent());
    if (isNew && node.parent()) entry->second = node.parent()->worldMatrix();
    return entry->second;
  }

private:
  std::map<const PrimNodeRecord*, osg::Matrixd> matrices_;
};

/// The corners of a polygon that has nothing else below it, null for all other nodes.
const fltapi::VertexListRecord* onlyCornersOf(const PrimNodeRecord& node)
{
  if (node.opcode() != fltapi::opcodes::face || node.primaryChildCount() != 1 || node.userData()) return nullptr;
  return node.findChild<fltapi::VertexListRecord>();
}

void expand(osg::BoundingBoxd& box, WorldMatrices& matrices, const FltNode& element)
{
  const auto& above = matrices.of(*element.node);
  if (const auto* corners = onlyCornersOf(*element.node)) { // a visitor for each of a million polygons takes too long
    for (const auto& vertex : corners->vertices())
      box.expandBy(vertex->position() * above);
    return;
  }
  fltapi::FltBoundingSphereVisitor visitor(above);
  element.node->accept(visitor);
  box.expandBy(visitor.box());
}
void expand(osg::BoundingBoxd& box, WorldMatrices& matrices, const FltVertex& element)
{
  box.expandBy(element.vertex->position() * matrices.of(*element.owner()));
}
void expand(osg::BoundingBoxd& box, WorldMatrices& matrices, const FltEdge& element)
{
  box.expandBy(element.from->position() * matrices.of(*element.owner()));
  box.expandBy(element.to->position() * matrices.of(*element.owner()));
}

/// Lets a counted reference follow when it stands for the old record.
template <class Pointer>
bool follow(Pointer& pointer, const fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  if (pointer.get() != &oldRecord) return false;
  pointer = static_cast<typename Pointer::element_type*>(&newRecord);
  return true;
}
bool follow(FltNode& element, const fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  return follow(element.node, oldRecord, newRecord);
}
bool follow(FltVertex& element, const fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  return follow(element.list, oldRecord, newRecord) || follow(element.vertex, oldRecord, newRecord);
}
bool follow(FltEdge& element, const fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  return follow(element.list, oldRecord, newRecord) || follow(element.from, oldRecord, newRecord) ||
         follow(element.to, oldRecord, newRecord);
}

} // namespace

// ---- ElementSelection ----------------------------------------------------------------------------------------------

template <class Element>
std::vector<const Element*> ElementSelection<Element>::ordered() const
{
  std::vector<const Element*> list;
  list.reserve(size());
  for (const auto& element : elements_)
    list.push_back(&element);
  return list;
}

template <class Element>
bool ElementSelection<Element>::add(const Selection& other)
{
  if (other.mode() != mode()) return refuse("add");
  elements_.add(static_cast<const ElementSelection&>(other).elements_);
  return true;
}

template <class Element>
bool ElementSelection<Element>::remove(const Selection& other)
{
  if (other.mode() != mode()) return refuse("remove");
  const auto before = elements_.size();
  elements_.subtract(static_cast<const ElementSelection&>(other).elements_);
  return elements_.size() != before;
}

template <class Element>
bool ElementSelection<Element>::combine(const Selection& other)
{
  if (other.mode() != mode()) return refuse("combine with");
  elements_.toggle(static_cast<const ElementSelection&>(other).elements_);
  return true;
}

template <class Element>
void ElementSelection<Element>::discard(const ElementTest& unwanted)
{
  elements_.eraseIf([&](const Element& element) {
    auto* owner = ownerOf(element);
    return !owner || unwanted(*owner, vertexOf(element));
  });
}

template <class Element>
std::set<std::string> ElementSelection<Element>::names() const
{
  std::set<std::string> all;
  for (const auto& element : elements_) {
    if (ownerOf(element)) all.insert(nameOf(element));
  }
  return all;
}

template <class Element>
bool ElementSelection<Element>::containsNode(const PrimNodeRecord& node) const
{
  if constexpr (std::is_same_v<Element, FltNode>) {
    return elements_.contains({const_cast<PrimNodeRecord*>(&node)});
  } else {
    return false;
  }
}

template <class Element>
void ElementSelection<Element>::forEach(const std::function<void(PrimNodeRecord&, VertexBaseRecord*)>& work) const
{
  for (const auto& element : elements_) {
    if (auto* owner = ownerOf(element)) work(*owner, vertexOf(element));
  }
}

template <class Element>
osg::BoundingBoxd ElementSelection<Element>::boundingBox() const
{
  osg::BoundingBoxd box;
  WorldMatrices matrices;
  for (const auto& element : elements_) {
    if (ownerOf(element)) expand(box, matrices, element);
  }
  return box;
}

template <class Element>
bool ElementSelection<Element>::equals(const Selection& other) const
{
  return other.mode() == mode() && static_cast<const ElementSelection&>(other).elements_ == elements_;
}

template <class Element>
void ElementSelection<Element>::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  std::vector<Element> changed;
  for (const auto& element : elements_) {
    auto copy = element;
    if (follow(copy, oldRecord, newRecord)) changed.push_back(element);
  }
  for (auto element : changed) {
    elements_.erase(element);
    follow(element, oldRecord, newRecord);
    elements_.insert(element);
  }
}

template class ElementSelection<FltNode>;
template class ElementSelection<FltVertex>;
template class ElementSelection<FltEdge>;

} // namespace nalt
