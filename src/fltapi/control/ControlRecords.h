#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

// The brackets of a file's levels and sections.

namespace fltapi {

class PushLevelRecord : public RecordOf<PushLevelRecord, ControlRecord, opcodes::pushLevel> {
public:
  using RecordOf::RecordOf;
};
class PopLevelRecord : public RecordOf<PopLevelRecord, ControlRecord, opcodes::popLevel> {
public:
  using RecordOf::RecordOf;
};
class PushSubfaceRecord : public RecordOf<PushSubfaceRecord, ControlRecord, opcodes::pushSubface> {
public:
  using RecordOf::RecordOf;
};
class PopSubfaceRecord : public RecordOf<PopSubfaceRecord, ControlRecord, opcodes::popSubface> {
public:
  using RecordOf::RecordOf;
};

struct ExtensionBracketFields : FieldTable {
  Field<std::uint16_t> vertexReference{*this, 22, "vertex reference index"};
};
class PushExtensionRecord
    : public RecordOf<PushExtensionRecord, ControlRecord, opcodes::pushExtension, ExtensionBracketFields> {
public:
  using RecordOf::RecordOf;
};
class PopExtensionRecord
    : public RecordOf<PopExtensionRecord, ControlRecord, opcodes::popExtension, ExtensionBracketFields> {
public:
  using RecordOf::RecordOf;
};

struct PushAttributeFields : FieldTable {
  Field<std::int32_t> vertexReference{*this, 4, "vertex reference index"};
};
class PushAttributeRecord
    : public RecordOf<PushAttributeRecord, ControlRecord, opcodes::pushAttribute, PushAttributeFields> {
public:
  using RecordOf::RecordOf;
};
class PopAttributeRecord : public RecordOf<PopAttributeRecord, ControlRecord, opcodes::popAttribute> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
