-- Many models one after the other: each costs what reading and writing cost, and nothing of them stays.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.write()

-- Kilobytes that the program holds.
local function held()
  collectgarbage()
  return tonumber(check.read("/proc/self/status"):match("VmRSS:%s*(%d+)"))
end

local function convert()
  assert(nalt.openModel("world.flt"))
  if nalt.selectSliverPolygons() then nalt.delete() end
  nalt.selectAll("VERTEX")
  assert(nalt.saveModelAs("converted.flt"))
  nalt.closeModel()
end

for _ = 1, 50 do convert() end
local before = held()
for _ = 1, 350 do convert() end
local grown = held() - before
assert(grown < 1000, "grown by " .. grown .. " kB in 350 conversions")

-- Many at the same time, too.
for i = 1, 50 do
  assert(nalt.openModel("world.flt"))
  assert(nalt.saveModelAs("copy" .. i))
end
for i = 1, 50 do assert(nalt.setCurrentModel("copy" .. i .. ".flt")) end
assert(nalt.saveAllModels())
nalt.closeAllModels()
