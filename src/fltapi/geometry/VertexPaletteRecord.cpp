#include "fltapi/geometry/VertexPaletteRecord.h"

#include "fltapi/PrimNodeRecord.h"
#include "fltapi/geometry/VertexRecords.h"
#include "fltapi/io/Output.h"

#include <algorithm>

namespace fltapi {

void VertexPaletteRecord::clear()
{
  set(fields.paletteLength, 8);
  auto* header = parent();
  if (!header) return;
  std::vector<Record*> vertices;
  std::copy_if(header->children().begin(), header->children().end(), std::back_inserter(vertices),
               [](const Record* child) { return isVertexOpcode(child->opcode()); });
  if (!vertices.empty()) header->removeChildren(vertices);
}

bool VertexPaletteRecord::write(Output& output) const
{
  return output.write(*this) && output.writeVerticesOnce();
}

void VertexPaletteRecord::prepareForFile(std::byte* content, const Output& output) const
{
  storeAt(content + fields.paletteLength.offset(), static_cast<std::uint32_t>(output.palette().length()));
}

} // namespace fltapi
