-- Models for the script tests that need one: written in plain Lua, so that nothing of the program is taken for granted.

package.path = NALT_PATH_TO_SCRIPT .. "../../examples/?.lua;" .. package.path
local flt = require("flt")

local world = {}

local function bigEndian(value, size)
  local bytes = {}
  for i = size, 1, -1 do
    bytes[i] = string.char(value % 256)
    value = math.floor(value / 256)
  end
  return table.concat(bytes)
end

local function record(opcode, content) return bigEndian(opcode, 2) .. bigEndian(#content + 4, 2) .. content end

local function level(children)
  if #children == 0 then return "" end
  return record(10, "") .. table.concat(children) .. record(11, "")
end

local kinds = {
  GROUP = {2, 44}, OBJECT = {4, 28}, DOF = {14, 384}, EXTERNAL = {63, 216}, LOD = {73, 80}, SOUND = {91, 88},
  LIGHTPOINT = {111, 156}, INDEXED = {130, 28}, LIGHTPOINTSYSTEM = {131, 24},
}

-- A node of zeros but for its name, which has up to 7 characters; the path of an external up to 199.
function world.node(kind, name, children)
  local opcode, length = kinds[kind][1], kinds[kind][2]
  return record(opcode, (name .. string.rep("\0", length)):sub(1, length - 4)) .. level(children or {})
end

-- A node whose vertices are the corners of a polygon that `model` made.
function world.points(kind, name, polygon)
  local vertexList = polygon:sub(81) -- what stands behind the polygon's own record: its level
  return world.node(kind, name) .. vertexList
end

local square = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}
local triangle = {{2, 0, 0}, {4, 0, 0}, {2, 2, 0}}
local high = {{0, 0, 5}, {2, 0, 5}, {2, 2, 5}, {0, 2, 5}}
local needle = {{8, 8, 0}, {9, 8, 0}, {8.5, 8.0000001, 0}}

-- Writes "part.flt", which the external of "world.flt" refers to: one group, object and polygon.
-- Writes "world.flt":
--
--   db  g1  o1  p1 a square of side 2 at the origin, p2 a triangle beside it, p3 the square again 5 higher
--           o2  p4 a triangle as thin as a needle
--       l1  o3  p5 a triangle
--       d1  o4
--       sw1 o5, o6
--       part.flt
--       lp1 with the corners of a triangle, ilp1 with those of a square, lps1
--       snd1
function world.write()
  local part = flt.new()
  part:add(part:group("pg1", {part:object({part:polygon(part:material("m", {1, 1, 1}, 0), square)})}))
  part:write("part.flt")

  local model = flt.new()
  local material = model:material("m", {1, 0.5, 0}, 0)
  local function polygon(points) return model:polygon(material, points) end
  local first = {model:object({polygon(square), polygon(triangle), polygon(high)}), model:object({polygon(needle)})}
  model:add(model:group("g1", first))
  model:add(model:lod(1000, 0, {model:object({polygon(triangle)})}))
  model:add(world.node("DOF", "d1", {model:object({})}))
  model:add(model:switch(1, {model:object({}), model:object({})}))
  model:add(world.node("EXTERNAL", "part.flt"))
  model:add(world.points("LIGHTPOINT", "lp1", polygon(triangle)))
  model:add(world.points("INDEXED", "ilp1", polygon(square)))
  model:add(world.node("LIGHTPOINTSYSTEM", "lps1"))
  model:add(world.node("SOUND", "snd1"))
  model:write("world.flt")
end

-- Writes a model without nodes whose palettes of all kinds have entries of these numbers.
function world.writePalettes(path, indices)
  local records = {}
  local function add(opcode, length, indexAt, index)
    local content = string.rep("\0", indexAt - 4) .. bigEndian(index, 4)
    records[#records + 1] = record(opcode, content .. string.rep("\0", length - 4 - #content))
  end
  for _, index in ipairs(indices) do
    add(64, 216, 204, index) -- textures
    add(113, 84, 4, index) -- materials
    add(112, 396, 8, index) -- texture mappings; their length is that of no known type
    add(128, 412, 264, index) -- light point appearances
    add(129, 320, 264, index) -- light point animations
    add(133, 1036, 4, index) -- shaders
  end
  local model = flt.new()
  model:write(path)
  local file = assert(io.open(path, "rb"))
  local content = file:read("*a")
  file:close()
  local header = 324
  file = assert(io.open(path, "wb"))
  file:write(content:sub(1, header), table.concat(records), content:sub(header + 1))
  file:close()
end

-- Writes and opens "world.flt".
function world.open()
  world.write()
  assert(nalt.openModel("world.flt"), "can't open world.flt")
end

return world
