#include "core/Model.h"
#include "core/selection/Collect.h"
#include "fltapi/FltFile.h"
#include "script/Call.h"
#include "script/ScriptRun.h"
#include "script/bindings/SelectionBindings.h"

#include <algorithm>
#include <array>
#include <lua.hpp>
#include <osg/ref_ptr>

namespace nalt::bindings {

namespace {

/// One walk over the selection. Each node is selected alone while the script's functions look at it.
class Traversal {
public:
  Traversal(lua_State* lua, ScriptRun& run, int pre, int post)
      : lua_(lua), run_(run), model_(*run.currentModel()), file_(model_.fltFile()), pre_(pre), post_(post)
  {}

  /// False with error() set when the walk was ended.
  bool walkSelection();
  const std::string& error() const { return error_; }

private:
  bool walk(fltapi::PrimNodeRecord& node);
  bool visitVertex(const FltVertex& vertex);
  /// Selects nothing but the element; a batch run makes no command of it.
  void select(std::unique_ptr<Selection> selection) const;
  /// @param descend gets what the function said, null for a call whose answer doesn't count
  bool call(int function, const char* typeName, bool* descend);
  bool modelIsStillCurrent();

  lua_State* lua_;
  ScriptRun& run_;
  Model& model_;
  osg::ref_ptr<fltapi::FltFile> file_; ///< a new model may come to lie where the old one was; its file can't
  int pre_;
  int post_;
  std::string error_;
};

bool Traversal::modelIsStillCurrent()
{
  if (run_.currentModel() == &model_ && model_.fltFile() == file_) return true;
  error_ = "Current model changed, traversal has been terminated.";
  return false;
}

void Traversal::select(std::unique_ptr<Selection> selection) const
{
  SelectionChange change;
  change.undoable = run_.records();
  model_.selections().select(std::move(selection), change);
}

bool Traversal::call(int function, const char* typeName, bool* descend)
{
  if (function == LUA_NOREF) return true;
  const int top = lua_gettop(lua_);
  lua_rawgeti(lua_, LUA_REGISTRYINDEX, function);
  lua_pushstring(lua_, typeName);
  if (lua_pcall(lua_, 1, descend ? 1 : 0, 0) != LUA_OK) {
    const auto* text = lua_tostring(lua_, -1);
    error_ = "Failed executing traverse function:\n" + std::string(text ? text : "UNDEFINED ERROR MESSAGE");
    lua_settop(lua_, top);
    return false;
  }
  if (descend) *descend = lua_isboolean(lua_, -1) && lua_toboolean(lua_, -1);
  lua_settop(lua_, top);
  return modelIsStillCurrent();
}

bool Traversal::visitVertex(const FltVertex& vertex)
{
  const auto* name = infoOf(SelectionMode::vertex).name;
  if (!modelIsStillCurrent()) return false;
  bool ignored = false;
  if (pre_ != LUA_NOREF) {
    auto selection = std::make_unique<VertexSelection>(SelectionMode::vertex);
    selection->insert(vertex);
    select(std::move(selection));
  }
  // The call behind it sees whatever the first one left selected.
  return call(pre_, name, &ignored) && call(post_, name, nullptr);
}

bool Traversal::walk(fltapi::PrimNodeRecord& node)
{
  if (!modelIsStillCurrent()) return false;
  const auto* name = infoOf(selectionModeOf(node.opcode())).name;
  bool descend = false;
  if (pre_ != LUA_NOREF) select(selectionOf(node));
  if (!call(pre_, name, &descend)) return false;
  if (descend) {
    std::vector<osg::ref_ptr<fltapi::PrimNodeRecord>> children;
    for (auto* child : node.primaryChildren())
      children.emplace_back(child);
    for (const auto& child : children) {
      if (child->opcode() != fltapi::VertexListRecord::code) {
        if (!walk(*child)) return false;
        continue;
      }
      auto& list = static_cast<fltapi::VertexListRecord&>(*child);
      const auto vertices = list.vertices();
      for (const auto& vertex : vertices) {
        if (!visitVertex({&list, vertex})) return false;
      }
    }
  }
  if (post_ != LUA_NOREF) select(selectionOf(node));
  return call(post_, name, nullptr);
}

bool Traversal::walkSelection()
{
  constexpr std::array order = {SelectionMode::polygon,    SelectionMode::object,     SelectionMode::group,
                                SelectionMode::lod,        SelectionMode::dof,        SelectionMode::external,
                                SelectionMode::switchNode, SelectionMode::lightPoint, SelectionMode::lightPointSystem,
                                SelectionMode::header};
  // The functions change the selection, so what was selected at the start is walked.
  const Selections snapshot = model_.selections().current();
  if (const auto* family = snapshot.find(SelectionMode::vertex)) {
    for (const auto& vertex : static_cast<const VertexSelection*>(family)->elements()) {
      if (!visitVertex(vertex)) return false;
    }
  }
  for (const auto mode : order) {
    const auto* family = static_cast<const NodeSelection*>(snapshot.find(mode));
    if (!family) continue;
    auto elements = family->ordered();
    // The one mode with two kinds of nodes: the plain light points come before the indexed ones.
    std::ranges::stable_partition(
        elements, [mode](const FltNode* element) { return element->node->opcode() == infoOf(mode).opcode; });
    for (const auto* element : elements) {
      if (!walk(*element->node)) return false;
    }
  }
  if (!modelIsStillCurrent()) return false;
  SelectionChange change;
  change.undoable = run_.records();
  model_.selections().clear(change);
  return true;
}

int referenceTo(lua_State* lua, int index)
{
  if (!lua_isfunction(lua, index)) return LUA_NOREF;
  lua_pushvalue(lua, index);
  return luaL_ref(lua, LUA_REGISTRYINDEX);
}

int traverse(Call& call)
{
  auto* lua = call.lua();
  const int pre = referenceTo(lua, 1);
  const int post = referenceTo(lua, 2);
  if (pre == LUA_NOREF && post == LUA_NOREF) {
    return luaL_error(lua, "At least one of the pre/post-callbacks has to be valid.");
  }
  Traversal traversal(lua, call.run(), pre, post);
  if (!traversal.walkSelection()) return luaL_error(lua, "%s", traversal.error().c_str());
  luaL_unref(lua, LUA_REGISTRYINDEX, pre);
  luaL_unref(lua, LUA_REGISTRYINDEX, post);
  return call.giveNothing();
}

constexpr Binding table[] = {{"traverse", traverse}};

} // namespace

std::span<const Binding> traverseBindings()
{
  return table;
}

} // namespace nalt::bindings
