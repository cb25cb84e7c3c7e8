-- Choosing what the next edit applies to, and asking what is chosen.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.open()

local function names() return table.concat(nalt.getSelectionNames(), " ") end
local function selects(expected, result)
  check.results("boolean:true", result)
  if names() ~= expected then error("selected '" .. names() .. "', expected '" .. expected .. "'", 2) end
end
-- The call finds nothing and leaves the selection as it was.
local function findsNothing(call, ...)
  nalt.selectByName("o1")
  check.results("boolean:false", call(...))
  if names() ~= "o1" then error("selected '" .. names() .. "' instead of leaving o1", 2) end
end

-- ---- by mode --------------------------------------------------------------------------------------------------------

local all = {
  VERTEX = 24, EDGE = 24, POLYGON = 5, OBJECT = 6, GROUP = 1, LOD = 1, DOF = 1, EXTERNAL = 1, SWITCH = 1,
  LIGHTPOINT = 2, LIGHTPOINTSYSTEM = 1, HEADER = 1,
}
for mode, count in pairs(all) do
  check.results("boolean:true", nalt.selectAll(mode))
  check.results("number:" .. count, nalt.getNumSelectedPrimitives(mode))
  check.results("number:" .. count, nalt.getTotalNumSelectedPrimitives())
  for other in pairs(all) do
    if other ~= mode then check.results("number:0", nalt.getNumSelectedPrimitives(other)) end
  end
  -- In any case.
  check.results("boolean:true", nalt.selectAll(mode:lower()))
  check.results("number:" .. count, nalt.getNumSelectedPrimitives(mode:sub(1, 1) .. mode:sub(2):lower()))
end
selects("p1 p2 p3 p4 p5", nalt.selectAll("POLYGON"))
selects("o1 o2 o3 o4 o5 o6", nalt.selectAll("OBJECT"))
selects("ilp1 lp1", nalt.selectAll("LIGHTPOINT"))
selects("part.flt", nalt.selectAll("EXTERNAL"))
selects("db", nalt.selectAll("HEADER"))
assert(nalt.newModel("empty.flt"))
for mode in pairs(all) do
  if mode ~= "GROUP" and mode ~= "OBJECT" and mode ~= "HEADER" then
    check.results("boolean:false", nalt.selectAll(mode))
    check.results("number:0", nalt.getTotalNumSelectedPrimitives())
  end
end
nalt.closeModel()

-- ---- none, inverted, previous ---------------------------------------------------------------------------------------

nalt.selectAll("POLYGON")
check.results("", nalt.selectNone())
check.results("number:0", nalt.getTotalNumSelectedPrimitives())
check.results("table:", nalt.getSelectionNames())
check.results("", nalt.selectNone())

nalt.selectByName("p2", "p4")
check.results("", nalt.invertSelection("POLYGON"))
check.same("p1 p3 p5", names())
nalt.invertSelection("polygon")
check.same("p2 p4", names())
-- Inverting another mode: all of it.
nalt.invertSelection("OBJECT")
check.same("o1 o2 o3 o4 o5 o6", names())
nalt.invertSelection("OBJECT")
check.same("", names())

nalt.selectByName("o1")
nalt.selectByName("o2")
check.results("", nalt.selectPrevious())
check.same("o1", names())
nalt.selectPrevious()
check.same("o2", names())
-- Selecting nothing keeps no previous selection of its own.
nalt.selectNone()
nalt.selectPrevious()
check.same("o1", names())

-- ---- by name --------------------------------------------------------------------------------------------------------

