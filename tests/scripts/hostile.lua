-- Scripts that do what nobody should: arguments of every kind and number to every function, nodes that go away while
-- they are looked at, coordinates that are no numbers. Each ends well or with an error that the script can catch, and
-- the program goes on as before.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.write()
local flt = require("flt")

-- ---- any arguments to any function ----------------------------------------------------------------------------------

local none, infinite = 0 / 0, 1 / 0
local values = {nil, true, false, 0, -1, 1e308, -1e308, none, infinite, -infinite, 2 ^ 31, 2 ^ 53, "", "a", "\0",
  "\255\254\253", ("x"):rep(100000), {}, {1}, {"a", 2}, print, coroutine.create(print), io.stdout}
local valueCount = 23
local names = {}
for name in pairs(nalt) do names[#names + 1] = name end
table.sort(names)
check.same(250, #names)

-- Chance that is the same in every run and on every machine.
local seed = 12345
local function chance(limit)
  seed = (seed * 16807) % 2147483647
  return seed % limit + 1
end
assert(nalt.newModel("any.flt"))
for _, name in ipairs(names) do
  for _ = 1, 30 do
    local arguments, count = {}, chance(17) - 1
    for i = 1, count do arguments[i] = values[chance(valueCount)] end
    local good, text = pcall(nalt[name], table.unpack(arguments, 1, count))
    if not good and type(text) ~= "string" then error(name .. " failed with a " .. type(text)) end
  end
  if nalt.getCurrentModelFilename() == "" then nalt.newModel("any.flt") end
end
nalt.closeAllModels()
check.results("string:", nalt.getCurrentModelFilename())
nalt.setTolerance(0.0001)

-- ---- nodes that go away while a traversal looks at them -------------------------------------------------------------

-- Does all that can be done with whatever is selected.
local function doEverything()
  nalt.getPivot()
  nalt.getSelectionNames()
  nalt.getNumChildren()
  nalt.getNumVertices()
  nalt.setParent()
  nalt.shiftLeft()
  nalt.shiftFarRight()
  nalt.alignGridToPolygon()
  nalt.convertSelection("EDGE")
  nalt.convertSelection("VERTEX")
  nalt.selectNakedEdges()
  nalt.selectSliverPolygons()
  nalt.selectByNumberOfVertices(3, true)
  nalt.selectParents()
  nalt.selectChildren()
  nalt.selectPrevious()
  nalt.invertSelection("POLYGON")
  nalt.delete()
end
local function deleteParents()
  nalt.selectParents()
  nalt.delete()
end
for _, mode in ipairs{"VERTEX", "POLYGON", "OBJECT", "GROUP", "LIGHTPOINT", "HEADER"} do
  for _, pre in ipairs{nalt.delete, deleteParents, doEverything, function() end} do
    for _, post in ipairs{nalt.delete, deleteParents, doEverything} do
      assert(nalt.openModel("world.flt"))
      assert(nalt.selectAll(mode))
      nalt.traverse(function() pre() return true end, post)
      check.results("table:", nalt.getSelectionNames())
      doEverything()
      nalt.closeModel()
    end
  end
end

-- ---- other models, errors and coroutines in the middle of a traversal -----------------------------------------------

local function selectGroup()
  nalt.closeAllModels()
  assert(nalt.openModel("world.flt"))
  assert(nalt.selectAll("GROUP"))
end
local function fails(text, pre, post)
  selectGroup()
  check.fails(text, nalt.traverse, pre, post)
end
local changed = "Current model changed, traversal has been terminated."
local failed = "Failed executing traverse function:\n"
for _, change in ipairs{
  nalt.closeModel,
  nalt.closeAllModels,
  nalt.revertModel,
  function() nalt.newModel("other.flt") end,
  function() nalt.closeModel() nalt.openModel("world.flt") end,
  function() nalt.openModel("part.flt") end,
} do
  fails(changed, function() change() return true end, nil)
  fails(changed, nil, change)
end
-- Where the old model is current again nothing has changed.
selectGroup()
nalt.traverse(function()
  nalt.newModel("other.flt")
  nalt.setCurrentModel("world.flt")
end, nil)
check.results("table:", nalt.getSelectionNames())

fails(failed .. "UNDEFINED ERROR MESSAGE", function() error({}) end, nil)
fails(failed .. "too bad", nil, function() error("too bad", 0) end)
local traverse = nalt.traverse
fails(failed .. failed .. "deep", function()
  local _, text = pcall(traverse, function() error("deep", 0) end, nil)
  error(text, 0)
end, nil)
fails(failed .. "attempt to yield from outside a coroutine", function() coroutine.yield() end, nil)
local depth = 0
local function deeper()
  depth = depth + 1
  nalt.traverse(deeper, nil)
end
selectGroup()
assert(not pcall(nalt.traverse, deeper, nil))
assert(depth > 50, depth)
local thread = coroutine.wrap(function()
  selectGroup()
  nalt.traverse(function() return true end, nil)
  coroutine.yield("in between")
  nalt.traverse(1, 2, 3)
end)
check.same("in between", thread())
local _, text = pcall(thread)
assert(text:find("Invalid number of arguments to traverse.", 1, true), text)
for _ = 1, 1000 do
  local abandoned = coroutine.create(function() coroutine.yield(nalt.selectAll("GROUP")) end)
  assert(coroutine.resume(abandoned))
end

-- ---- coordinates that are no numbers --------------------------------------------------------------------------------

local placeholder = 12345.5
local function bytesOf(number)
  local model = flt.new()
  model:polygon(model:material("m", {1, 1, 1}, 0), {{number, 0, 0}, {1, 0, 0}, {0, 1, 0}})
  return model.vertices[1]:sub(9, 16)
end
local function escaped(bytes) return (bytes:gsub("%W", "%%%0")) end
local model = flt.new()
local paint = model:material("m", {1, 1, 1}, 0)
local list = {}
for i = 1, 300 do
  list[i] = model:polygon(paint, {{placeholder, i % 3, 0}, {i % 7, placeholder, 0}, {placeholder, placeholder, i % 2}})
end
for i = 301, 330 do list[i] = model:polygon(paint, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}) end
model:add(model:group("g1", {model:object(list)}))
model:write("numbers.flt")
local whole = check.read("numbers.flt")
for name, bytes in pairs{nan = "\127\248\0\0\0\0\0\0", negativeNan = "\255\248\0\0\0\0\0\1",
    infinite = "\127\240\0\0\0\0\0\0", largest = "\127\239\255\255\255\255\255\255"} do
  local replaced = whole:gsub(escaped(bytesOf(placeholder)), (bytes:gsub("%%", "%%%%")))
  check.write(name .. ".flt", replaced)
  assert(nalt.openModel(name .. ".flt"))
  for _, tolerance in ipairs{0.0001, 0, infinite} do
    nalt.setTolerance(tolerance)
    nalt.selectNone()
    nalt.selectNakedEdges()
    nalt.getPivot()
    nalt.selectNone()
    nalt.selectSliverPolygons()
    for _, place in ipairs{0, none, infinite, -infinite} do nalt.selectVerticesByLocation(place, place) end
  end
  nalt.setTolerance(-1)
  nalt.setTolerance(none)
  check.results("number:inf", nalt.getTolerance())
  nalt.setTolerance(0.0001)
  assert(nalt.selectVerticesByLocation(0, 0))
  check.results("number:30", nalt.getTotalNumSelectedPrimitives())
  nalt.setGridOrigin(none, infinite, 0)
  nalt.setGridPointOnAxis(infinite, infinite, infinite)
  check.results("number:0 number:0 number:0", nalt.getGridOrigin())
  assert(nalt.saveModelAs(name .. "Copy.flt"))
  nalt.closeModel()
end

-- ---- names of any bytes ---------------------------------------------------------------------------------------------

local odd = flt.new()
local groups = {}
local oddNames = {"\255\254", "a\"b", "two\nlines", "\\", "%s%n", "@i(x)", "ü", "p1/V0"}
for i, name in ipairs(oddNames) do groups[i] = odd:group(name, {}) end
odd:add(table.concat(groups))
odd:write("odd.flt")
assert(nalt.openModel("odd.flt"))
for _, name in ipairs(oddNames) do
  assert(nalt.selectByName(name, true, false), name)
  check.results("table:" .. name, nalt.getSelectionNames())
end
check.results("boolean:true", nalt.selectByName(oddNames))
check.results("number:" .. #oddNames, nalt.getTotalNumSelectedPrimitives())
assert(nalt.saveModelAs("bytes \255 \n.flt"))
check.results("string:bytes \255 \n.flt", nalt.getCurrentModelFilename())
nalt.closeModel()
assert(nalt.openModel("bytes \255 \n.flt"))
