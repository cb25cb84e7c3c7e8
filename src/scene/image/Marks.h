#pragma once

#include "fltapi/Record.h"

namespace nalt {

/// The marks of records by which the scene shows what is selected.
namespace Mark {
inline constexpr std::uint8_t selected = 1; ///< a node, or a vertex as a corner
inline constexpr std::uint8_t edge = 2;     ///< a vertex: the edge that begins there
inline constexpr std::uint8_t parts = 4;    ///< a polygon or light point: some of its vertices may have marks
} // namespace Mark

inline void setMark(fltapi::Record& record, std::uint8_t mark, bool on)
{
  record.setMarks(static_cast<std::uint8_t>(on ? record.marks() | mark : record.marks() & ~mark));
}

} // namespace nalt