selects("p1", nalt.selectByName("p1"))
selects("p1 p3", nalt.selectByName("p3", "p1"))
selects("p1 p3", nalt.selectByName{"p3", "p1"})
selects("p1 p2 p3 p4", nalt.selectByName("p1", {"p2", "p3"}, {}, "p4", {"p1"}))
selects("p1 g1", nalt.selectByName("p1", "g1"))
selects("p1", nalt.selectByName("P1"))
selects("p1", nalt.selectByName("P1", false))
selects("p2", nalt.selectByName({"P1", "p2"}, true))
selects("p2", nalt.selectByName("P1", "p2", true, false))
selects("p2 p3", nalt.selectByName("p3", true, true))
selects("p2 p3 p4", nalt.selectByName("P4", false, true))
selects("p1/V0 p1/V3", nalt.selectByName("p1/V3", "p1/v0"))
selects("p2/E2", nalt.selectByName("p2/E2"))
selects("lp1/V1", nalt.selectByName("lp1/V1"))
selects("part.flt", nalt.selectByName("part.flt"))
selects("snd1", nalt.selectByName("snd1"))
check.results("number:1", nalt.getTotalNumSelectedPrimitives())
findsNothing(nalt.selectByName, "nobody")
findsNothing(nalt.selectByName, "")
findsNothing(nalt.selectByName, {})
findsNothing(nalt.selectByName, "P1", true)
findsNothing(nalt.selectByName, "p1/V4")
findsNothing(nalt.selectByName, "p1/V-1")
findsNothing(nalt.selectByName, "p1/X0")
findsNothing(nalt.selectByName, "p*")
-- Found beside what isn't.
selects("p1", nalt.selectByName("nobody", "p1"))

-- No node joins the selection together with one above or below it.
check.section("adding what lies below the selection")
nalt.selectByName("o1")
nalt.selectByName("p1", false, true)
check.same("o1", names())
nalt.selectByName("p1")
nalt.selectByName("g1", false, true)
check.same("p1", names())

-- ---- by what they are -----------------------------------------------------------------------------------------------

nalt.selectNone()
selects("p2 p4 p5", nalt.selectByNumberOfVertices(3))
selects("p2 p4 p5", nalt.selectByNumberOfVertices(3, false))
nalt.selectByName("o1")
selects("p2", nalt.selectByNumberOfVertices(3))
nalt.selectByName("o1")
selects("p2", nalt.selectByNumberOfVertices(3, true))
nalt.selectByName("o1")
selects("p2 p4 p5", nalt.selectByNumberOfVertices(3, false))
findsNothing(nalt.selectByNumberOfVertices, 5)
findsNothing(nalt.selectByNumberOfVertices, 0)
findsNothing(nalt.selectByNumberOfVertices, -1)

-- At any height, within the tolerance.
selects("p1/V0 p3/V0", nalt.selectVerticesByLocation(0, 0))
selects("p1/V1 p2/V0 p3/V1 p5/V0", nalt.selectVerticesByLocation(2.00009, -0.00009))
findsNothing(nalt.selectVerticesByLocation, 2.0002, 0)
findsNothing(nalt.selectVerticesByLocation, 100, 100)
nalt.setTolerance(1.5)
selects("p1/V0 p3/V0", nalt.selectVerticesByLocation(-1, -1))
nalt.setTolerance(0)
findsNothing(nalt.selectVerticesByLocation, 0, 0)
nalt.setTolerance(0.0001)

-- Slivers need an angle and an area below the tolerance.
nalt.selectNone()
selects("p4", nalt.selectSliverPolygons())
findsNothing(nalt.selectSliverPolygons)
nalt.setTolerance(46)
nalt.selectNone()
selects("p2 p4 p5", nalt.selectSliverPolygons())
nalt.selectByName("g1")
selects("p2 p4", nalt.selectSliverPolygons())
nalt.setTolerance(0.0001)

-- An edge is naked unless another runs along it the other way.
nalt.selectByName("p1", "p2")
selects("p1/E0 p1/E2 p1/E3 p2/E0 p2/E1", nalt.selectNakedEdges())
nalt.selectByName("p3")
selects("p3/E0 p3/E1 p3/E2 p3/E3", nalt.selectNakedEdges())
-- The same way twice is no neighbour.
nalt.selectByName("p2", "p5")
selects("p2/E0 p2/E1 p2/E2 p5/E0 p5/E1 p5/E2", nalt.selectNakedEdges())
nalt.selectByName("o4")
check.results("boolean:false", nalt.selectNakedEdges())
check.same("o4", names())

-- ---- up and down ----------------------------------------------------------------------------------------------------

