#pragma once

#include "fltapi/PrimNodeRecord.h"

namespace fltapi {

class VertexBaseRecord;
class VertexListRecord;

/// Gives every vertex list of a file that was just read its own vertices. The first corner that refers to a vertex of
/// the palette takes that record itself, every later one gets a copy, so nothing is shared and little is copied.
class VertexPaletteBreaker {
public:
  explicit VertexPaletteBreaker(const PrimNodeRecord& header);

  void breakBelow(PrimNodeRecord& node);

private:
  struct Entry {
    std::uint32_t offset;
    bool taken;
    VertexBaseRecord* vertex;
  };

  void breakList(VertexListRecord& list);
  Entry* find(std::uint32_t offset);

  std::vector<Entry> entries_; ///< ascending by offset
};

} // namespace fltapi
