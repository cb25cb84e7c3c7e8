-- Files that can't be opened or saved, names of all kinds, and what is said about them. The messages are in
-- files.expected.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local world = require("world")
world.write()
local good = check.read("world.flt")

os.execute("mkdir folder.flt")
check.write("empty.flt", "")
check.write("text.flt", ("This is no model.\n"):rep(100))
check.write("short.flt", good:sub(1, 200))
check.write("cut.flt", good:sub(1, 5000))

-- ---- files that can't be opened -------------------------------------------------------------------------------------

for _, name in ipairs{"missing.flt", "no/such/folder.flt", "folder.flt", "empty.flt", "text.flt", "short.flt"} do
  check.section(name)
  check.results("boolean:false", nalt.openModel(name))
  check.results("string:", nalt.getCurrentModelFilename())
end
for _, name in ipairs{"world", "world.txt", "world.Flt", ".flt", "", 7} do
  check.section("not the name of a model: " .. name)
  check.results("boolean:false", nalt.openModel(name))
end
check.section("what is left of a damaged file is opened")
check.results("boolean:true", nalt.openModel("cut.flt"))
check.results("string:cut.flt", nalt.getCurrentModelFilename())
check.section("a failure leaves the current model")
check.results("boolean:false", nalt.openModel("missing.flt"))
check.results("string:cut.flt", nalt.getCurrentModelFilename())
nalt.closeModel()

-- ---- files that can't be saved --------------------------------------------------------------------------------------

assert(nalt.openModel("world.flt"))
nalt.selectAll("OBJECT")
nalt.delete()
for _, name in ipairs{"no/such/folder.flt", "folder.flt", "world.flt/inside.flt", ""} do
  check.section("save as " .. name)
  check.results("boolean:false", nalt.saveModelAs(name))
  check.results("string:world.flt", nalt.getCurrentModelFilename())
  check.results("boolean:true", nalt.isModelUnsaved())
end
check.section("a model whose folder is gone")
os.execute("mkdir gone")
assert(nalt.newModel("gone/a.flt"))
assert(nalt.saveModel())
os.remove("gone/a.flt")
os.remove("gone")
check.results("boolean:false", nalt.saveModel())
check.results("boolean:false", nalt.revertModel())
nalt.closeModel()
check.section("a model without a name")
assert(nalt.newModel(""))
check.results("boolean:false", nalt.saveModel())
check.results("boolean:true", nalt.saveModelAs("named"))
check.results("string:named.flt", nalt.getCurrentModelFilename())
nalt.closeModel()
-- A failed save leaves the file as it was.
check.same(good, check.read("world.flt"))
nalt.closeAllModels()

-- ---- names ----------------------------------------------------------------------------------------------------------

check.section("names of all kinds")
os.execute("mkdir sub 'mit Leerzeichen' 'Übung'")
for _, name in ipairs{"sub/a.flt", "sub\\b.flt", "sub\\\\c.flt", "./d.flt", "sub/../e.flt", "mit Leerzeichen/f g.flt",
    "Übung/日本語.flt", "Übung\\naïve.FLT", "a&b @x %s \"'.flt", "sub/.flt", ("n"):rep(200) .. ".flt"} do
  assert(nalt.newModel(name), name)
  local native = name:gsub("\\", "/")
  check.results("string:" .. native, nalt.getCurrentModelFilename())
  assert(nalt.saveModel(), name)
  assert(check.read(native), native)
  nalt.closeModel()
  if not name:find("/.flt", 1, true) then
    assert(nalt.openModel(name), name)
    assert(nalt.openModel(native), "open already: " .. name)
    check.results("boolean:true", nalt.setCurrentModel(name))
    nalt.closeModel()
  end
  check.results("string:", nalt.getCurrentModelFilename())
end

-- One file under two names is two models.
assert(nalt.openModel("world.flt"))
assert(nalt.openModel("./world.flt"))
check.results("boolean:true", nalt.setCurrentModel("world.flt"))
check.results("boolean:true", nalt.setCurrentModel("./world.flt"))
check.results("boolean:false", nalt.setCurrentModel(arg[1] .. "world.flt"))
assert(nalt.openModel(arg[1] .. "world.flt"))
nalt.closeAllModels()

-- A path with a thousand separators stays as it is.
local long = ("\\"):rep(1000) .. "a.flt"
assert(nalt.newModel(long))
check.results("string:" .. long, nalt.getCurrentModelFilename())
local almost = ("\\"):rep(999) .. "a.flt"
assert(nalt.newModel(almost))
check.results("string:" .. ("/"):rep(999) .. "a.flt", nalt.getCurrentModelFilename())
nalt.closeAllModels()

-- The extension is added where it is missing, and only then.
assert(nalt.newModel("x.flt"))
for name, path in pairs{plain = "plain.flt", ["dot."] = "dot..flt", ["small.flt"] = "small.flt", ["BIG.FLT"] = "BIG.FLT",
    ["Mixed.Flt"] = "Mixed.Flt.flt", ["a.txt"] = "a.txt.flt", ["sub\\back"] = "sub/back.flt"} do
  assert(nalt.saveModelAs(name))
  check.results("string:" .. path, nalt.getCurrentModelFilename())
  assert(check.read(path), path)
end
-- No question is asked before a file is overwritten.
check.write("there.flt", "something else")
assert(nalt.saveModelAs("there.flt"))
assert(#check.read("there.flt") > 100)

-- Files keep their mode, and a link goes on leading to the file.
os.execute("chmod 640 there.flt && ln -s there.flt link.flt")
assert(nalt.saveModelAs("link.flt"))
check.same(0, select(3, os.execute("test -L link.flt && test $(stat -c %a there.flt) = 640")))
-- Nothing else is left in the folder.
check.same(0, select(3, os.execute("test -z \"$(ls -A | grep -iv -e flt -e sub -e Leerzeichen -e bung -e run)\"")))
