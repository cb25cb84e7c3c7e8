-- Laying the grid, and asking where it lies. The messages are in grid.expected.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.open()

local function point(...) return table.concat({...}, ",") end
local function lies(origin, onAxis, third)
  local found = point(nalt.getGridOrigin()) .. " " .. point(nalt.getGridPointOnAxis()) .. " " ..
    point(nalt.getGridThirdPoint())
  local expected = origin .. " " .. onAxis .. " " .. third
  if found ~= expected then error("the grid lies at " .. found .. ", expected " .. expected, 2) end
end

lies("0,0,0", "1,0,0", "0,1,0")
check.results("number:0 number:0 number:0", nalt.getGridOrigin())
check.results("", nalt.setXZGrid())
lies("0,0,0", "1,0,0", "0,0,1")
check.results("", nalt.setYZGrid())
lies("0,0,0", "0,1,0", "0,0,1")
check.results("", nalt.setXYGrid())
lies("0,0,0", "1,0,0", "0,1,0")

-- The origin takes the other points along; they are kept as they are given.
check.results("", nalt.setGridOrigin(1, 2.5, -3))
lies("1,2.5,-3", "2,2.5,-3", "1,3.5,-3")
check.results("", nalt.setGridPointOnAxis(4, 2.5, -3))
check.results("", nalt.setGridThirdPoint(1, 9, 0))
lies("1,2.5,-3", "4,2.5,-3", "1,9,0")
nalt.setGridOrigin(0, 0, 0)
lies("0,0,0", "3,0,0", "0,6.5,3")

-- Along the normal, as far as is said.
nalt.setXYGrid()
check.results("", nalt.addGridOffset(2))
lies("0,0,2", "1,0,2", "0,1,2")
nalt.addGridOffset(-5)
lies("0,0,-3", "1,0,-3", "0,1,-3")
nalt.setXZGrid()
nalt.addGridOffset(1)
lies("0,-1,0", "1,-1,0", "0,-1,1")
nalt.setYZGrid()
nalt.addGridOffset(0.5)
lies("0.5,0,0", "0.5,1,0", "0.5,0,1")
nalt.setXYGrid()

check.section("spacings")
for _, spacing in ipairs{0.25, 1e-9, 1e9, "2"} do check.results("", nalt.setGridSpacing(spacing)) end
for _, spacing in ipairs{0, -1, 0/0, 1/0} do check.results("", nalt.setGridSpacing(spacing)) end
check.section("offsets")
for _, offset in ipairs{0/0, 1/0, -1/0} do check.results("", nalt.addGridOffset(offset)) end
lies("0,0,0", "1,0,0", "0,1,0")

check.section("aligning to nothing")
nalt.selectNone()
check.results("boolean:false", nalt.alignGridToPolygon())
check.section("aligning to an object")
nalt.selectByName("o1")
check.results("boolean:false", nalt.alignGridToPolygon())
check.section("aligning to two polygons")
nalt.selectByName("p1", "p2")
check.results("boolean:false", nalt.alignGridToPolygon())
lies("0,0,0", "1,0,0", "0,1,0")
check.section("aligning to one")
nalt.setYZGrid()
nalt.selectByName("p3")
check.results("boolean:true", nalt.alignGridToPolygon())
lies("0,0,5", "2,0,5", "2,2,5")

-- The grid is the view's and not the document's, and each model has its own.
check.results("boolean:false", nalt.isModelUnsaved())
assert(nalt.newModel("other.flt"))
lies("0,0,0", "1,0,0", "0,1,0")
nalt.setXZGrid()
assert(nalt.setCurrentModel("world.flt"))
lies("0,0,5", "2,0,5", "2,2,5")
