-- Every function refuses wrong arguments at every position, with the error that Lua itself or the function words, and
-- does nothing then.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local signatures = require("signatures")

assert(nalt.newModel("model.flt"))

-- ---- each argument that has a place of its own ----------------------------------------------------------------------

local expectations = {s = "string", e = "string", i = "number", n = "number"}
local good = {s = "x", i = 1, n = 1, b = true, f = print}

-- For an argument that is one of several texts, one of them.
local function choice(name, position)
  if name == "create" then return "GROUP" end
  if name == "addTransformationMatrix" then return "TRANSLATE" end
  if name == "mapTexture" then return "THREEPOINT" end
  if name == "setShaderType" then return "Cg" end
  if name == "reportDifferences" then return "FILE" end
  if name == "move" or name == "rotate" or name == "scale" then
    local weightMode = {move = 9, rotate = 9, scale = 7}
    return position == weightMode[name] and "WEIGHT_PER_VERTEX" or "LINEAR"
  end
  return "POLYGON"
end

local function goodArguments(signature, count)
  local list = {}
  for i = 1, count do
    local kind = signature.arguments[i].kind
    list[i] = kind == "e" and choice(signature.name, i) or good[kind]
  end
  return list
end

-- Whatever is no text and no number, and how Lua calls it.
local others = {{nil, "nil"}, {true, "boolean"}, {{}, "table"}, {print, "function"}, {coroutine.create(print), "thread"}}

local checks = 0
local function refuses(signature, position, value, found)
  local kind = expectations[signature.arguments[position].kind]
  local list = goodArguments(signature, position - 1)
  list[position] = value
  check.fails("bad argument #" .. position .. " to '?' (" .. kind .. " expected, got " .. found .. ")",
    nalt[signature.name], table.unpack(list, 1, position))
  checks = checks + 1
end

for _, signature in ipairs(signatures) do
  for position, argument in ipairs(signature.arguments) do
    local before = goodArguments(signature, position - 1)
    -- With the number of arguments as the first test, too few of them is another error; see below.
    local countsFirst = signature.more or signature.name == "traverse"
    if argument.kind == "b" then
      if not argument.optional and not countsFirst then
        check.fails("bad argument #" .. position .. " to '?' (value expected)", nalt[signature.name],
          table.unpack(before))
        checks = checks + 1
      end
    elseif argument.kind ~= "f" and not countsFirst then
      if not argument.optional then
        check.fails("bad argument #" .. position .. " to '?' (" .. expectations[argument.kind] ..
          " expected, got no value)", nalt[signature.name], table.unpack(before))
        checks = checks + 1
      end
      for _, other in ipairs(others) do
        -- In the other order of move a boolean may stand where the radius stands.
        local reordered = signature.name == "move" and position == 7 and other[2] == "boolean"
        if not reordered then refuses(signature, position, other[1], other[2]) end
      end
      if argument.kind == "i" or argument.kind == "n" then
        refuses(signature, position, "abc", "string")
        refuses(signature, position, "", "string")
      end
    end
  end
end
assert(checks > 900, checks)

-- ---- texts of which there are only some -----------------------------------------------------------------------------

for _, name in ipairs{"selectAll", "invertSelection", "getNumSelectedPrimitives", "convertSelection"} do
  for _, text in ipairs{"", "POLYGONS", "UNSUPPORTED", "FACE", " POLYGON", "polygon\0", 7} do
    if text ~= "polygon\0" then check.fails("Invalid selection mode.", nalt[name], text) end
  end
end
for _, text in ipairs{"EDGE", "HEADER", "", "x"} do
  check.fails("Invalid selection mode for selecting by attributes.", nalt.selectByAttributes, text, "Name = a")
end
for _, text in ipairs{"POLYGON", "VERTEX", "HEADER", "EXTERNAL", "", "x"} do
  check.fails("Invalid selection mode for creation.", nalt.create, text)
