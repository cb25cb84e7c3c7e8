#pragma once

#include "fltapi/OpcodeTable.h"
#include "fltapi/RecordVisitor.h"

namespace fltapi {

/// What every concrete record class has: its opcode, its field table, its place in the visitors' dispatch.
///
///   class ObjectRecord : public RecordOf<ObjectRecord, NodeRecord, 4, ObjectFields> { using RecordOf::RecordOf; };
template <class Self, class Family, int Code, class Fields = NoFields>
class RecordOf : public Family {
public:
  static constexpr int code = Code;
  static constexpr Fields fields{};

  explicit RecordOf(Buffer data) : Family(std::move(data)) {}

  int opcode() const override { return Code; }
  Record* cloneType() const override { return new Self(defaultBuffer(Code)); }
  void accept(RecordVisitor& visitor) override { visitor.apply(static_cast<Self&>(*this)); }
  const FieldTable& fieldTable() const override { return fields; }
};

} // namespace fltapi
