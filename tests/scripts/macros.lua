-- Scripts that run other scripts. The messages are in macros.expected.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")

-- ---- parameters are globals of the macro ----------------------------------------------------------------------------

check.write("tell.lua", [[
print(size, on, word, text, NALT_PATH_TO_SCRIPT, arg)
print(type(size), type(on), type(word), type(text))
left = "behind"
]])
check.section("no parameters")
check.results("boolean:true", nalt.executeMacro("tell.lua"))
check.section("one of each type")
check.results("boolean:true", nalt.executeMacro("tell.lua", "size", 2.5, "on", false, "word", "7", "text", "a b"))
check.section("the last of several of one name")
nalt.executeMacro("tell.lua", "size", 1, "size", 2, "size", "three")
assert(left == nil and size == nil)
-- A parameter may hide what a script finds, in the macro only.
check.write("hidden.lua", "assert(nalt == 'mine' and print == true)")
check.results("boolean:true", nalt.executeMacro("hidden.lua", "nalt", "mine", "print", true))
assert(type(nalt) == "table")

-- ---- paths ----------------------------------------------------------------------------------------------------------

os.execute("mkdir sub 'Über uns'")
check.write("sub/path.lua", "print(NALT_PATH_TO_SCRIPT)")
check.write("Über uns/path.lua", "print(NALT_PATH_TO_SCRIPT)")
check.section("folders of macros")
nalt.executeMacro("sub/path.lua")
nalt.executeMacro("sub\\path.lua")
nalt.executeMacro(arg[1] .. "sub/path.lua")
nalt.executeMacro("Über uns/path.lua")
-- The path of the script that goes on is still its own.
assert(NALT_PATH_TO_SCRIPT == arg[0]:match(".*/"))

-- ---- models ---------------------------------------------------------------------------------------------------------

check.write("models.lua", [[
assert(nalt.getCurrentModelFilename() == "one.flt")
nalt.selectAll("HEADER")
nalt.setTolerance(0.5)
assert(nalt.newModel("two.flt"))
]])
assert(nalt.newModel("one.flt"))
check.results("boolean:true", nalt.executeMacro("models.lua"))
check.results("string:two.flt", nalt.getCurrentModelFilename())
check.results("number:0.5", nalt.getTolerance())
check.results("boolean:true", nalt.setCurrentModel("one.flt"))
check.results("number:1", nalt.getNumSelectedPrimitives("HEADER"))
check.results("boolean:false", nalt.newModel("two.flt"))
check.write("close.lua", "nalt.closeAllModels()")
check.results("boolean:true", nalt.executeMacro("close.lua"))
check.results("string:", nalt.getCurrentModelFilename())
check.results("boolean:false", nalt.setCurrentModel("one.flt"))

-- ---- macros that fail -----------------------------------------------------------------------------------------------

check.section("errors")
check.write("fail.lua", "nalt.newModel('kept.flt') error('too bad')")
check.fails("fail.lua:1: too bad", nalt.executeMacro, "fail.lua")
-- Nothing is taken back in a run with no window.
check.results("string:kept.flt", nalt.getCurrentModelFilename())
check.write("table.lua", "error({})")
check.fails("UNDEFINED ERROR MESSAGE", nalt.executeMacro, "table.lua")
check.write("empty.lua", "error('', 0)")
check.fails("Macro empty.lua failed.", nalt.executeMacro, "empty.lua")
check.fails("Macro empty.lua failed.", nalt.executeMacro, arg[1] .. "empty.lua")
check.write("syntax.lua", "if then")
check.fails("syntax.lua:1: unexpected symbol near 'then'", nalt.executeMacro, "syntax.lua")
check.fails("cannot open missing.lua: No such file or directory", nalt.executeMacro, "missing.lua")
check.fails("cannot read sub: Is a directory", nalt.executeMacro, "sub")

-- ---- macros in macros -----------------------------------------------------------------------------------------------

check.section("nested")
check.write("deep.lua", [[
print(level)
if level < 5 then nalt.executeMacro("deep.lua", "level", level + 1) end
print(level)
]])
nalt.executeMacro("deep.lua", "level", 1)
-- An error goes through all of them, unless one catches it.
check.section("an error from within")
check.write("inner.lua", "error('inside', 0)")
check.write("outer.lua", "nalt.executeMacro('inner.lua')")
check.fails("outer.lua:1: inside", nalt.executeMacro, "outer.lua")
check.write("catch.lua", "assert(not pcall(nalt.executeMacro, 'inner.lua'))")
check.results("boolean:true", nalt.executeMacro("catch.lua"))
-- From a function of traverse.
check.section("while traversing")
check.write("say.lua", "print(kind, nalt.getTotalNumSelectedPrimitives())")
nalt.selectAll("HEADER")
nalt.traverse(function(kind) nalt.executeMacro("say.lua", "kind", kind) end, nil)
nalt.selectAll("HEADER")
check.fails("Current model changed, traversal has been terminated.", nalt.traverse,
  function() nalt.executeMacro("close.lua") end, nil)