end
check.fails("Transformation matrix type unsupported for adding.", nalt.addTransformationMatrix, "SHEAR", 1, 2, 3)
check.fails("Invalid texture mapping type.", nalt.mapTexture, "PLANAR", 0, true)
check.fails("Invalid shader type.", nalt.setShaderType, 0, "HLSL")
check.fails("Invalid differences source type.", nalt.reportDifferences, "MODEL")
for _, name in ipairs{"move", "rotate", "scale"} do
  local list = name == "rotate" and {1, 1, 1, 1, false, true, 10} or name == "move" and {1, 1, 1, false, false, true, 10} or
    {1, 1, 1, true, 10}
  list[#list + 1] = "CUBIC"
  check.fails("Invalid weight function.", nalt[name], table.unpack(list))
  list[#list] = "cube"
  list[#list + 1] = "PER_VERTEX"
  check.fails("Invalid weight mode.", nalt[name], table.unpack(list))
end

-- ---- layers ---------------------------------------------------------------------------------------------------------

for _, layer in ipairs{-1, 8, 1e9, 0/0, 1/0} do
  local text = "Invalid texture mapping layer index."
  check.fails(text, nalt.mapTexture, "THREEPOINT", layer, true)
  check.fails(text, nalt.moveTextureMap, 1, 2, 3, layer)
  check.fails(text, nalt.rotateTextureMap, 1, 0, 0, 1, layer)
  check.fails(text, nalt.scaleTextureMap, 1, 2, 3, layer)
  check.fails(text, nalt.modifyUV, layer, "p1/V0", 0, 0)
end

-- ---- numbers of arguments -------------------------------------------------------------------------------------------

check.fails("Invalid number of arguments to traverse.", nalt.traverse)
check.fails("Invalid number of arguments to traverse.", nalt.traverse, print)
check.fails("Invalid number of arguments to traverse.", nalt.traverse, print, print, nil)
check.fails("At least one of the pre/post-callbacks has to be valid.", nalt.traverse, nil, nil)
check.fails("At least one of the pre/post-callbacks has to be valid.", nalt.traverse, "print", {})

for _, count in ipairs{0, 1, 2, 4, 5, 7, 100} do
  local numbers = {}
  for i = 1, count do numbers[i] = i end
  check.fails("Incorrect number of arguments for creating polygon.", nalt.createPolygon, table.unpack(numbers))
  check.fails("Incorrect number of arguments for creating light point.", nalt.createLightPoint, true,
    table.unpack(numbers))
end
check.fails("Incorrect number of arguments for creating light point.", nalt.createLightPoint)
check.fails("Incorrect argument for creating polygon.", nalt.createPolygon, 1, 2, "x")
check.fails("Incorrect argument for creating polygon.", nalt.createPolygon, nil, 2, 3)
check.fails("Incorrect argument for creating light point.", nalt.createLightPoint, false, 1, {}, 3)

for _, count in ipairs{1, 3, 4, 6} do
  local values = {true}
  for i = 2, count do values[i] = 1 end
  check.fails("Invalid number of extrude parameters.", nalt.extrude, table.unpack(values))
end
check.fails("Invalid number of mapTexture parameters.", nalt.mapTexture, "THREEPOINT", 0, true)
check.fails("Invalid number of modifyUV parameters.", nalt.modifyUV, 0)
check.fails("Invalid number of modifyUV parameters.", nalt.modifyUV, 0, "p1/V0", 1)
check.fails("Invalid number of createExternals parameters.", nalt.createExternals)

for _, name in ipairs{"applyAttributes", "setAttributes"} do
  check.fails("Invalid number of applyAttributes parameters.", nalt[name])
  check.fails("Invalid number of applyAttributes parameters.", nalt[name], "Name")
  check.fails("Parameter 2 to applyAttributes for Name is of invalid type.", nalt[name], "Name", {})
  check.fails("Parameter 4 to applyAttributes for b is of invalid type.", nalt[name], "a", 1, "b", nil)
end
for _, kind in ipairs{"Texture", "LightPointAppearance", "LightPointAnimation"} do
  local get, apply, set = "get" .. kind .. "Attributes", "apply" .. kind .. "Attributes", "set" .. kind .. "Attributes"
  check.fails("Invalid number of " .. get .. " parameters.", nalt[get], 0)
  for _, name in ipairs{apply, set} do
    check.fails("Invalid number of " .. apply .. " parameters.", nalt[name], 0)
    check.fails("Invalid number of " .. apply .. " parameters.", nalt[name], 0, "a")
    check.fails("Parameter 3 to " .. apply .. " for a is of invalid type.", nalt[name], 0, "a", print)
  end
end
check.fails("Invalid number of getAttributes parameters.", nalt.getAttributes)
check.fails("Invalid number of reportStatistics parameters.", nalt.reportStatistics)
check.fails("Invalid number of parameters to executeMacro.", nalt.executeMacro)
check.fails("Invalid number of parameters to executeMacro.", nalt.executeMacro, "a.lua", "b")
check.fails("Invalid parameter type to executeMacro.", nalt.executeMacro, "a.lua", "b", {})
check.fails("Invalid parameter type to executeMacro.", nalt.executeMacro, "a.lua", "b", nil)

local wrong = "Invalid parameters to selectByName."
check.fails(wrong, nalt.selectByName)
check.fails(wrong, nalt.selectByName, true)
check.fails(wrong, nalt.selectByName, true, true)
check.fails(wrong, nalt.selectByName, "a", true, true, true)
check.fails(wrong, nalt.selectByName, "a", true, "b")
check.fails(wrong, nalt.selectByName, "a", true, "b", true)
check.fails(wrong, nalt.selectByName, "a", nil)
check.fails(wrong, nalt.selectByName, nil)
check.fails(wrong, nalt.selectByName, 7)
check.fails(wrong, nalt.selectByName, "a", print)
check.fails(wrong, nalt.selectByName, {"a", 7})
check.fails(wrong, nalt.selectByName, {"a", {}}, true)

-- ---- what is no error -----------------------------------------------------------------------------------------------

-- More arguments than are taken.
check.results("number:2.9", nalt.getVersion(1, "a", {}))
check.results("number:0", nalt.getTotalNumSelectedPrimitives("a"))
check.results("boolean:false", nalt.selectAll("POLYGON", "a", {}))
-- A number where a text is taken and a text where a number is taken, as everywhere in Lua.
check.results("boolean:false", nalt.setCurrentModel(7))
check.results("boolean:false", nalt.selectByNumberOfVertices("3", "yes"))
check.results("boolean:false", nalt.selectVerticesByLocation("1.5", " 2 "))
-- nil where a boolean may be left out.
check.results("boolean:false", nalt.selectByNumberOfVertices(3, nil))
-- Numbers that no index and no coordinate has.
for _, number in ipairs{0/0, 1/0, -1/0, 1e300, -1e300, 2^53, 1e-300} do
  check.results("boolean:false", nalt.selectByNumberOfVertices(number))
  check.results("boolean:false", nalt.selectVerticesByLocation(number, number))
  check.results("", nalt.setCurrentTextureIndex(number))
  check.results("number:-1", nalt.getCurrentTextureIndex())
end
-- Integers are cut off toward zero.
nalt.setCurrentColorIndex(5.9)
check.results("number:5", nalt.getCurrentColorIndex())
nalt.setCurrentColorIndex(-0.9)
check.results("number:0", nalt.getCurrentColorIndex())

-- None of all this did anything.
check.results("string:model.flt", nalt.getCurrentModelFilename())
check.results("boolean:false", nalt.isModelUnsaved())
