#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

/// A record whose whole content is a text, ended by a 0 or by the record itself.
class TextAncillaryRecord : public AncillaryRecord {
public:
  using AncillaryRecord::AncillaryRecord;
  std::string text() const;
  /// The record becomes as long as the text and its 0 need. False when memory is out.
  bool setText(const std::string& text);
};

/// A free text of the user at a node.
class CommentRecord : public RecordOf<CommentRecord, TextAncillaryRecord, opcodes::comment> {
public:
  using RecordOf::RecordOf;
};

/// The name of a node whose name is longer than the 7 characters of its ID.
class LongIDRecord : public RecordOf<LongIDRecord, TextAncillaryRecord, opcodes::longId> {
public:
  using RecordOf::RecordOf;
};

struct IndexedStringFields : FieldTable {
  Field<std::uint32_t> index{*this, 4, "index"};
};

/// The name of a mask of a switch.
class IndexedStringRecord
    : public RecordOf<IndexedStringRecord, AncillaryRecord, opcodes::indexedString, IndexedStringFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 0 : length(); }
  std::string text() const;
  bool setText(const std::string& text);
};

} // namespace fltapi
