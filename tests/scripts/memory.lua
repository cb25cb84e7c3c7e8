-- A run that opens, edits, saves and closes a hundred models ends with the memory that it had after the second.

package.path = NALT_PATH_TO_SCRIPT .. "../../examples/?.lua;" .. package.path
local flt = require("flt")

local models = 100
-- Growth behind the second model in kB: what an allocator may come to hold in other pieces. A model takes about 3000, so
-- a run that kept a hundredth of each would grow by more.
local allowed = 1024
local quads = 3000

local function polygons(model, count)
  local list = {}
  local paint = model:material("m", {1, 1, 1}, 0)
  for i = 1, count do
    list[i] = model:polygon(paint, {{i, 0, 0}, {i + 1, 0, 0}, {i + 1, 1, 0}, {i, 1, 0}})
  end
  return list
end

-- What the process holds of the machine's memory. What is free inside it counts too, so the figure can be too large and
-- never too small.
local function residentKilobytes()
  collectgarbage()
  for line in io.lines("/proc/self/status") do
    local kilobytes = line:match("^VmRSS:%s*(%d+) kB")
    if kilobytes then return tonumber(kilobytes) end
  end
  error("no resident size")
end

local model = flt.new()
model:add(model:group("g1", {model:object(polygons(model, quads))}))
model:write("in.flt")
model = nil

local after = {}
for i = 1, models do
  assert(nalt.openModel("in.flt"))
  assert(nalt.selectAll("POLYGON"))
  nalt.convertSelection("VERTEX")
  assert(nalt.selectNakedEdges())
  assert(nalt.selectByName("p1", "p17/V2", "p2900"))
  nalt.delete()
  assert(nalt.selectAll("VERTEX"))
  nalt.invertSelection("POLYGON")
  assert(nalt.saveModelAs("out.flt"))
  nalt.closeModel()
  after[i] = residentKilobytes()
end
local growth = after[models] - after[2]
if growth > allowed then
  local steps = {}
  for i = 2, models, 14 do steps[#steps + 1] = after[i] end
  error("the run grew by " .. growth .. " kB behind the second of " .. models .. " models: " ..
    table.concat(steps, ", "))
end