nalt.selectByName("p1", "p4")
check.results("", nalt.selectParents())
check.same("o1 o2", names())
nalt.selectParents()
check.same("g1", names())
nalt.selectParents()
check.same("db", names())
nalt.selectParents()
check.same("db", names())
check.results("", nalt.selectChildren())
check.same("snd1 g1 l1 d1 part.flt sw1 ilp1 lp1 lps1", names())
check.results("number:9", nalt.getTotalNumSelectedPrimitives())
nalt.selectByName("g1")
nalt.selectChildren()
check.same("o1 o2", names())
nalt.selectChildren()
check.same("p1 p2 p3 p4", names())
nalt.selectByName("p2")
nalt.selectChildren()
check.same("p2/V0 p2/V1 p2/V2", names())
nalt.selectParents()
check.same("p2", names())
nalt.selectByName("p2/E1")
nalt.selectParents()
check.same("p2", names())
nalt.selectByName("o4")
nalt.selectChildren()
check.same("o4", names())

-- ---- into another mode ----------------------------------------------------------------------------------------------

local function converts(from, mode, expected)
  nalt.selectByName(from)
  check.results("", nalt.convertSelection(mode))
  if names() ~= expected then error("selected '" .. names() .. "', expected '" .. expected .. "'", 2) end
end
converts({"g1", "l1"}, "POLYGON", "p1 p2 p3 p4 p5")
converts({"o2"}, "VERTEX", "p4/V0 p4/V1 p4/V2")
converts({"o2"}, "EDGE", "p4/E0 p4/E1 p4/E2")
converts({"p1", "p4"}, "OBJECT", "o1 o2")
converts({"p1/V0", "p2/E1"}, "POLYGON", "p1 p2")
converts({"p1"}, "GROUP", "g1")
converts({"p1"}, "HEADER", "db")
converts({"lps1"}, "header", "db")
converts({"o1"}, "OBJECT", "o1")
converts({"ilp1"}, "VERTEX", "ilp1/V0 ilp1/V1 ilp1/V2 ilp1/V3")
converts({"db"}, "SWITCH", "sw1")
-- Nothing to convert to.
converts({"p1"}, "DOF", "p1")
nalt.selectNone()
nalt.convertSelection("POLYGON")
check.same("", names())

-- ---- counts, names, pivot -------------------------------------------------------------------------------------------

nalt.selectByName("lps1", "p1/V1", "p3", "o2", "sw1", "d1", "lp1")
check.same("p1/V1 p3 o2 d1 sw1 lp1 lps1", names())
check.results("number:7", nalt.getTotalNumSelectedPrimitives())
nalt.selectByName("p1")
check.results("number:1 number:1 number:0", nalt.getPivot())
nalt.selectByName("p1", "p3")
check.results("number:1 number:1 number:2.5", nalt.getPivot())
nalt.selectByName("p1/V2")
check.results("number:2 number:2 number:0", nalt.getPivot())

-- ---- deleting -------------------------------------------------------------------------------------------------------

nalt.selectByName("p3")
assert(not nalt.isModelUnsaved())
check.results("", nalt.delete())
check.results("table:", nalt.getSelectionNames())
check.results("boolean:true", nalt.isModelUnsaved())
selects("p1 p2 p4 p5", nalt.selectAll("POLYGON"))
-- A polygon with two corners left is gone.
nalt.selectByName("p2/V0")
nalt.delete()
selects("p1 p4 p5", nalt.selectAll("POLYGON"))
nalt.selectByName("p1/V0")
nalt.delete()
nalt.selectByName("p1")
check.results("number:3", nalt.getNumVertices())
-- Not the header, and nothing selected is nothing deleted.
nalt.selectAll("HEADER")
nalt.delete()
nalt.selectNone()
nalt.delete()
selects("db", nalt.selectAll("HEADER"))
check.section("what an external refers to")
nalt.selectByName("part.flt")
nalt.selectChildren()
nalt.selectChildren()
check.same("pg1", names())
nalt.delete()
check.same("pg1", names())

nalt.revertModel()
selects("p1 p2 p3 p4 p5", nalt.selectAll("POLYGON"))
