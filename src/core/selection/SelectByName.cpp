#include "core/LuaText.h"
#include "core/Model.h"
#include "core/WaitCursor.h"
#include "core/selection/Collect.h"
#include "core/selection/RecordedChange.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

namespace nalt {

namespace {

std::string lowered(std::string text)
{
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; });
  return text;
}

/// A part of a polygon or light point: "/V" or "/E" and a number counted from 0.
struct Part {
  SelectionMode mode;
  int number;
};

struct Wanted {
  bool whole = false;
  std::vector<Part> parts;
};

/// Splits "p19/V2" into the name and the part; none for a name without one. Numbers are written in one way only, as in
/// the names that scripts get: "p19/V02" is no part.
std::optional<Part> partOf(const std::string& name, bool caseSensitive, std::string& nodeName)
{
  const auto slash = name.rfind('/');
  if (slash == std::string::npos || slash + 2 >= name.size()) return std::nullopt;
  const auto digits = name.substr(slash + 2);
  int number = 0;
  const auto [rest, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc{} || number < 0 || digits != std::to_string(number)) return std::nullopt;
  nodeName = name.substr(0, slash);
  const char kind = name[slash + 1];
  if (kind == 'V' || (kind == 'v' && !caseSensitive)) return Part{SelectionMode::vertex, number};
  if (kind == 'E' || (kind == 'e' && !caseSensitive)) return Part{SelectionMode::edge, number};
  return std::nullopt;
}

class NameMatcher {
public:
  explicit NameMatcher(const NameSearch& search) : caseSensitive_(search.caseSensitive)
  {
    for (const auto& name : search.names) {
      if (name.empty()) continue;
      wanted_[keyOf(name)].whole = true;
      std::string nodeName;
      if (const auto part = partOf(name, caseSensitive_, nodeName)) wanted_[keyOf(nodeName)].parts.push_back(*part);
    }
  }

  void match(fltapi::PrimNodeRecord& node, Selections& found) const
  {
    const auto name = node.getName();
    if (name.empty()) return;
    const auto entry = wanted_.find(keyOf(name));
    if (entry == wanted_.end()) return;
    if (entry->second.whole) found.add(*selectionOf(node));
    for (const auto& part : entry->second.parts)
      addPart(node, part, found);
  }

private:
  std::string keyOf(const std::string& name) const { return caseSensitive_ ? name : lowered(name); }

  static void addPart(const fltapi::PrimNodeRecord& node, const Part& part, Selections& found)
  {
    auto* list = node.findChild<fltapi::VertexListRecord>();
    auto* corner = list ? list->vertexAt(part.number) : nullptr;
    if (!corner) return;
    if (part.mode == SelectionMode::vertex) {
      VertexSelection selection(part.mode);
      selection.insert({list, corner});
      found.add(selection);
    } else if (list->vertexCount() > 1) {
      EdgeSelection selection(part.mode);
      selection.insert({list, corner, list->vertexAt((part.number + 1) % list->vertexCount())});
      found.add(selection);
    }
  }

  bool caseSensitive_;
  std::map<std::string, Wanted> wanted_;
};

} // namespace

std::string selectByNameLine(const NameSearch& search)
{
  std::string arguments;
  for (const auto& name : search.names)
    arguments += luaText(name) + ", ";
  return "nalt.selectByName(" + arguments + luaText(search.caseSensitive) + ", " + luaText(search.addToSelection) + ")";
}

bool selectByName(Model& model, const NameSearch& search, bool undoable)
{
  const WaitCursor cursor;
  auto* header = headerOf(model);
  if (!header) return false;
  const NameMatcher matcher(search);
  Selections found;
  forEachNode(*header, [&](fltapi::PrimNodeRecord& node) { matcher.match(node, found); });
  if (found.empty()) return false;
  const auto change = recordedChange("selectByName", selectByNameLine(search), undoable);
  if (search.addToSelection) return model.selections().add(found, change);
  model.selections().select(found, change);
  return true;
}

} // namespace nalt
