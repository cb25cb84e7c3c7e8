#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct InstanceFields : FieldTable {
  Field<std::uint16_t> instanceNumber{*this, 6, "instance number"};
};

/// The body of an instance. It belongs to the file and not to the tree, and is shown wherever a reference names it.
class InstanceDefinitionRecord
    : public RecordOf<InstanceDefinitionRecord, PrimNodeRecord, opcodes::instanceDefinition, InstanceFields> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
  int instanceNumber() const { return get(fields.instanceNumber); }
};

class InstanceReferenceRecord
    : public RecordOf<InstanceReferenceRecord, PrimNodeRecord, opcodes::instanceReference, InstanceFields> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
  int instanceNumber() const { return get(fields.instanceNumber); }
  /// The definition goes out in front of the first reference to it.
  bool write(Output& output) const override;
};

} // namespace fltapi
