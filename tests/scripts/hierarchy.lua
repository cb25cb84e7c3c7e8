-- The order of siblings, and the parent that new nodes get. The messages are in hierarchy.expected.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.open()

-- The names of a node's children, in order.
local function children(name)
  local names, depth = {}, 0
  nalt.selectByName(name)
  nalt.traverse(function()
    if depth == 1 then names[#names + 1] = nalt.getSelectionNames()[1] end
    depth = depth + 1
    return depth == 1
  end, function() depth = depth - 1 end)
  return table.concat(names, " ")
end

-- ---- siblings -------------------------------------------------------------------------------------------------------

check.same("p1 p2 p3", children("o1"))
local function shifts(call, names, result, expected)
  nalt.selectByName(names)
  check.results("boolean:" .. tostring(result), nalt[call]())
  local found = children("o1")
  if found ~= expected then error(call .. " gives '" .. found .. "', expected '" .. expected .. "'", 2) end
end
shifts("shiftRight", {"p1"}, true, "p2 p1 p3")
shifts("shiftRight", {"p1"}, true, "p2 p3 p1")
shifts("shiftRight", {"p1"}, false, "p2 p3 p1")
shifts("shiftLeft", {"p1", "p3"}, true, "p3 p1 p2")
shifts("shiftLeft", {"p1", "p3"}, false, "p3 p1 p2")
shifts("shiftFarRight", {"p3"}, true, "p1 p2 p3")
shifts("shiftFarLeft", {"p3", "p2"}, true, "p2 p3 p1")
shifts("shiftFarLeft", {"p2"}, false, "p2 p3 p1")
shifts("shiftFarRight", {"p2", "p3", "p1"}, false, "p2 p3 p1")
-- What is selected stays so, and the order is saved.
nalt.selectByName("p3")
nalt.shiftLeft()
check.same("p3", table.concat(nalt.getSelectionNames()))
check.results("boolean:true", nalt.isModelUnsaved())
assert(nalt.saveModelAs("shifted.flt"))
nalt.closeModel()
assert(nalt.openModel("shifted.flt"))
check.same("p3 p2 p1", children("o1"))

-- Nodes of all kinds.
check.same("g1 l1 d1 sw1 part.flt lp1 ilp1 lps1 snd1", children("db"))
nalt.selectByName("lp1", "l1", "snd1", "part.flt")
check.results("boolean:true", nalt.shiftFarLeft())
check.same("l1 part.flt lp1 snd1 g1 d1 sw1 ilp1 lps1", children("db"))

check.section("different parents")
nalt.selectByName("p1", "p5")
check.results("boolean:false", nalt.shiftLeft())
check.section("what an external refers to")
nalt.selectByName("part.flt")
nalt.selectChildren()
nalt.selectChildren()
check.results("boolean:false", nalt.shiftFarRight())
-- Nothing to shift.
nalt.selectNone()
check.results("boolean:false", nalt.shiftLeft())
nalt.selectAll("HEADER")
check.results("boolean:false", nalt.shiftRight())

-- ---- the parent -----------------------------------------------------------------------------------------------------

local function parentOf(name, expected)
  nalt.selectByName(name)
  check.results("", nalt.setParent())
  check.results("string:" .. expected, nalt.getParent())
end
check.results("string:db", nalt.getParent())
for _, name in ipairs{"g1", "l1", "d1", "sw1", "o4", "lps1", "db"} do parentOf(name, name) end
parentOf("p1", "o1")
parentOf("g1", "g1")
parentOf("p1/V0", "o1")
parentOf("g1", "g1")
parentOf("p2/E1", "o1")

check.section("no parents")
for _, names in ipairs{{"p1", "p2"}, {"g1", "l1"}, {"snd1"}, {"part.flt"}} do
  nalt.selectByName(names)
  nalt.setParent()
  check.results("string:o1", nalt.getParent())
end
nalt.selectByName("part.flt")
nalt.selectChildren()
nalt.selectChildren()
nalt.setParent()
nalt.selectNone()
nalt.setParent()
check.results("string:o1", nalt.getParent())

-- A parent that is gone gives way to the header.
nalt.selectByName("g1")
nalt.delete()
check.results("string:db", nalt.getParent())
-- Choosing one is no edit, and each model has its own.
assert(nalt.saveModel())
parentOf("l1", "l1")
check.results("boolean:false", nalt.isModelUnsaved())
assert(nalt.newModel("other.flt"))
check.results("string:db", nalt.getParent())
assert(nalt.setCurrentModel("shifted.flt"))
check.results("string:l1", nalt.getParent())
