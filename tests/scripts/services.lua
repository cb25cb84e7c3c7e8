-- Questions about one node, the tolerance, and the program's version.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.open()

check.results("number:2.9", nalt.getVersion())

-- ---- children: nodes only -------------------------------------------------------------------------------------------

for name, count in pairs{db = 9, g1 = 2, o1 = 3, o2 = 1, p1 = 0, l1 = 1, d1 = 1, sw1 = 2, lp1 = 0, ilp1 = 0, lps1 = 0,
    snd1 = 0, o4 = 0, ["part.flt"] = 1} do
  nalt.selectByName(name)
  check.results("number:" .. count, nalt.getNumChildren())
end
for _, names in ipairs{{}, {"o1", "o2"}, {"o1", "p5"}, {"p1/V0"}, {"p1/E0"}, {"o1", "p5/V0"}} do
  check.section("children of " .. table.concat(names, " and "))
  nalt.selectNone()
  nalt.selectByName(names)
  check.results("number:0", nalt.getNumChildren())
end

-- ---- vertices of a polygon or light point ---------------------------------------------------------------------------

for name, count in pairs{p1 = 4, p2 = 3, lp1 = 3, ilp1 = 4} do
  nalt.selectByName(name)
  check.results("number:" .. count, nalt.getNumVertices())
end
for _, names in ipairs{{}, {"p1", "p2"}, {"p1/V0"}, {"p1", "lp1"}} do
  check.section("vertices of " .. table.concat(names, " and "))
  nalt.selectNone()
  nalt.selectByName(names)
  check.results("number:0", nalt.getNumVertices())
end
for _, name in ipairs{"db", "g1", "o1", "l1", "d1", "sw1", "part.flt", "lps1", "snd1"} do
  check.section("vertices of " .. name)
  nalt.selectByName(name)
  check.results("number:0", nalt.getNumVertices())
end

-- ---- the tolerance, which is the program's and not the model's ------------------------------------------------------

check.results("number:0.0001", nalt.getTolerance())
for _, value in ipairs{0.5, 0, 1e-300, 1e300, 3} do
  check.results("", nalt.setTolerance(value))
  check.same(value, nalt.getTolerance())
end
nalt.setTolerance("0.25")
check.results("number:0.25", nalt.getTolerance())
-- What no tolerance can be is ignored.
for _, value in ipairs{-1, -1e-300, 0/0} do
  nalt.setTolerance(value)
  check.results("number:0.25", nalt.getTolerance())
end
nalt.newModel("other.flt")
check.results("number:0.25", nalt.getTolerance())
nalt.closeAllModels()
check.results("number:0.25", nalt.getTolerance())
-- It isn't an edit.
world.open()
nalt.setTolerance(1)
check.results("boolean:false", nalt.isModelUnsaved())

-- ---- the parent that new nodes get ----------------------------------------------------------------------------------

check.results("string:db", nalt.getParent())
