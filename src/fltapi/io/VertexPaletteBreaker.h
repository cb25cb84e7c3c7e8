#pragma once

#include "fltapi/PrimNodeRecord.h"

namespace fltapi {

class VertexBaseRecord;
class VertexListRecord;

/// The vertex palette of a file that is being read. Its vertices never become children of the header: they wait here
/// until every vertex list gets its own. The first corner that refers to a vertex takes that record itself, every later
/// one gets a copy, so nothing is shared and little is copied.
class VertexPaletteBreaker {
public:
  VertexPaletteBreaker() = default;
  VertexPaletteBreaker(const VertexPaletteBreaker&) = delete;
  VertexPaletteBreaker& operator=(const VertexPaletteBreaker&) = delete;
  ~VertexPaletteBreaker();

  /// The next vertex behind the palette record.
  void add(osg::ref_ptr<VertexBaseRecord> vertex);

  /// Serves all vertex lists below `node`, content of externals left out.
  void breakBelow(PrimNodeRecord& node);

private:
  struct Entry {
    std::uint32_t offset;
    bool taken; ///< while it isn't, the entry holds a reference
    VertexBaseRecord* vertex;
  };

  void breakList(VertexListRecord& list);
  osg::ref_ptr<VertexBaseRecord> cornerFor(Entry& entry, VertexListRecord& list);
  Entry* find(std::uint32_t offset);

  std::vector<Entry> entries_; ///< ascending by offset
  std::uint32_t nextOffset_ = 0;
  std::uint32_t firstLength_ = 0;
};

} // namespace fltapi
