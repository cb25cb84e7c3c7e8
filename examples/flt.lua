-- A small writer of OpenFlight 16.2 files in plain Lua: enough to build a model from nothing.
-- Nalt itself isn't needed to run it; example.lua shows how the two work together.

local flt = {}

-- ---- numbers as big-endian bytes ------------------------------------------------------------------------------------

local function integer(value, size)
  local bytes = {}
  value = value % 256 ^ size
  for i = size, 1, -1 do
    bytes[i] = string.char(value % 256)
    value = math.floor(value / 256)
  end
  return table.concat(bytes)
end

local function i16(value) return integer(value, 2) end
local function i32(value) return integer(value, 4) end

-- IEEE 754, with `exponentBits` and `mantissaBits` as the format has them.
local function real(value, exponentBits, mantissaBits)
  local bias = 2 ^ (exponentBits - 1) - 1
  local sign = (value < 0 or 1 / value < 0) and 1 or 0
  local mantissa, exponent = math.frexp(math.abs(value))
  local fraction, stored = 0, 0
  if mantissa ~= 0 then
    stored = exponent - 1 + bias
    fraction = math.floor((mantissa * 2 - 1) * 2 ^ mantissaBits + 0.5)
    if fraction == 2 ^ mantissaBits then fraction, stored = 0, stored + 1 end
  end
  -- The top 16 bits and the rest apart: a Lua number holds 53 bits exactly.
  local low = mantissaBits - (15 - exponentBits)
  local high = sign * 2 ^ 15 + stored * 2 ^ (15 - exponentBits) + math.floor(fraction / 2 ^ low)
  return i16(high) .. integer(fraction % 2 ^ low, low / 8)
end

local function f32(value) return real(value, 8, 23) end
local function f64(value) return real(value, 11, 52) end

local function text(value, size) return (value .. string.rep("\0", size)):sub(1, size - 1) .. "\0" end

-- ---- records --------------------------------------------------------------------------------------------------------

local function record(opcode, content) return i16(opcode) .. i16(#content + 4) .. content end

local PUSH, POP = record(10, ""), record(11, "")
local PUSH_SUBFACE, POP_SUBFACE = record(19, ""), record(20, "")

local function level(content) return content == "" and "" or PUSH .. content .. POP end

local Model = {}
Model.__index = Model

function flt.new()
  return setmetatable({vertices = {}, offset = 8, materials = {}, content = {}, counts = {}}, Model)
end

function Model:name(prefix)
  self.counts[prefix] = (self.counts[prefix] or 0) + 1
  return text(prefix .. self.counts[prefix], 8)
end

-- Gives the index of a new material. Colors are three numbers from 0 to 1.
function Model:material(name, color, shininess)
  local function rgb(scale) return f32(color[1] * scale) .. f32(color[2] * scale) .. f32(color[3] * scale) end
  local index = #self.materials
  local gloss = shininess > 0 and 0.6 or 0
  self.materials[index + 1] = record(113, i32(index) .. text(name, 12) .. i32(0x80000000) .. rgb(0.6) .. rgb(1) ..
    f32(gloss) .. f32(gloss) .. f32(gloss) .. f32(0) .. f32(0) .. f32(0) .. f32(shininess) .. f32(1) .. i32(0))
  return index
end

local function normalOf(points)
  local a, b, c = points[1], points[2], points[3]
  local ux, uy, uz = b[1] - a[1], b[2] - a[2], b[3] - a[3]
  local vx, vy, vz = c[1] - a[1], c[2] - a[2], c[3] - a[3]
  local x, y, z = uy * vz - uz * vy, uz * vx - ux * vz, ux * vy - uy * vx
  local length = math.sqrt(x * x + y * y + z * z)
  return {x / length, y / length, z / length}
end

-- A polygon of corners in counter-clockwise order, seen from outside.
--   options.normals: one for each corner, else the polygon's own
--   options.subfaces: polygons that lie on this one
function Model:polygon(material, points, options)
  options = options or {}
  local flat = normalOf(points)
  local offsets = {}
  for i, point in ipairs(points) do
    local normal = options.normals and options.normals[i] or flat
    self.vertices[#self.vertices + 1] = record(69, i16(0) .. i16(0x2000) .. f64(point[1]) .. f64(point[2]) ..
      f64(point[3]) .. f32(normal[1]) .. f32(normal[2]) .. f32(normal[3]) .. i32(-1) .. i32(0) .. i32(0))
    offsets[i] = i32(self.offset)
    self.offset = self.offset + 56
  end
  local drawType, litByNormals, packedColor = options.bothSides and 1 or 0, 2, 0x10000000
  local face = record(5, self:name("p") .. i32(0) .. i16(0) .. string.char(drawType, 0) .. i16(0) .. i16(0) ..
    "\0\0" .. i16(-1) .. i16(-1) .. i16(material) .. i16(0) .. i16(0) .. i32(0) .. i16(options.transparency or 0) ..
    "\0\0" .. i32(packedColor + 0x20000000) .. string.char(litByNormals) .. string.rep("\0", 7) .. i32(-1) .. i32(-1) ..
    i16(-1) .. i16(0) .. i32(0) .. i32(0) .. i16(0) .. i16(-1))
  local subfaces = options.subfaces and PUSH_SUBFACE .. table.concat(options.subfaces) .. POP_SUBFACE or ""
  return face .. level(record(72, table.concat(offsets))) .. subfaces
end

function Model:object(polygons)
  return record(4, self:name("o") .. string.rep("\0", 16)) .. level(table.concat(polygons))
end

function Model:group(name, children)
  local long = #name > 7 and record(33, name .. "\0") or ""
  return record(2, text(name, 8) .. string.rep("\0", 32)) .. long .. level(table.concat(children))
end

function Model:lod(switchIn, switchOut, children)
  return record(73, self:name("l") .. i32(0) .. f64(switchIn) .. f64(switchOut) .. i16(0) .. i16(0) .. i32(0) ..
    f64(0) .. f64(0) .. f64(0) .. f64(0) .. f64(0)) .. level(table.concat(children))
end

-- Shows only child number `shown`, counted from 1; one mask for each child.
function Model:switch(shown, children)
  local masks = {}
  for i = 1, #children do masks[i] = i32(2 ^ (i - 1)) end
  return record(96, self:name("sw") .. i32(0) .. i32(shown - 1) .. i32(#children) .. i32(1) .. table.concat(masks)) ..
    level(table.concat(children))
end

function Model:add(node) self.content[#self.content + 1] = node end

function Model:write(path)
  local header = record(1, text("db", 8) .. i32(1620) .. i32(1) .. text("", 32) .. string.rep("\0", 8) .. i16(1) ..
    "\0\0" .. i32(0x80000000) .. string.rep("\0", 24) .. i32(0) .. string.rep("\0", 28) .. i16(0) .. i16(1) ..
    i32(100) .. string.rep("\0", 192))
  local file = assert(io.open(path, "wb"))
  file:write(header, record(32, string.rep("\0", 4224)), table.concat(self.materials),
    record(67, i32(self.offset)), table.concat(self.vertices), level(table.concat(self.content)))
  file:close()
end

return flt
