-- Making, saving, opening and closing models.

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
