#include "script/bindings/SelectionBindings.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/nodes/FaceRecord.h"
#include "script/Call.h"

#include <algorithm>
#include <lua.hpp>

namespace nalt::bindings {

namespace {

SelectionMode modeOf(const Call& call)
{
  // The reference lists no others than those that have a mode.
  return selectionModeNamed(call.text("selectionMode")).value_or(SelectionMode::unsupported);
}

int selectAll(Call& call)
{
  return call.give(nalt::selectAll(call.model(), modeOf(call), call.records()));
}

int selectNone(Call& call)
{
  nalt::selectNone(call.model(), call.records());
  return call.giveNothing();
}

int invertSelection(Call& call)
{
  nalt::invertSelection(call.model(), modeOf(call), call.records());
  return call.giveNothing();
}

int convertSelection(Call& call)
{
  nalt::convertSelection(call.model(), modeOf(call), call.records());
  return call.giveNothing();
}

/// A text, or a table of texts.
void addNames(std::vector<std::string>& names, lua_State* lua, int position)
{
  if (!lua_istable(lua, position)) {
    names.emplace_back(lua_tostring(lua, position));
    return;
  }
  const auto count = static_cast<int>(lua_rawlen(lua, position));
  for (int i = 1; i <= count; ++i) {
    lua_rawgeti(lua, position, i);
    names.emplace_back(lua_tostring(lua, -1));
    lua_pop(lua, 1);
  }
}

int selectByName(Call& call)
{
  const auto& arguments = call.arguments();
  NameSearch search;
  for (int position = arguments.groupsBegin(); position < arguments.groupsEnd(); ++position)
    addNames(search.names, call.lua(), position);
  search.caseSensitive = arguments.flag(0);
  search.addToSelection = arguments.flag(1);
  return call.give(nalt::selectByName(call.model(), search, call.records()));
}

int selectByNumberOfVertices(Call& call)
{
  return call.give(nalt::selectByNumberOfVertices(call.model(), call.integer("numVertices"),
                                                  call.flag("selectFromCurrent"), call.records()));
}

int selectVerticesByLocation(Call& call)
{
  return call.give(nalt::selectVerticesByLocation(call.model(), call.number("x"), call.number("y"), call.records()));
}

int selectSliverPolygons(Call& call)
{
  return call.give(nalt::selectSliverPolygons(call.model(), call.records()));
}

int selectNakedEdges(Call& call)
{
  return call.give(nalt::selectNakedEdges(call.model(), call.records()));
}

int selectParents(Call& call)
{
  nalt::selectParents(call.model(), call.records());
  return call.giveNothing();
}

int selectChildren(Call& call)
{
  nalt::selectChildren(call.model(), call.records());
  return call.giveNothing();
}

int selectPrevious(Call& call)
{
  nalt::selectPrevious(call.model(), call.records());
  return call.giveNothing();
}

// ---- questions -----------------------------------------------------------------------------------------------------

int giveCount(const Call& call, std::size_t count)
{
  return call.give(static_cast<double>(count));
}

int getNumSelectedPrimitives(Call& call)
{
  return giveCount(call, call.model().selections().size(modeOf(call)));
}

int getTotalNumSelectedPrimitives(Call& call)
{
  return giveCount(call, call.model().selections().size());
}

int getSelectionNames(Call& call)
{
  return call.give(call.model().selections().names());
}

/// The node when exactly one is selected and nothing beside it.
fltapi::PrimNodeRecord* singleNode(Model& model)
{
  const auto& families = model.selections().current().families();
  if (model.selections().size() != 1) return nullptr;
  fltapi::PrimNodeRecord* single = nullptr;
  families.begin()->second->forEach(
      [&](fltapi::PrimNodeRecord& node, const fltapi::VertexBaseRecord* vertex) { single = vertex ? nullptr : &node; });
  return single;
}

int refuse(const Call& call, const char* text)
{
  Shell::get().warning(text);
  return call.giveNeutral();
}

int getNumChildren(Call& call)
{
  const auto* node = singleNode(call.model());
  if (!node) return refuse(call, "Can only get number of children from one single node.");
  // A vertex list is how a polygon keeps its vertices, no node that anybody could select.
  const auto isNode = [](const fltapi::PrimNodeRecord* child) {
    return child->opcode() != fltapi::VertexListRecord::code;
  };
  return giveCount(call, static_cast<std::size_t>(std::ranges::count_if(node->primaryChildren(), isNode)));
}

int getNumVertices(Call& call)
{
  const auto* node = singleNode(call.model());
  if (!node) return refuse(call, "Can only get number of vertices from one single polygon or light point node.");
  if (!node->holdsSubfaces()) return refuse(call, "Invalid node type for getNumVertices.");
  const auto* list = node->findChild<fltapi::VertexListRecord>();
  return giveCount(call, list ? static_cast<std::size_t>(list->vertexCount()) : 0);
}

constexpr Binding table[] = {
    {"selectAll", selectAll},
    {"selectByName", selectByName},
    {"selectNone", selectNone},
    {"invertSelection", invertSelection},
    {"getNumSelectedPrimitives", getNumSelectedPrimitives},
    {"getTotalNumSelectedPrimitives", getTotalNumSelectedPrimitives},
    {"getSelectionNames", getSelectionNames},
    {"convertSelection", convertSelection},
    {"selectSliverPolygons", selectSliverPolygons},
    {"selectByNumberOfVertices", selectByNumberOfVertices},
    {"selectVerticesByLocation", selectVerticesByLocation},
    {"selectParents", selectParents},
    {"selectChildren", selectChildren},
    {"selectPrevious", selectPrevious},
    {"selectNakedEdges", selectNakedEdges},
    {"getNumChildren", getNumChildren},
    {"getNumVertices", getNumVertices},
};

} // namespace

std::span<const Binding> selectionBindings()
{
  return table;
}

} // namespace nalt::bindings
