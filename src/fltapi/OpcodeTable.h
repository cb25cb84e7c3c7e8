#pragma once

#include "fltapi/RecordBuffer.h"

#include <cstdint>

namespace fltapi {

class FieldTable;
class FltFile;
class Record;

/// The version that every document has in memory, as OpenFlight numbers it.
inline constexpr int currentVersion = 1620;
inline constexpr int oldestVersion = 1570;

inline constexpr int lastOpcode = 133;

/// The counters from which nodes get their default names ("g12"); light points of both kinds share one.
enum class NameCounter : std::uint8_t {
  group,
  object,
  face,
  lod,
  dof,
  switchNode,
  lightSource,
  lightPoint,
  lightPointSystem,
  mesh,
  bsp,
  sound,
  text,
  path,
  road,
  clip,
  cat,
  curve,
  none
};
inline constexpr int nameCounterCount = static_cast<int>(NameCounter::none);

/// One row for each opcode: everything that is said about a kind of record in one place.
struct OpcodeInfo {
  int opcode = 0;
  const char* className = "UnknownRecord";
  const char* displayName = "<reserved type>";
  std::uint32_t length = recordHeadSize; ///< of the current version; the least that a buffer has after a read
  Record* (*make)(Buffer) = nullptr;
  const FieldTable* fields = nullptr;
  bool continues = false; ///< may go on in continuation records
  NameCounter counter = NameCounter::none;
  const char* prefix = ""; ///< of default names
  const char* suffix = "";
};

/// The row of an opcode; one of an unknown kind for numbers that the program has no class for.
const OpcodeInfo& opcodeInfo(int opcode);
/// Length in bytes of a record of the current version, 4 for what isn't in the table.
std::uint32_t opcodeLength(int opcode);

/// A new buffer of the table's length with default content.
Buffer defaultBuffer(int opcode);
/// Fills `buffer`, whose head is set, with the default content of its opcode.
void fillDefaultContent(std::byte* buffer);
/// The record object for a buffer of any opcode; it owns the buffer and belongs to no file.
Record* makeRecord(Buffer buffer);

} // namespace fltapi
