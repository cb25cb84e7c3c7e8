#pragma once

#include "fltapi/Record.h"

namespace fltapi {

/// Extra data of a node, or an entry of a palette.
class AncillaryRecord : public Record {
public:
  using Record::Record;
  std::size_t size(int) const override { return length(); }
  bool isAncillary() const override { return true; }
  bool read(RecordReader&) override { return true; }
};

/// A bracket of the file's tree structure. Never part of a tree in memory.
class ControlRecord : public Record {
public:
  using Record::Record;
  std::size_t size(int) const override { return length(); }
  bool isControl() const override { return true; }
  bool read(RecordReader&) override { return true; }
};

} // namespace fltapi
