-- The scripts in examples/ do what their first lines say, and so do the examples of the manual.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
local examples = NALT_PATH_TO_SCRIPT .. "../../examples/"

local function runs(name, arguments, expected)
  local out, err, status = check.run("", examples .. name, arguments)
  check.same("", err)
  check.same(0, status)
  out = out:gsub("Executed [^\n]*%.\n$", ""):gsub("\nINFO: [^\n]*\n\n", "")
  if expected and out ~= expected then error("printed '" .. out .. "', expected '" .. expected .. "'", 2) end
  return out
end

-- ---- the airfield ---------------------------------------------------------------------------------------------------

os.execute("mkdir made saved")
runs("example.lua", "made", "Wrote made/example.flt and made/example-15.7.flt.\n")
runs("count.lua", "made/example.flt", "made/example.flt: group 6, object 54, polygon 968, vertex 3262, lod 46, switch 1\n")
runs("convert.lua", "1580 saved made/example.flt made/example-15.7.flt", nil)
for _, name in ipairs{"example.flt", "example-15.7.flt"} do check.same("\0\0\6\44", check.read("saved/" .. name):sub(13, 16)) end

-- ---- scripts for any model ------------------------------------------------------------------------------------------

world.write()
runs("clean.lua", "world.flt cleaned.flt", "1 sliver polygons deleted.\n")
runs("clean.lua", "cleaned.flt again.flt", "There are no sliver polygons.\n")
runs("outline.lua", "world.flt", [[
HEADER db
  GROUP g1
    OBJECT o1 (3 polygons)
    OBJECT o2 (1 polygon)
  LOD l1
    OBJECT o3 (1 polygon)
  DOF d1
    OBJECT o4 (0 polygons)
  SWITCH sw1
    OBJECT o5 (0 polygons)
    OBJECT o6 (0 polygons)
  EXTERNAL part.flt
  LIGHTPOINT lp1
  LIGHTPOINT ilp1
  LIGHTPOINTSYSTEM lps1
  UNSUPPORTED snd1
]])
runs("borders.lua", "world.flt", "world.flt: 14 of 17 edges have no neighbor.\n")
local out, err, status = check.run("", examples .. "check.lua", "made/example.flt world.flt")
check.same(255, status)
check.same("made/example.flt: good\nworld.flt: o4, o5, o6 hold no polygons; p4 is a sliver\n", out)
assert(err:find("1 of 2 models have faults.", 1, true), err)
runs("check.lua", "made/example.flt", "made/example.flt: good\n")
runs("each.lua", "'" .. examples .. "parts/empty.lua' world.flt made/example.flt",
  "world.flt: 3 objects deleted.\nmade/example.flt: 0 objects deleted.\n")

-- ---- the manual -----------------------------------------------------------------------------------------------------

local manual = assert(check.read(NALT_PATH_TO_SCRIPT .. "../../docs/lua-api.md"))
local shown = 0
for code in manual:gmatch("\nExample:\n\n```lua\n(.-)```") do
  shown = shown + 1
  check.write("shown.lua", "assert(nalt.openModel('world.flt'))\n" .. code)
  local printed, errors, ended = check.run("", "shown.lua")
  check.same("", errors)
  check.same(0, ended)
  assert(not printed:find("Not implemented yet", 1, true), printed)
end
assert(shown >= 7, shown)
