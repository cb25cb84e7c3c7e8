#include "fltapi/io/VertexOffsetMap.h"

#include <algorithm>

namespace fltapi {

void VertexOffsetMap::addVertex(std::uint64_t position, std::uint32_t grownBy)
{
  const auto inFile = static_cast<std::uint32_t>(position - start_);
  entries_.push_back({inFile, inFile + growth_});
  growth_ += grownBy;
}

bool VertexOffsetMap::find(std::uint32_t offset, std::uint32_t& current) const
{
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), offset,
                                      [](const Entry& entry, std::uint32_t value) { return entry.inFile < value; });
  if (found == entries_.end() || found->inFile != offset) return false;
  current = found->current;
  return true;
}

} // namespace fltapi
