-- Making, saving, opening and closing models. The messages are in models.expected.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")

local work = arg[1]

local function content(name)
  local file = io.open(name, "rb")
  if not file then return nil end
  local text = file:read("*a")
  file:close()
  return text
end

-- The format version stands big-endian at byte 16 of the file, behind the name in the header.
local function versionOf(name)
  local a, b, c, d = content(name):byte(13, 16)
  return ((a * 256 + b) * 256 + c) * 256 + d
end

assert(nalt.newModel("first.flt"))
assert(nalt.getCurrentModelFilename() == "first.flt")
assert(not nalt.isModelUnsaved())
assert(not nalt.newModel("first.flt"))

assert(nalt.saveModel())
assert(versionOf("first.flt") == 1620)
assert(nalt.saveModel(1570))
assert(versionOf("first.flt") == 1570)
assert(nalt.saveModel(99))
assert(versionOf("first.flt") == 1570)

-- The model follows its new name; relative, absolute and with backslashes are ways to write one.
assert(nalt.saveModelAs(work .. "second"))
assert(nalt.getCurrentModelFilename() == work .. "second.flt")
assert(versionOf(work .. "second.flt") == 1620)
assert(not nalt.setCurrentModel("first.flt"))

assert(nalt.openModel("first.flt"))
assert(nalt.getCurrentModelFilename() == "first.flt")
assert(nalt.setCurrentModel((work .. "second.flt"):gsub("/", "\\")))
assert(nalt.getCurrentModelFilename() == work .. "second.flt")
assert(nalt.openModel("first.flt"), "open already")

assert(not nalt.openModel("missing.flt"))
assert(nalt.getCurrentModelFilename() == "first.flt")
assert(not nalt.saveModelAs("no such folder/a.flt"))
assert(nalt.getCurrentModelFilename() == "first.flt")
assert(not nalt.saveModelAs(work .. "second.flt"))

assert(nalt.saveAllModels())
assert(nalt.getCurrentModelFilename() == "first.flt")

assert(select("#", nalt.closeModel()) == 0)
assert(nalt.getCurrentModelFilename() == work .. "second.flt")
nalt.closeAllModels()
assert(nalt.getCurrentModelFilename() == "")
assert(nalt.newModel("first.flt"), "a closed name is free again")
nalt.closeAllModels()

-- ---- versions -------------------------------------------------------------------------------------------------------

check.section("versions")
assert(nalt.newModel("versions.flt"))
for _, pair in ipairs{{1570, 1570}, {1580, 1580}, {1600, 1600}, {1610, 1610}, {1620, 1620}, {1569, 1570}, {0, 1570},
    {-1e9, 1570}, {1621, 1620}, {1e9, 1620}, {1580.9, 1580}} do
  check.results("boolean:true", nalt.saveModelAs("v.flt", pair[1]))
  check.same(pair[2], versionOf("v.flt"))
end
check.results("boolean:true", nalt.saveModelAs("old", 1570))
-- The next save is of the latest version again.
check.results("boolean:true", nalt.saveModel())
check.same(1620, versionOf("old.flt"))
nalt.closeAllModels()

-- ---- changes --------------------------------------------------------------------------------------------------------

world.open()
check.results("boolean:false", nalt.isModelUnsaved())
nalt.selectAll("OBJECT")
check.results("boolean:false", nalt.isModelUnsaved())
nalt.delete()
check.results("boolean:true", nalt.isModelUnsaved())
check.results("boolean:true", nalt.saveModelAs("changed.flt"))
check.results("boolean:false", nalt.isModelUnsaved())
nalt.selectAll("GROUP")
nalt.delete()
check.results("boolean:true", nalt.isModelUnsaved())
check.results("boolean:true", nalt.revertModel())
check.results("boolean:false", nalt.isModelUnsaved())
check.results("string:changed.flt", nalt.getCurrentModelFilename())
check.results("boolean:true", nalt.selectAll("GROUP"))
check.results("boolean:false", nalt.selectAll("OBJECT"))
check.results("boolean:true", nalt.setCurrentModel("changed.flt"))

check.section("nothing to revert to")
assert(nalt.newModel("nowhere.flt"))
check.results("boolean:false", nalt.revertModel())
check.results("string:nowhere.flt", nalt.getCurrentModelFilename())
nalt.closeAllModels()

-- ---- several --------------------------------------------------------------------------------------------------------

-- The next model is current after a close: the one behind it, or the last.
for _, name in ipairs{"a.flt", "b.flt", "c.flt"} do assert(nalt.newModel(name)) end
check.results("string:c.flt", nalt.getCurrentModelFilename())
check.results("boolean:true", nalt.setCurrentModel("a.flt"))
nalt.closeModel()
check.results("string:b.flt", nalt.getCurrentModelFilename())
nalt.setCurrentModel("c.flt")
nalt.closeModel()
check.results("string:b.flt", nalt.getCurrentModelFilename())

-- Each model has a selection of its own.
assert(nalt.newModel("a.flt"))
nalt.selectAll("HEADER")
assert(nalt.setCurrentModel("b.flt"))
check.results("number:0", nalt.getTotalNumSelectedPrimitives())
assert(nalt.setCurrentModel("a.flt"))
check.results("number:1", nalt.getTotalNumSelectedPrimitives())

-- All are saved, in the latest version, and the current one stays.
check.results("boolean:true", nalt.saveAllModels())
check.results("string:a.flt", nalt.getCurrentModelFilename())
assert(versionOf("a.flt") == 1620 and versionOf("b.flt") == 1620)
check.section("one of them can't be saved")
assert(nalt.newModel("no such folder/x.flt"))
assert(os.remove("a.flt") and os.remove("b.flt"))
check.results("boolean:false", nalt.saveAllModels())
assert(versionOf("a.flt") == 1620 and versionOf("b.flt") == 1620)
check.results("string:no such folder/x.flt", nalt.getCurrentModelFilename())

check.section("refusals")
check.results("boolean:false", nalt.newModel("a.flt"))
check.results("boolean:false", nalt.newModel("no such folder\\x.flt"))
check.results("boolean:false", nalt.saveModelAs("a"))
check.results("boolean:false", nalt.setCurrentModel("c.flt"))
check.results("boolean:false", nalt.setCurrentModel(""))
check.results("string:no such folder/x.flt", nalt.getCurrentModelFilename())

check.results("", nalt.closeAllModels())
check.results("string:", nalt.getCurrentModelFilename())
check.results("boolean:false", nalt.setCurrentModel("a.flt"))

-- Two saves of one model are equal byte for byte.
world.open()
assert(nalt.saveModelAs("x.flt") and nalt.saveModelAs("y.flt"))
assert(check.read("x.flt") == check.read("y.flt"))
