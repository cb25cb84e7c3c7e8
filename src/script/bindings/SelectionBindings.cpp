#include "script/bindings/SelectionBindings.h"

#include "core/Preferences.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/nodes/FaceRecord.h"
#include "script/bindings/BindingSupport.h"

namespace nalt::bindings {

namespace {

/// Batch runs make no commands, since nothing could undo them.
bool undoable(const ScriptRun& run)
{
  return !run.batch();
}

/// A required selection mode; raises `error` for a text that is none.
SelectionMode modeArgument(lua_State* lua, int index, const char* error = "Invalid selection mode.")
{
  const auto mode = selectionModeNamed(luaL_checkstring(lua, index));
  if (!mode) luaL_error(lua, "%s", error);
  return *mode;
}

bool booleanArgument(lua_State* lua, int index, bool otherwise)
{
  return lua_gettop(lua) >= index ? lua_toboolean(lua, index) != 0 : otherwise;
}

int selectAll(lua_State* lua)
{
  auto* run = runWithModel();
  return giveBoolean(lua, run && nalt::selectAll(*run->currentModel(), modeArgument(lua, 1), undoable(*run)));
}

int selectNone(lua_State*)
{
  if (auto* run = runWithModel()) nalt::selectNone(*run->currentModel(), undoable(*run));
  return 0;
}

int invertSelection(lua_State* lua)
{
  if (auto* run = runWithModel()) nalt::invertSelection(*run->currentModel(), modeArgument(lua, 1), undoable(*run));
  return 0;
}

int convertSelection(lua_State* lua)
{
  if (auto* run = runWithModel()) nalt::convertSelection(*run->currentModel(), modeArgument(lua, 1), undoable(*run));
  return 0;
}

/// Texts, or a table of texts, then up to two booleans.
NameSearch searchArguments(lua_State* lua)
{
  constexpr const char* error = "Invalid parameters to selectByName.";
  NameSearch search;
  const int count = lua_gettop(lua);
  int index = 1;
  const auto take = [&](int at) {
    if (lua_type(lua, at) != LUA_TSTRING) luaL_error(lua, error);
    search.names.emplace_back(lua_tostring(lua, at));
  };
  if (count >= 1 && lua_istable(lua, 1)) {
    for (std::size_t i = 1; i <= lua_rawlen(lua, 1); ++i) {
      lua_rawgeti(lua, 1, static_cast<int>(i));
      take(-1);
      lua_pop(lua, 1);
    }
    index = 2;
  } else {
    for (; index <= count && !lua_isboolean(lua, index); ++index)
      take(index);
  }
  bool* const switches[] = {&search.caseSensitive, &search.addToSelection};
  for (auto* value : switches) {
    if (index > count) break;
    if (!lua_isboolean(lua, index)) luaL_error(lua, error);
    *value = lua_toboolean(lua, index++) != 0;
  }
  if (index <= count || search.names.empty()) luaL_error(lua, error);
  return search;
}

int selectByName(lua_State* lua)
{
  auto* run = runWithModel();
  return giveBoolean(lua, run && nalt::selectByName(*run->currentModel(), searchArguments(lua), undoable(*run)));
}

int selectByNumberOfVertices(lua_State* lua)
{
  auto* run = runWithModel();
  if (!run) return giveBoolean(lua, false);
  const auto count = static_cast<int>(luaL_checkinteger(lua, 1));
  const bool fromCurrent = booleanArgument(lua, 2, true);
  return giveBoolean(lua, nalt::selectByNumberOfVertices(*run->currentModel(), count, fromCurrent, undoable(*run)));
}

int selectVerticesByLocation(lua_State* lua)
{
  auto* run = runWithModel();
  if (!run) return giveBoolean(lua, false);
  const double x = luaL_checknumber(lua, 1);
  const double y = luaL_checknumber(lua, 2);
  return giveBoolean(lua, nalt::selectVerticesByLocation(*run->currentModel(), x, y, undoable(*run)));
}

int selectSliverPolygons(lua_State* lua)
{
  auto* run = runWithModel();
  return giveBoolean(lua, run && nalt::selectSliverPolygons(*run->currentModel(), undoable(*run)));
}

int selectNakedEdges(lua_State* lua)
{
  auto* run = runWithModel();
  return giveBoolean(lua, run && nalt::selectNakedEdges(*run->currentModel(), undoable(*run)));
}

int selectParents(lua_State*)
{
  if (auto* run = runWithModel()) nalt::selectParents(*run->currentModel(), undoable(*run));
  return 0;
}

int selectChildren(lua_State*)
{
  if (auto* run = runWithModel()) nalt::selectChildren(*run->currentModel(), undoable(*run));
  return 0;
}

int selectPrevious(lua_State*)
{
  if (auto* run = runWithModel()) nalt::selectPrevious(*run->currentModel(), undoable(*run));
  return 0;
}

// ---- questions -----------------------------------------------------------------------------------------------------

int giveCount(lua_State* lua, std::size_t count)
{
  lua_pushinteger(lua, static_cast<lua_Integer>(count));
  return 1;
}

int getNumSelectedPrimitives(lua_State* lua)
{
  auto* run = runWithModel();
  if (!run) return giveCount(lua, 0);
  return giveCount(lua, run->currentModel()->selections().size(modeArgument(lua, 1)));
}

int getTotalNumSelectedPrimitives(lua_State* lua)
{
  auto* run = runWithModel();
  return giveCount(lua, run ? run->currentModel()->selections().size() : 0);
}

int getSelectionNames(lua_State* lua)
{
  auto* run = runWithModel();
  const auto names = run ? run->currentModel()->selections().names() : std::vector<std::string>{};
  lua_createtable(lua, static_cast<int>(names.size()), 0);
  for (std::size_t i = 0; i < names.size(); ++i) {
    lua_pushstring(lua, names[i].c_str());
    lua_rawseti(lua, -2, static_cast<int>(i) + 1);
  }
  return 1;
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

int getNumChildren(lua_State* lua)
{
  auto* run = runWithModel();
  if (!run) return giveCount(lua, 0);
  const auto* node = singleNode(*run->currentModel());
  if (!node) Shell::get().warning("Can only get number of children from one single node.");
  return giveCount(lua, node ? static_cast<std::size_t>(node->primaryChildCount()) : 0);
}

int getNumVertices(lua_State* lua)
{
  auto* run = runWithModel();
  if (!run) return giveCount(lua, 0);
  const auto* node = singleNode(*run->currentModel());
  if (!node) {
    Shell::get().warning("Can only get number of vertices from one single polygon or light point node.");
    return giveCount(lua, 0);
  }
  if (!node->holdsSubfaces()) {
    Shell::get().warning("Invalid node type for getNumVertices.");
    return giveCount(lua, 0);
  }
  const auto* list = node->findChild<fltapi::VertexListRecord>();
  return giveCount(lua, list ? static_cast<std::size_t>(list->vertexCount()) : 0);
}

int getTolerance(lua_State* lua)
{
  lua_pushnumber(lua, ScriptRun::active() ? Preferences::get().tolerance : 0.0);
  return 1;
}

int setTolerance(lua_State* lua)
{
  if (ScriptRun::active()) Preferences::get().tolerance = luaL_checknumber(lua, 1);
  return 0;
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
    {"getTolerance", getTolerance},
    {"setTolerance", setTolerance},
};

} // namespace

std::span<const Binding> selectionBindings()
{
  return table;
}

} // namespace nalt::bindings
