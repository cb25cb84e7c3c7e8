-- A run that opens, edits, saves and closes a hundred models ends with the memory that it had after the first few.

package.path = NALT_PATH_TO_SCRIPT .. "../../examples/?.lua;" .. package.path
local flt = require("flt")

local models = 100
local warm = 10                -- models until every cache and pool of the program has its size
local allowed = 4 * 1024       -- growth behind them in kB: what an allocator may come to hold in other pieces

local function polygons(model, count)
  local list = {}
  local paint = model:material("m", {1, 1, 1}, 0)
  for i = 1, count do
    list[i] = model:polygon(paint, {{i, 0, 0}, {i + 1, 0, 0}, {i + 1, 1, 0}, {i, 1, 0}})
  end
  return list
end

local function residentKilobytes()
  collectgarbage()
  for line in io.lines("/proc/self/status") do
    local kilobytes = line:match("^VmRSS:%s*(%d+) kB")
    if kilobytes then return tonumber(kilobytes) end
  end
  error("no resident size")
end

local model = flt.new()
model:add(model:group("g1", {model:object(polygons(model, 3000))}))
model:write("in.flt")

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
local growth = after[models] - after[warm]
if growth > allowed then
  error("the run grew by " .. growth .. " kB between model " .. warm .. " and model " .. models)
end
