#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/geometry/VertexRecords.h"
#include "fltapi/io/Output.h"

// The order of a node in a file: its own record, its ancillaries, its sub-nodes between a push and a pop, its subfaces
// between a subface push and pop.

namespace fltapi {

bool PrimNodeRecord::write(Output& output) const
{
  if (!output.write(*this)) return false;
  // What a version doesn't know goes with everything below it.
  if (size(output.version()) == 0) return true;
  return writeAncillaries(output) && writeChildren(output);
}

bool PrimNodeRecord::writeAncillaries(Output& output) const
{
  for (const auto* child : children_) {
    // Vertices are laid out anew behind the palette; one that was never part of a palette is nobody's.
    if (child->isPrimary() || isVertexOpcode(child->opcode())) continue;
    if (!child->write(output)) return false;
  }
  return true;
}

bool PrimNodeRecord::writeChildren(Output& output) const
{
  const auto isSubface = [this](const PrimNodeRecord& child) { return holdsSubfaces() && child.holdsSubfaces(); };
  if (primaryCount_ > 0) {
    // A polygon with nothing but subfaces still gets an empty level.
    if (!output.writeBare(opcodes::pushLevel)) return false;
    for (const auto* child : primaryChildren()) {
      if (!isSubface(*child) && !child->write(output)) return false;
    }
    if (!output.writeBare(opcodes::popLevel)) return false;
  }

  // The last child alone decides whether there are subfaces.
  const auto* last = children_.empty() ? nullptr : children_[children_.size() - 1]->asNode();
  if (!last || !isSubface(*last)) return true;
  if (!output.writeBare(opcodes::pushSubface)) return false;
  for (const auto* child : primaryChildren()) {
    if (isSubface(*child) && !child->write(output)) return false;
  }
  return output.writeBare(opcodes::popSubface);
}

} // namespace fltapi
