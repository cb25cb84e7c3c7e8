#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/io/RecordReader.h"
#include "fltapi/io/VertexPaletteBreaker.h"
#include "fltapi/transforms/TransformChain.h"

// Growing a node from a stream: its own record has been read; what follows is its ancillaries, and a level between a
// push and a pop when it has sub-nodes.

namespace fltapi {

namespace {

bool isUnknown(const Record& record)
{
  return record.opcode() == 0;
}

} // namespace

bool PrimNodeRecord::read(RecordReader& reader)
{
  return readBody(reader);
}

bool PrimNodeRecord::readBody(RecordReader& reader)
{
  if (!readAncillaries(reader)) return false;
  if (auto next = reader.next()) {
    if (next->opcode() == opcodes::pushLevel) {
      if (!readChildren(reader)) return false;
    } else {
      reader.giveBack(std::move(next));
    }
  }
  if (const auto name = getName(); file() && !name.empty()) {
    file()->registerName(name, opcode(), /*allowDuplicate=*/true);
  }
  return true;
}

bool PrimNodeRecord::readAncillaries(RecordReader& reader)
{
  auto record = reader.next();
  bool hasMatrix = false;
  for (; record && record->isAncillary(); record = reader.next()) {
    if (isVertexOpcode(record->opcode()) && this == file()->header()) {
      reader.vertices().add(static_cast<VertexBaseRecord*>(record.get()));
      continue;
    }
    hasMatrix = hasMatrix || record->opcode() == opcodes::matrix;
    addChild(record, /*append=*/true);
    if (!record->read(reader)) return false;
  }
  if (record) reader.giveBack(std::move(record));
  if (hasMatrix) repairTransforms(*this);
  return true;
}

bool PrimNodeRecord::readChildren(RecordReader& reader)
{
  const RecordReader::Level level(reader);
  if (level.tooDeep()) return reader.fail("Its nodes are nested too deeply.");
  int ignoredPushes = 0;
  for (auto record = reader.next(); record; record = reader.next()) {
    switch (record->opcode()) {
    case opcodes::pushLevel:
      // Of an unknown node, say: its children join this level, and its pop must not end it.
      ++ignoredPushes;
      continue;
    case opcodes::popLevel:
      if (ignoredPushes == 0) return true;
      --ignoredPushes;
      continue;
    default:
      break;
    }
    if (isUnknown(*record)) continue;
    auto* node = record->asNode();
    if (!node) {
      return reader.fail("Non-primary record found as child (" + std::to_string(record->opcode()) + ", " +
                         record->className() + ").");
    }
    if (record->opcode() == opcodes::instanceDefinition) {
      file()->addInstanceDefinition(static_cast<InstanceDefinitionRecord&>(*record));
    } else {
      addChild(node, /*append=*/true);
    }
    if (!node->read(reader)) return false;
  }
  return reader.streamIsSound();
}

bool PrimNodeRecord::readSubfaces(RecordReader& reader)
{
  auto record = reader.next();
  if (!record) return true;
  if (record->opcode() != opcodes::pushSubface) {
    reader.giveBack(std::move(record));
    return true;
  }
  const RecordReader::Level level(reader);
  if (level.tooDeep()) return reader.fail("Its nodes are nested too deeply.");
  int open = 1;
  while ((record = reader.next())) {
    if (record->opcode() == opcodes::pushSubface) ++open;
    if (record->opcode() == opcodes::popSubface && --open == 0) return true;
    if (auto* node = record->asNode()) {
      addChild(node, /*append=*/true);
      if (!node->read(reader)) return false;
    }
  }
  return reader.streamIsSound();
}

} // namespace fltapi
