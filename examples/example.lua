-- Makes a small airfield, the model that Nalt opens when it is started for the first time.
--
--   nalt examples/example.lua [folder]
--
-- The file is built by flt.lua, then opened and saved by Nalt in the newest and in the oldest version.

local folder = arg[1] or "."
package.path = NALT_PATH_TO_SCRIPT .. "?.lua;" .. package.path
local ok, flt = pcall(require, "flt")
if not ok then
  -- Started with a relative path; the folder is then the script's own.
  package.path = (arg[0]:match(".*/") or "") .. "?.lua;" .. package.path
  flt = require("flt")
end

local model = flt.new()
local grass = model:material("grass", {0.36, 0.52, 0.24}, 0)
local asphalt = model:material("asphalt", {0.27, 0.28, 0.30}, 0)
local paint = model:material("paint", {0.95, 0.95, 0.92}, 0)
local concrete = model:material("concrete", {0.74, 0.72, 0.68}, 4)
local steel = model:material("steel", {0.45, 0.56, 0.66}, 40)
local red = model:material("red", {0.78, 0.20, 0.16}, 20)
local glass = model:material("glass", {0.30, 0.52, 0.66}, 90)
local leaves = model:material("leaves", {0.20, 0.40, 0.18}, 0)
local bark = model:material("bark", {0.36, 0.26, 0.18}, 0)

-- ---- building blocks ------------------------------------------------------------------------------------------------

local function flat(material, x1, y1, x2, y2, z, options)
  return model:polygon(material, {{x1, y1, z}, {x2, y1, z}, {x2, y2, z}, {x1, y2, z}}, options)
end

local function box(material, roof, x1, y1, x2, y2, z1, z2)
  local function wall(ax, ay, bx, by)
    return model:polygon(material, {{ax, ay, z1}, {bx, by, z1}, {bx, by, z2}, {ax, ay, z2}})
  end
  return {wall(x1, y1, x2, y1), wall(x2, y1, x2, y2), wall(x2, y2, x1, y2), wall(x1, y2, x1, y1),
    flat(roof, x1, y1, x2, y2, z2)}
end

