-- The palette entries that tools work with.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")

local palettes = {"Texture", "Material", "TextureMapping", "LightPointAppearance", "LightPointAnimation", "Shader"}

-- ---- a model without entries ----------------------------------------------------------------------------------------

world.writePalettes("none.flt", {})
assert(nalt.openModel("none.flt"))
for _, palette in ipairs(palettes) do
  local set, get = nalt["setCurrent" .. palette .. "Index"], nalt["getCurrent" .. palette .. "Index"]
  check.results("number:-1", get())
  for _, index in ipairs{0, 1, -2, 1000, 1e9} do
    check.results("", set(index))
    check.results("number:-1", get())
  end
  check.results("", set(-1))
  check.results("number:-1", get())
end

-- ---- a model with some ----------------------------------------------------------------------------------------------

world.writePalettes("palettes.flt", {3, 5})
assert(nalt.openModel("palettes.flt"))
for _, palette in ipairs(palettes) do
  local set, get = nalt["setCurrent" .. palette .. "Index"], nalt["getCurrent" .. palette .. "Index"]
  check.results("number:-1", get())
  check.results("", set(5))
  check.results("number:5", get())
  check.results("", set(4))
  check.results("number:5", get())
  check.results("", set("3"))
  check.results("number:3", get())
  check.results("", set(5.99))
  check.results("number:5", get())
  check.results("", set(-1))
  check.results("number:-1", get())
  set(3)
end
-- Each model has its own.
assert(nalt.setCurrentModel("none.flt"))
for _, palette in ipairs(palettes) do check.results("number:-1", nalt["getCurrent" .. palette .. "Index"]()) end
assert(nalt.setCurrentModel("palettes.flt"))
for _, palette in ipairs(palettes) do check.results("number:3", nalt["getCurrent" .. palette .. "Index"]()) end
-- Choosing an entry is no edit of the document.
check.results("boolean:false", nalt.isModelUnsaved())

-- ---- colors of an indexed model -------------------------------------------------------------------------------------

assert(nalt.newModel("new.flt"))
check.results("number:0", nalt.getCurrentColorIndex())
check.results("number:127", nalt.getCurrentColorIntensity())
for value, expected in pairs{[0] = 0, [1] = 1, [1023] = 1023, [1024] = 1023, [1e9] = 1023, [-1] = -1, [-2] = -1} do
  check.results("", nalt.setCurrentColorIndex(value))
  check.results("number:" .. expected, nalt.getCurrentColorIndex())
end
for value, expected in pairs{[0] = 0, [64] = 64, [127] = 127, [128] = 127, [1e9] = 127, [-1] = 0, [-1e9] = 0} do
  check.results("", nalt.setCurrentColorIntensity(value))
  check.results("number:" .. expected, nalt.getCurrentColorIntensity())
end
check.results("number:-1", nalt.getCurrentColorRGB())
check.results("", nalt.setCurrentColorRGB(1, 2, 3))
check.results("number:-1", nalt.getCurrentColorRGB())

-- ---- colors of an RGB model -----------------------------------------------------------------------------------------

-- The switch is a bit of the header's flags.
local content = check.read("palettes.flt")
local flags = content:byte(65)
check.write("rgb.flt", content:sub(1, 64) .. string.char(bit32.bor(flags, 0x40)) .. content:sub(66))
assert(nalt.openModel("rgb.flt"))
check.results("number:255 number:255 number:255", nalt.getCurrentColorRGB())
check.results("", nalt.setCurrentColorRGB(1, 20, 255))
check.results("number:1 number:20 number:255", nalt.getCurrentColorRGB())
nalt.setCurrentColorRGB(-1, 256, 1e9)
check.results("number:0 number:255 number:255", nalt.getCurrentColorRGB())
nalt.setCurrentColorRGB(1.9, 2.9, 3.9)
check.results("number:1 number:2 number:3", nalt.getCurrentColorRGB())
nalt.setCurrentColorIndex(7)
check.results("number:0", nalt.getCurrentColorIndex())
nalt.setCurrentColorIntensity(7)
check.results("number:7", nalt.getCurrentColorIntensity())
check.results("boolean:false", nalt.isModelUnsaved())
