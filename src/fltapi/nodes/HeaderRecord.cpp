#include "fltapi/nodes/HeaderRecord.h"

#include "fltapi/FltFile.h"
#include "fltapi/geometry/VertexPaletteRecord.h"
#include "fltapi/io/DefinitionOrder.h"
#include "fltapi/io/Output.h"

#include <algorithm>

namespace fltapi {

bool HeaderRecord::write(Output& output) const
{
  // One that a file has inside a level is a node like others.
  if (this != output.file().header()) return PrimNodeRecord::write(output);
  if (!output.write(*this) || !writeAncillaries(output)) return false;
  if (!findsPalette()) {
    const osg::ref_ptr<VertexPaletteRecord> palette = new VertexPaletteRecord(defaultBuffer(opcodes::vertexPalette));
    if (!palette->write(output)) return false;
  }
  return writeChildren(output);
}

bool HeaderRecord::findsPalette() const
{
  return std::any_of(children().begin(), children().end(),
                     [](const Record* child) { return child->opcode() == opcodes::vertexPalette; });
}

bool HeaderRecord::writeChildren(Output& output) const
{
  if (this != output.file().header()) return PrimNodeRecord::writeChildren(output);
  const auto& definitions = output.file().instanceDefinitions();
  if (primaryChildCount() == 0 && definitions.empty()) return true;
  if (!output.writeBare(opcodes::pushLevel)) return false;
  if (!output.writeDefinitions(definitionsToWriteFirst(output.file()))) return false;
  for (const auto* child : primaryChildren()) {
    if (!child->write(output)) return false;
  }
  for (const auto& [number, definition] : definitions) {
    if (!output.writeDefinitionOnce(number)) return false;
  }
  return output.writeBare(opcodes::popLevel);
}

void HeaderRecord::prepareForFile(std::byte* content, const Output& output) const
{
  storeAt(content + fields.formatRevision.offset(), static_cast<std::int32_t>(output.version()));
}

} // namespace fltapi