-- A ring of `sides` faces between two heights; a radius of 0 closes it. Smooth when `smooth`.
local function ring(material, cx, cy, r1, z1, r2, z2, sides, smooth)
  local faces = {}
  local slope = (r1 - r2) / (z2 - z1)
  local length = math.sqrt(1 + slope * slope)
  for i = 0, sides - 1 do
    local a, b = 2 * math.pi * i / sides, 2 * math.pi * (i + 1) / sides
    local function at(angle, radius, z) return {cx + radius * math.cos(angle), cy + radius * math.sin(angle), z} end
    local function normal(angle) return {math.cos(angle) / length, math.sin(angle) / length, slope / length} end
    local points = {at(a, r1, z1), at(b, r1, z1), at(b, r2, z2), at(a, r2, z2)}
    local normals = {normal(a), normal(b), normal(b), normal(a)}
    if r2 == 0 then points[4], normals[4] = nil, nil end
    if r1 == 0 then table.remove(points, 2); table.remove(normals, 2) end
    faces[#faces + 1] = model:polygon(material, points, smooth and {normals = normals} or nil)
  end
  return faces
end

local function disk(material, cx, cy, radius, z, sides)
  local points = {}
  for i = 0, sides - 1 do
    local a = 2 * math.pi * i / sides
    points[#points + 1] = {cx + radius * math.cos(a), cy + radius * math.sin(a), z}
  end
  return model:polygon(material, points)
end

local function joined(...)
  local all = {}
  for _, list in ipairs({...}) do
    for _, item in ipairs(list) do all[#all + 1] = item end
  end
  return all
end

-- ---- the airfield ---------------------------------------------------------------------------------------------------

local stripes = {}
for x = -84, 76, 16 do stripes[#stripes + 1] = flat(paint, x, -0.5, x + 8, 0.5, 0) end
for y = -5, 4.5, 1.5 do
  stripes[#stripes + 1] = flat(paint, -97, y, -88, y + 0.7, 0)
  stripes[#stripes + 1] = flat(paint, 88, y, 97, y + 0.7, 0)
end
local runway = flat(asphalt, -100, -8, 100, 8, 0, {subfaces = stripes})
local apron = flat(concrete, -30, 14, 55, 52, 0)
local taxiway = flat(asphalt, 4, 8, 14, 14, 0)
model:add(model:group("ground", {model:object({flat(grass, -120, -60, 120, 80, 0,
  {subfaces = {runway, apron, taxiway}})})}))

local tower = joined(ring(concrete, 40, 40, 3.2, 0, 2.6, 16, 16, true), ring(concrete, 40, 40, 2.6, 16, 4.6, 18, 8),
  ring(glass, 40, 40, 4.6, 18, 5.4, 21, 8), ring(steel, 40, 40, 5.4, 21, 5.8, 22, 8), {disk(red, 40, 40, 5.8, 22, 8)},
  ring(red, 40, 40, 0.25, 22, 0, 29, 6))
model:add(model:group("controlTower", {model:object(tower)}))

local function hangar(x, y)
  local faces, sides, radius, depth = {}, 12, 9, 18
  for i = 0, sides - 1 do
    local a, b = math.pi * i / sides, math.pi * (i + 1) / sides
    local function at(angle, depthAt) return {x + radius * math.cos(angle), y + depthAt, 0.2 + radius * 0.8 * math.sin(angle)} end
    local function n(angle) return {math.cos(angle), 0, math.sin(angle)} end
    faces[#faces + 1] = model:polygon(steel, {at(a, 0), at(a, depth), at(b, depth), at(b, 0)},
      {normals = {n(a), n(a), n(b), n(b)}})
  end
  local front, back = {}, {}
  for i = 0, sides do
    local a = math.pi * i / sides
    front[#front + 1] = {x + radius * math.cos(a), y, 0.2 + radius * 0.8 * math.sin(a)}
    table.insert(back, 1, {x + radius * math.cos(a), y + depth, 0.2 + radius * 0.8 * math.sin(a)})
  end
  local door = model:polygon(concrete, {{x - 6, y, 0.2}, {x + 6, y, 0.2}, {x + 6, y, 5}, {x - 6, y, 5}})
  faces[#faces + 1] = model:polygon(red, front, {subfaces = {door}})
  faces[#faces + 1] = model:polygon(red, back)
  return model:object(faces)
end
model:add(model:group("hangars", {hangar(-16, 32), hangar(8, 32)}))

local function tree(x, y, size)
  local near = joined(ring(bark, x, y, 0.4 * size, 0, 0.3 * size, 2 * size, 8, true),
    ring(leaves, x, y, 2.2 * size, 1.6 * size, 0, 5 * size, 12, true),
    ring(leaves, x, y, 1.7 * size, 3.4 * size, 0, 6.5 * size, 12, true))
  local far = ring(leaves, x, y, 2 * size, 0.8 * size, 0, 6.5 * size, 4)
  return model:lod(400, 0, {model:object(near)}) .. model:lod(5000, 400, {model:object(far)})
end
local trees = {}
for i = 0, 13 do trees[#trees + 1] = tree(-112 + 17 * i, 66 + 5 * math.sin(i * 2.3), 1 + 0.25 * math.sin(i * 5.1)) end
for i = 0, 8 do trees[#trees + 1] = tree(-100 + 25 * i, -44 + 6 * math.sin(i * 1.7), 1 + 0.3 * math.sin(i * 3.3)) end
model:add(model:group("trees", trees))

-- A wind sock that a switch turns: hanging, or blown out.
local mast = model:object(ring(paint, -70, 24, 0.15, 0, 0.15, 9, 8, true))
local function sock(x2, z2)
  local faces = {}
  for i = 0, 7 do
    local a, b = 2 * math.pi * i / 8, 2 * math.pi * (i + 1) / 8
    local function at(angle, r, x, z) return {x, 24 + r * math.cos(angle), z + r * math.sin(angle)} end
    faces[#faces + 1] = model:polygon(i % 2 == 0 and red or paint,
      {at(a, 0.7, -69.8, 8.6), at(b, 0.7, -69.8, 8.6), at(b, 0.4, x2, z2), at(a, 0.4, x2, z2)}, {bothSides = true})
  end
  return model:object(faces)
end
model:add(model:group("windSock", {mast, model:switch(1, {sock(-65, 8.2), sock(-68.8, 5.2)})}))

model:add(model:group("terminal", {model:object(joined(box(concrete, asphalt, -52, 20, -36, 36, 0, 6),
  box(glass, steel, -50, 22, -38, 34, 6, 9)))}))

-- ---- Nalt takes over ------------------------------------------------------------------------------------------------

local path = folder .. "/example.flt"
model:write(path)
assert(nalt.openModel(path), "the example could not be opened")
assert(nalt.saveModel(), "the example could not be saved")
assert(nalt.saveModelAs(folder .. "/example-15.7.flt", 1570), "the example could not be saved as 15.7")
nalt.closeModel()
print("Wrote " .. path .. " and " .. folder .. "/example-15.7.flt.")
