-- Walking a model that comes from a file: counts agree with what was written.

package.path = NALT_PATH_TO_SCRIPT .. "../../examples/?.lua;" .. package.path
local flt = require("flt")

local square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}
local triangle = {{0, 0, 1}, {1, 0, 1}, {0, 1, 1}}
local model = flt.new()
local paint = model:material("paint", {1, 1, 1}, 0)
local function object(...)
  local faces = {}
  for i, points in ipairs{...} do faces[i] = model:polygon(paint, points) end
  return model:object(faces)
end
model:add(model:group("left", {object(square, triangle), object(triangle)}))
model:add(model:group("right", {object(square)}))
model:write("walked.flt")
assert(nalt.openModel("walked.flt"))

local before, behind, depth, deepest = {}, {}, 0, 0
nalt.selectAll("HEADER")
nalt.traverse(function(kind)
  before[kind] = (before[kind] or 0) + 1
  depth = depth + 1
  deepest = math.max(deepest, depth)
  assert(nalt.getTotalNumSelectedPrimitives() == 1 and nalt.getNumSelectedPrimitives(kind) == 1)
  return true
end, function(kind)
  behind[kind] = (behind[kind] or 0) + 1
  depth = depth - 1
end)

local expected = {HEADER = 1, GROUP = 2, OBJECT = 3, POLYGON = 4, VERTEX = 14}
for kind, count in pairs(expected) do
  assert(before[kind] == count and behind[kind] == count, kind .. " " .. tostring(before[kind]))
end
for kind in pairs(before) do assert(expected[kind], kind) end
assert(depth == 0 and deepest == 5)
assert(nalt.getTotalNumSelectedPrimitives() == 0)

nalt.selectAll("POLYGON")
local corners = 0
nalt.traverse(function() corners = corners + nalt.getNumVertices() end, nil)
assert(corners == 14)

-- What a script does to the model ends the walk.
local good, text = pcall(nalt.traverse, nil, nil)
assert(not good and text:find("At least one of the pre/post-callbacks has to be valid.", 1, true))
nalt.selectAll("GROUP")
good, text = pcall(nalt.traverse, function() nalt.closeModel() end, nil)
assert(not good and text:find("Current model changed, traversal has been terminated.", 1, true), text)
assert(nalt.getCurrentModelFilename() == "")
