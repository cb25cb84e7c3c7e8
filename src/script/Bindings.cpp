#include "script/Bindings.h"

#include "core/Shell.h"
#include "script/Call.h"
#include "script/LuaError.h"
#include "script/ScriptRun.h"
#include "script/bindings/CurrentEntryBindings.h"
#include "script/bindings/GridBindings.h"
#include "script/bindings/HierarchyBindings.h"
#include "script/bindings/ModelBindings.h"
#include "script/bindings/PivotBindings.h"
#include "script/bindings/SelectionBindings.h"
#include "script/bindings/ServiceBindings.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <lua.hpp>
#include <map>

namespace nalt {

namespace {

/// What a function of the table `nalt` carries with it.
struct Entry {
  const ApiFunction* function;
  const Binding* binding; ///< null while there is none
};

std::map<std::string_view, Entry> makeEntries()
{
  std::map<std::string_view, Entry> entries;
  for (const auto& function : ApiReference::functions())
    if (function.aliasOf.empty()) entries[function.name] = {&function, nullptr};
  for (const auto family : {bindings::modelBindings(), bindings::selectionBindings(), bindings::traverseBindings(),
                            bindings::hierarchyBindings(), bindings::currentEntryBindings(), bindings::gridBindings(),
                            bindings::pivotBindings(), bindings::serviceBindings()}) {
    for (const auto& binding : family) {
      const auto found = entries.find(binding.name);
      if (found == entries.end()) std::abort(); // a binding of a function that the reference doesn't have
      found->second.binding = &binding;
    }
  }
  return entries;
}

Entry& entryOf(std::string_view name)
{
  static auto entries = makeEntries();
  return entries.at(name);
}

int notImplemented(const Call& call, std::string_view name)
{
  Shell::get().warning("Not implemented yet: nalt." + std::string(name));
  return call.giveNeutral();
}

int work(lua_State* lua, const Entry& entry)
{
  auto* run = ScriptRun::active();
  if (!run && !entry.function->noRunError.empty()) raiseError(lua, entry.function->noRunError);
  if (!run || (entry.function->needs == ApiNeeds::model && !run->currentModel()))
    return pushNeutral(lua, *entry.function, lua_gettop(lua));
  Call call(lua, *entry.function, *run);
  call.arguments().check();
  Shell::get().setPresetAnswer(Answer::yes);
  return entry.binding ? entry.binding->work(call) : notImplemented(call, entry.function->name);
}

/// What goes wrong in the program itself, such as no memory being left, is an error that the script can catch.
int callFunction(lua_State* lua)
{
  std::string text;
  try {
    return work(lua, *static_cast<const Entry*>(lua_touserdata(lua, lua_upvalueindex(1))));
  } catch (const std::exception& failure) {
    text = failure.what();
  }
  raiseError(lua, text);
}

} // namespace

bool isImplemented(std::string_view name)
{
  return entryOf(name).binding != nullptr;
}

void registerBindings(lua_State* lua)
{
  lua_newtable(lua);
  for (const auto& function : ApiReference::functions()) {
    if (function.aliasOf.empty()) {
      lua_pushlightuserdata(lua, &entryOf(function.name));
      lua_pushcclosure(lua, callFunction, 1);
    } else {
      lua_getfield(lua, -1, function.aliasOf.data());
    }
    lua_setfield(lua, -2, function.name.data());
  }
  lua_setglobal(lua, "nalt");
}

} // namespace nalt
