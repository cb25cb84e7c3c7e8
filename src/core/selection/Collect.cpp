#include "core/selection/Collect.h"

#include "core/Model.h"
#include "fltapi/FltFile.h"
#include "fltapi/RecordVisitor.h"
#include "fltapi/nodes/ExternalRecord.h"
#include "fltapi/nodes/InstanceRecords.h"

namespace nalt {

namespace {

using fltapi::PrimNodeRecord;

/// Hands every node of one file to a function.
class NodeVisitor : public fltapi::RecordVisitor {
public:
  explicit NodeVisitor(std::function<void(PrimNodeRecord&)> work)
      : RecordVisitor(fltapi::TraversalMode::notExternals), work_(std::move(work))
  {}
  using RecordVisitor::apply;
  void apply(PrimNodeRecord& node) override
  {
    work_(node);
    RecordVisitor::apply(node);
  }
  void apply(fltapi::InstanceReferenceRecord& reference) override
  {
    work_(reference);
    RecordVisitor::apply(reference);
  }
  void apply(fltapi::ExternalRecord& external) override { work_(external); }

private:
  std::function<void(PrimNodeRecord&)> work_;
};

void addCorners(fltapi::VertexListRecord& list, Selection& into)
{
  const auto& vertices = list.vertices();
  if (into.mode() == SelectionMode::vertex) {
    auto& selection = static_cast<VertexSelection&>(into);
    for (const auto& vertex : vertices)
      selection.insert({&list, vertex});
    return;
  }
  // A point has no edge, and the two corners of a line have one between them and one back.
  if (vertices.size() < 2) return;
  auto& selection = static_cast<EdgeSelection&>(into);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    selection.insert({&list, vertices[i], vertices[(i + 1) % vertices.size()]});
  }
}

bool isOfFamily(const PrimNodeRecord& node, SelectionMode mode)
{
  const auto& info = infoOf(mode);
  return info.opcode != 0 && (node.opcode() == info.opcode || node.opcode() == info.secondOpcode);
}

} // namespace

fltapi::HeaderRecord* headerOf(const Model& model)
{
  return model.fltFile() ? model.fltFile()->header() : nullptr;
}

void forEachNode(PrimNodeRecord& node, const std::function<void(PrimNodeRecord&)>& work)
{
  NodeVisitor visitor(work);
  node.accept(visitor);
}

void forEachVertexList(PrimNodeRecord& node, const std::function<void(fltapi::VertexListRecord&)>& work)
{
  NodeVisitor visitor([&](PrimNodeRecord& found) {
    if (found.opcode() == fltapi::VertexListRecord::code) work(static_cast<fltapi::VertexListRecord&>(found));
  });
  node.accept(visitor);
}

void collect(PrimNodeRecord& node, Selection& into)
{
  if (into.mode() == SelectionMode::vertex || into.mode() == SelectionMode::edge) {
    forEachVertexList(node, [&](fltapi::VertexListRecord& list) { addCorners(list, into); });
    return;
  }
  auto& selection = static_cast<NodeSelection&>(into);
  NodeVisitor visitor([&](PrimNodeRecord& found) {
    if (isOfFamily(found, into.mode())) selection.insert({&found});
  });
  node.accept(visitor);
}

std::unique_ptr<Selection> converted(const Selections& selections, SelectionMode target)
{
  auto result = Selection::make(target);
  for (const auto& [mode, selection] : selections.families()) {
    auto part = selection->convert(target);
    if (!part) continue;
    if (result->empty()) {
      result = std::move(part);
    } else {
      result->add(*part);
    }
  }
  return result;
}

void convertElement(PrimNodeRecord& node, fltapi::VertexBaseRecord* vertex, Selection& into)
{
  if (vertex && into.mode() == SelectionMode::vertex) {
    if (auto* list = node.findChild<fltapi::VertexListRecord>()) {
      static_cast<VertexSelection&>(into).insert({list, vertex});
    }
    return;
  }
  const auto before = into.size();
  collect(node, into);
  if (into.size() != before || into.mode() == SelectionMode::vertex || into.mode() == SelectionMode::edge) return;
  for (auto* above = node.parent(); above; above = above->parent()) {
    if (!isOfFamily(*above, into.mode())) continue;
    static_cast<NodeSelection&>(into).insert({above});
    return;
  }
}

} // namespace nalt
