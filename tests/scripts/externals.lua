-- Files that show other files: what is loaded, what can be reached, and what can't be changed.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.write()
local flt = require("flt")

local function cpuSeconds(work)
  local begin = os.clock()
  work()
  return os.clock() - begin
end

-- ---- a thousand references to ten files -----------------------------------------------------------------------------

local function polygonFile(path, count)
  local model = flt.new()
  local paint = model:material("m", {1, 1, 1}, 0)
  local list = {}
  for i = 1, count do list[i] = model:polygon(paint, {{i, 0, 0}, {i + 1, 0, 0}, {i, 1, 0}}) end
  model:add(model:object(list))
  model:write(path)
end

local references = {}
for i = 0, 999 do
  local name = "tree" .. i % 10 .. ".flt"
  if i < 10 then polygonFile(name, 400) end
  references[i + 1] = world.node("EXTERNAL", name)
end
local forest = flt.new()
forest:add(forest:group("g1", references))
forest:write("forest.flt")

local function resident()
  collectgarbage()
  for line in io.lines("/proc/self/status") do
    local kilobytes = line:match("^VmRSS:%s*(%d+) kB")
    if kilobytes then return tonumber(kilobytes) end
  end
end
assert(nalt.openModel("tree0.flt"))
nalt.closeModel()
local before = resident()
assert(nalt.openModel("forest.flt"))
-- A file takes about half a megabyte: ten of them a few, a thousand several hundred.
assert(resident() - before < 50 * 1024, "each reference has loaded its file")
assert(nalt.selectAll("EXTERNAL"))
check.results("number:1000", nalt.getNumSelectedPrimitives("EXTERNAL"))
local polygons = 0
nalt.selectByName("tree3.flt")
check.results("number:100", nalt.getNumSelectedPrimitives("EXTERNAL"))
nalt.traverse(function(kind)
  if kind == "POLYGON" then polygons = polygons + 1 end
  return kind ~= "POLYGON"
end, nil)
check.same(100 * 400, polygons)
nalt.closeModel()

-- ---- files that each show the next one twice ------------------------------------------------------------------------

local chain = 60
for i = 1, chain do
  local model = flt.new()
  local paint = model:material("m", {1, 1, 1}, 0)
  local content = {model:object{model:polygon(paint, {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}})}}
  for _ = 1, i < chain and 2 or 0 do content[#content + 1] = world.node("EXTERNAL", "link" .. i + 1 .. ".flt") end
  model:add(model:group("g1", content))
  model:write("link" .. i .. ".flt")
end
local seconds = cpuSeconds(function()
  assert(nalt.openModel("link1.flt"))
  assert(nalt.selectAll("GROUP"))
  check.results("number:1 number:1 number:0", nalt.getPivot())
  assert(nalt.selectAll("HEADER"))
  check.results("number:1 number:1 number:0", nalt.getPivot())
  assert(nalt.revertModel())
  assert(nalt.saveModelAs("links.flt"))
  nalt.closeModel()
end)
assert(seconds < 10, seconds)

-- ---- nothing that belongs to another file is changed ----------------------------------------------------------------

local part = check.read("part.flt")
assert(nalt.openModel("world.flt"))
nalt.selectByName("part.flt")
nalt.selectChildren()
local function refuses(work)
  local names = table.concat(nalt.getSelectionNames(), " ")
  work()
  check.same(names, table.concat(nalt.getSelectionNames(), " "))
  check.results("boolean:false", nalt.isModelUnsaved())
  check.results("string:db", nalt.getParent())
end
local visited = {}
for _, mode in ipairs{"HEADER", "GROUP", "OBJECT", "POLYGON", "VERTEX"} do
  check.section("selected of the external: " .. mode)
  check.results("number:1", math.min(1, nalt.getNumSelectedPrimitives(mode)))
  refuses(nalt.delete)
  refuses(function() if mode ~= "VERTEX" then nalt.setParent() end end)
  for _, shift in ipairs{"shiftFarLeft", "shiftLeft", "shiftRight", "shiftFarRight"} do
    refuses(function() check.results("boolean:false", nalt[shift]()) end)
  end
  nalt.selectChildren()
end
nalt.closeModel()
check.same(part, check.read("part.flt"))
