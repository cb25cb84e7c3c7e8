#include "fltapi/io/DefinitionOrder.h"

#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/nodes/InstanceRecords.h"

#include <algorithm>
#include <set>

// Chains of instances can be as long as there are numbers, so nothing here recurs.

namespace fltapi {

namespace {

/// Walks the nodes of a file in the order in which they are written and finds out how deep that goes.
class DryWriting {
public:
  explicit DryWriting(const FltFile& file) : file_(file) {}

  int depth()
  {
    walk(*file_.header());
    for (const auto& [number, definition] : file_.instanceDefinitions()) {
      if (written_.insert(number).second) walk(*definition);
    }
    return deepest_;
  }

private:
  struct Frame {
    const PrimNodeRecord* node;
    int depth;
    int next = 0;
  };

  void walk(const PrimNodeRecord& root)
  {
    open_.push_back({&root, 0});
    while (!open_.empty()) {
      auto& frame = open_.back();
      const auto* child = frame.node->childAt(frame.next++);
      if (!child) {
        open_.pop_back();
      } else if (const auto* node = child->asNode()) {
        enter(*node, frame.depth + 1);
      }
    }
  }

  void enter(const PrimNodeRecord& node, int depth)
  {
    deepest_ = std::max(deepest_, depth);
    if (node.opcode() == opcodes::external) return;
    open_.push_back({&node, depth});
    if (node.opcode() != opcodes::instanceReference) return;
    const int number = static_cast<const InstanceReferenceRecord&>(node).instanceNumber();
    if (!written_.insert(number).second) return;
    const auto [first, last] = file_.instanceDefinitions().equal_range(number);
    for (auto entry = first; entry != last; ++entry)
      open_.push_back({entry->second.get(), depth});
  }

  const FltFile& file_;
  std::vector<Frame> open_;
  std::set<int> written_;
  int deepest_ = 0;
};

/// The instances that are referred to below a node.
std::vector<int> referencesBelow(const PrimNodeRecord& root)
{
  std::vector<int> numbers;
  std::vector<const PrimNodeRecord*> open{&root};
  while (!open.empty()) {
    const auto* node = open.back();
    open.pop_back();
    if (node->opcode() == opcodes::instanceReference) {
      numbers.push_back(static_cast<const InstanceReferenceRecord*>(node)->instanceNumber());
    }
    if (node->opcode() == opcodes::external) continue;
    for (const auto* child : node->primaryChildren())
      open.push_back(child);
  }
  return numbers;
}

/// Every definition behind those that it refers to, as far as they don't refer to each other in a circle.
std::vector<int> usedOnesFirst(const FltFile& file)
{
  struct Frame {
    int number;
    std::vector<int> uses;
  };
  std::vector<int> order;
  std::set<int> seen;
  std::vector<Frame> open;
  const auto enter = [&](int number) {
    const auto* definition = file.instanceDefinition(number);
    if (definition && seen.insert(number).second) open.push_back({number, referencesBelow(*definition)});
  };
  for (const auto& [number, definition] : file.instanceDefinitions()) {
    enter(number);
    while (!open.empty()) {
      auto& frame = open.back();
      if (frame.uses.empty()) {
        order.push_back(frame.number);
        open.pop_back();
        continue;
      }
      const int used = frame.uses.back();
      frame.uses.pop_back();
      enter(used);
    }
  }
  return order;
}

} // namespace

std::vector<int> definitionsToWriteFirst(const FltFile& file)
{
  if (file.instanceDefinitions().empty() || !file.header() || DryWriting(file).depth() <= deepestLevel) return {};
  return usedOnesFirst(file);
}

} // namespace fltapi
