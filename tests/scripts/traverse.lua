-- Walking the selection with functions of the script.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.open()

-- The calls of a walk: ">" and the kind in front of the children, "<" behind them, each with what is selected meanwhile.
local function walked(answer)
  local calls = {}
  local function tell(mark, kind)
    local names = nalt.getSelectionNames()
    assert(nalt.getTotalNumSelectedPrimitives() == #names)
    calls[#calls + 1] = mark .. kind .. ":" .. table.concat(names, "+")
  end
  check.results("", nalt.traverse(function(kind)
    tell(">", kind)
    if type(answer) == "function" then return answer(kind) end
    return answer
  end, function(kind) tell("<", kind) end))
  assert(nalt.getTotalNumSelectedPrimitives() == 0)
  return table.concat(calls, " ")
end

-- ---- trees ----------------------------------------------------------------------------------------------------------

nalt.selectByName("o2")
check.same(">OBJECT:o2 >POLYGON:p4 >VERTEX:p4/V0 <VERTEX:p4/V0 >VERTEX:p4/V1 <VERTEX:p4/V1 " ..
  ">VERTEX:p4/V2 <VERTEX:p4/V2 <POLYGON:p4 <OBJECT:o2", walked(true))

-- Only true goes on into a node; the call behind the node comes in any case.
for _, answer in ipairs{false, 1, "true", 0, {}} do
  nalt.selectByName("o2")
  check.same(">OBJECT:o2 <OBJECT:o2", walked(answer))
end
nalt.selectByName("o2")
check.same(">OBJECT:o2 <OBJECT:o2", walked(nil))
nalt.selectByName("o2")
check.same(">OBJECT:o2 <OBJECT:o2", walked(function() end))
nalt.selectByName("g1")
check.same(">GROUP:g1 >OBJECT:o1 <OBJECT:o1 >OBJECT:o2 <OBJECT:o2 <GROUP:g1",
  walked(function(kind) return kind == "GROUP" end))

-- The whole file, what an external refers to included, and a node that no mode selects.
nalt.selectAll("HEADER")
check.same(">HEADER:db >GROUP:g1 <GROUP:g1 >LOD:l1 >OBJECT:o3 <OBJECT:o3 <LOD:l1 >DOF:d1 >OBJECT:o4 <OBJECT:o4 <DOF:d1 " ..
  ">SWITCH:sw1 >OBJECT:o5 <OBJECT:o5 >OBJECT:o6 <OBJECT:o6 <SWITCH:sw1 " ..
  ">EXTERNAL:part.flt >HEADER:db >GROUP:pg1 <GROUP:pg1 <HEADER:db <EXTERNAL:part.flt " ..
  ">LIGHTPOINT:lp1 <LIGHTPOINT:lp1 >LIGHTPOINT:ilp1 <LIGHTPOINT:ilp1 >LIGHTPOINTSYSTEM:lps1 <LIGHTPOINTSYSTEM:lps1 " ..
  ">UNSUPPORTED:snd1 <UNSUPPORTED:snd1 <HEADER:db",
  walked(function(kind) return kind ~= "GROUP" and kind ~= "OBJECT" and kind ~= "LIGHTPOINT" end))

-- Light points have vertices as polygons have.
nalt.selectByName("ilp1")
check.same(">LIGHTPOINT:ilp1 >VERTEX:ilp1/V0 <VERTEX:ilp1/V0 >VERTEX:ilp1/V1 <VERTEX:ilp1/V1 " ..
  ">VERTEX:ilp1/V2 <VERTEX:ilp1/V2 >VERTEX:ilp1/V3 <VERTEX:ilp1/V3 <LIGHTPOINT:ilp1", walked(true))

-- ---- the order of modes ---------------------------------------------------------------------------------------------

nalt.selectByName{"lps1", "ilp1", "lp1", "sw1", "part.flt", "d1", "l1", "g1", "p1/V3", "p1/V0"}
check.same(">VERTEX:p1/V0 <VERTEX:p1/V0 >VERTEX:p1/V3 <VERTEX:p1/V3 >GROUP:g1 <GROUP:g1 >LOD:l1 <LOD:l1 >DOF:d1 <DOF:d1 " ..
  ">EXTERNAL:part.flt <EXTERNAL:part.flt >SWITCH:sw1 <SWITCH:sw1 >LIGHTPOINT:lp1 <LIGHTPOINT:lp1 " ..
  ">LIGHTPOINT:ilp1 <LIGHTPOINT:ilp1 >LIGHTPOINTSYSTEM:lps1 <LIGHTPOINTSYSTEM:lps1", walked(false))
nalt.selectByName{"o2", "p5", "o1"}
check.same(">POLYGON:p5 <POLYGON:p5 >OBJECT:o1 <OBJECT:o1 >OBJECT:o2 <OBJECT:o2", walked(false))

-- Edges aren't walked, and nothing selected is nothing to walk.
nalt.selectAll("EDGE")
check.same("", walked(true))
nalt.selectNone()
check.same("", walked(true))

-- ---- one function ---------------------------------------------------------------------------------------------------

local kinds = {}
nalt.selectByName("g1")
nalt.traverse(nil, function(kind, ...)
  assert(select("#", ...) == 0)
  kinds[#kinds + 1] = kind
end)
check.same("GROUP", table.concat(kinds, " "))
nalt.selectByName("o1")
local corners = 0
nalt.traverse(function(kind)
  if kind == "POLYGON" then corners = corners + nalt.getNumVertices() end
  return kind == "OBJECT"
end, "not a function")
check.same(11, corners)

-- A vertex is selected by its first function; without one its second sees what is selected.
nalt.selectByName("p1/V0", "p1/V2")
local seen = {}
nalt.traverse(nil, function() seen[#seen + 1] = table.concat(nalt.getSelectionNames(), "+") end)
check.same("p1/V0+p1/V2 p1/V0+p1/V2", table.concat(seen, " "))
nalt.selectByName("p1/V0")
nalt.traverse(function() nalt.selectByName("o1") end, function() seen[1] = nalt.getSelectionNames()[1] end)
check.same("o1", seen[1])
-- Any other node is selected anew for its second function.
nalt.selectByName("o2")
nalt.traverse(function() nalt.selectNone() end, function() seen[1] = nalt.getSelectionNames()[1] end)
check.same("o2", seen[1])

-- ---- functions that fail --------------------------------------------------------------------------------------------

local wrapped = "Failed executing traverse function:\n"
nalt.selectByName("g1")
check.fails(wrapped .. "too bad", nalt.traverse, function() error("too bad", 0) end, nil)
nalt.selectByName("g1")
check.fails(wrapped .. "behind", nalt.traverse, nil, function() error("behind", 0) end)
nalt.selectByName("g1")
check.fails(wrapped .. "UNDEFINED ERROR MESSAGE", nalt.traverse, function() error({}) end, nil)
nalt.selectByName("g1")
check.fails(wrapped .. "7", nalt.traverse, function() error(7, 0) end, nil)
-- The walk ends at once.
local calls = 0
nalt.selectByName("o1", "o2")
pcall(nalt.traverse, function() calls = calls + 1; error("once") end, function() calls = calls + 1 end)
check.same(1, calls)

-- ---- functions that change the model --------------------------------------------------------------------------------

-- What was selected at the start is walked, also what a function takes out of the tree.
nalt.selectByName("o2", "p5")
kinds = {}
nalt.traverse(function(kind)
  kinds[#kinds + 1] = kind
  nalt.delete()
  return true
end, nil)
check.same("POLYGON VERTEX VERTEX VERTEX OBJECT POLYGON VERTEX VERTEX VERTEX", table.concat(kinds, " "))
check.results("boolean:false", nalt.selectByName("o2", "p5", "p4"))

-- A walk inside a walk; each clears the selection in the end.
nalt.selectByName("g1")
local inner = 0
nalt.traverse(function(kind)
  if kind == "OBJECT" then
    nalt.traverse(function() inner = inner + 1 return true end, nil)
    assert(nalt.getTotalNumSelectedPrimitives() == 0)
  end
  return kind == "GROUP"
end, nil)
check.same(15, inner)

-- From inside a coroutine.
nalt.selectByName("g1")
local done = coroutine.wrap(function()
  nalt.traverse(function() end, nil)
  return "done"
end)()
check.same("done", done)

-- ---- functions that change the current model ------------------------------------------------------------------------

local changed = "Current model changed, traversal has been terminated."
assert(nalt.newModel("other.flt"))
assert(nalt.setCurrentModel("world.flt"))
local function switchesTo(name) return function() assert(nalt.setCurrentModel(name)) end end
nalt.selectByName("g1")
check.fails(changed, nalt.traverse, switchesTo("other.flt"), nil)
check.same("other.flt", nalt.getCurrentModelFilename())
assert(nalt.setCurrentModel("world.flt"))
nalt.selectByName("g1")
check.fails(changed, nalt.traverse, nil, switchesTo("other.flt"))
assert(nalt.setCurrentModel("world.flt"))
nalt.selectByName("p1/V0")
check.fails(changed, nalt.traverse, nil, switchesTo("other.flt"))
assert(nalt.setCurrentModel("world.flt"))
-- There and back again is no change.
nalt.selectByName("g1")
nalt.traverse(function() switchesTo("other.flt")() switchesTo("world.flt")() end, nil)
-- A model that is closed, reverted or made anew in its place is another one.
nalt.selectByName("g1")
check.fails(changed, nalt.traverse, function() assert(nalt.revertModel()) end, nil)
nalt.selectAll("GROUP")
check.fails(changed, nalt.traverse, function() nalt.closeModel() end, nil)
check.same("other.flt", nalt.getCurrentModelFilename())
nalt.selectAll("HEADER")
check.fails(changed, nalt.traverse, function() nalt.closeModel() nalt.newModel("other.flt") end, nil)
nalt.selectAll("HEADER")
check.fails(changed, nalt.traverse, nalt.closeAllModels, nil)
check.same("", nalt.getCurrentModelFilename())
