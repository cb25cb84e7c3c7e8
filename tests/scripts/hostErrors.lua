-- How a run ends: what stands on standard output and standard error, and the exit status.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local here = arg[1]

local function ends(expected, text, name)
  name = name or "script.lua"
  if text then check.write(name, text) end
  local out, err, status = check.run("", name)
  check.same(expected.status or 255, status)
  check.same(expected.out or "", out)
  local failed = "FAILED TO EXECUTE " .. here .. name .. ".\n"
  check.same(expected.err and failed .. expected.err .. "\n" or "", err)
end
local executed = "Executed " .. here .. "script.lua.\n"

-- ---- scripts that succeed -------------------------------------------------------------------------------------------

ends({status = 0, out = executed}, "")
ends({status = 0, out = executed}, "return")
ends({status = 0, out = executed}, "return false, 'results are discarded'")
ends({status = 0, out = executed}, "#!/usr/bin/env lua\nassert(true)")
ends({status = 0, out = executed}, "\239\187\191assert(true)")
ends({status = 0, out = "a\n" .. executed}, "print('a')\r\nassert(true)\r\n")
ends({status = 0, out = executed}, string.dump(load("assert(nalt.getVersion() == 2.9)")))
ends({status = 0, out = "Executed " .. here .. "mit Leerzeichen und Ümläuten.LUA.\n"}, "", "mit Leerzeichen und Ümläuten.LUA")
-- What a script leaves behind is closed with it.
ends({status = 0, out = "closed\n" .. executed}, "setmetatable({}, {__gc = function() print('closed') end})")
ends({status = 0, out = executed}, "setmetatable({}, {__gc = function() error('unheard') end})")
ends({status = 0, out = executed}, "kept = coroutine.create(function() coroutine.yield() end) coroutine.resume(kept)")
ends({status = 0, out = executed}, "assert(nalt.newModel('a.flt')) -- nobody closes it")

-- ---- scripts that fail ----------------------------------------------------------------------------------------------

ends({err = "script.lua:1: syntax error near <eof>"}, "nonsense")
ends({err = "script.lua:2: unexpected symbol near 'then'"}, "print('never')\nif then")
ends({err = "script.lua:1: unfinished string near <eof>"}, "print('open")
ends({out = "before\n", err = "script.lua:1: too bad"}, "print('before') error('too bad')")
ends({err = "too bad"}, "error('too bad', 0)")
ends({err = "two\nlines"}, "error('two\\nlines', 0)")
ends({err = ""}, "error('', 0)")
ends({err = "7"}, "error(7, 0)")
for _, value in ipairs{"{}", "nil", "true", "print", "setmetatable({}, {__tostring = function() return 'a' end})"} do
  ends({err = "UNDEFINED ERROR MESSAGE"}, "error(" .. value .. ")")
end
ends({err = "script.lua:1: attempt to index global 'nothing' (a nil value)"}, "nothing.here()")
ends({err = "script.lua:1: bad argument #1 to 'openModel' (string expected, got no value)"},
  "nalt.newModel('a.flt') nalt.openModel()")
ends({err = "script.lua:2: Invalid selection mode."}, "nalt.newModel('a.flt')\nnalt.selectAll('FACE')")
ends({err = "attempt to yield from outside a coroutine"}, "coroutine.yield()")
check.write("broken.lua", "if")
ends({err = "error loading module 'broken' from file './broken.lua':\n" ..
  "\t./broken.lua:1: unexpected symbol near <eof>"}, "require('broken')")

-- A script that isn't there, or is none.
ends({err = "cannot open missing.lua: No such file or directory"}, nil, "missing.lua")
os.execute("mkdir folder.lua")
ends({err = "cannot read folder.lua: Is a directory"}, nil, "folder.lua")
ends({err = "script.lua: version mismatch in precompiled chunk"}, "\27Luanonsense that is long enough")

-- Too deep, too much: an error and not a crash.
local function endsLike(pattern, text)
  check.write("script.lua", text)
  local out, err, status = check.run("", "script.lua")
  check.same(255, status)
  assert(err:find("FAILED TO EXECUTE " .. here .. "script.lua.\n", 1, true) == 1 and err:find(pattern), err)
  return out
end
endsLike("script.lua:1: stack overflow", "local function deep() return 1 + deep() end deep()")
endsLike("C stack overflow", "local function deep() return table.concat{string.gsub('a', 'a', deep)} end deep()")
endsLike("error in error handling", "xpcall(error, function() error('again') end) error('error in error handling')")
endsLike("not enough memory", "string.rep('a', 2^20):rep(2^31 - 1)")
check.write("macro.lua", "nalt.executeMacro('macro.lua')")
local _, warnings = endsLike("Macros call each other too deep%.", "nalt.executeMacro('macro.lua')"):gsub("WARNING: ", "")
check.same(99, warnings)

-- ---- scripts that end the program -----------------------------------------------------------------------------------

-- Nothing says then how it went.
ends({status = 0, out = "a\n"}, "print('a') os.exit(0) print('b')")
ends({status = 0, out = "a\n"}, "print('a') os.exit() print('b')")
ends({status = 3, out = "a\n"}, "nalt.newModel('a.flt') print('a') os.exit(3)")
ends({status = 1, out = "a\n"}, "print('a') os.exit(false, true)")
ends({status = 0, out = "a\nclosed\n"}, "kept = setmetatable({}, {__gc = function() print('closed') end})\n" ..
  "nalt.newModel('a.flt') print('a') os.exit(true, true)")
ends({status = 5, out = ""}, "nalt.newModel('a.flt') nalt.selectAll('HEADER')\n" ..
  "nalt.traverse(function() os.exit(5) end, nil)")

-- ---- errors that the script catches ---------------------------------------------------------------------------------

ends({status = 0, out = "false Invalid selection mode.\n" .. executed},
  "nalt.newModel('a.flt') print(pcall(nalt.selectAll, 'FACE'))")
-- Thousands of them leave nothing behind.
ends({status = 0, out = executed}, "nalt.newModel('a.flt')\n" ..
  "for i = 1, 20000 do assert(not pcall(nalt.selectAll, 'FACE')) assert(not pcall(nalt.createPolygon, i)) end\n" ..
  "assert(nalt.getCurrentModelFilename() == 'a.flt')")
