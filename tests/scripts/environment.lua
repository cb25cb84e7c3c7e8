-- Environment variables and relative paths, seen by running the program once more.

local program = arg[-1]

local function write(name, text)
  local file = assert(io.open(name, "wb"))
  file:write(text)
  file:close()
end

local function read(name)
  local file = assert(io.open(name, "rb"))
  local text = file:read("*a")
  file:close()
  return text
end

local here = arg[1]

-- What a script prints on both outputs, and its exit status.
local function run(variables, script)
  local _, _, status = os.execute(variables .. " '" .. program .. "' " .. script .. " >" .. here .. "out 2>&1")
  return read("out"), status
end

local function check(found, expected)
  if found ~= expected then error("'" .. found .. "' is not '" .. expected .. "'", 2) end
end

write("plain.lua", "print('a') print(arg[0], NALT_PATH_TO_SCRIPT)")

-- Two spellings of the extension; the path that the script sees stays as it was given.
check(run("", "plain.lua"), "a\nplain.lua \nExecuted " .. here .. "plain.lua.\n")
check(run("", here .. "plain.lua"), "a\n" .. here .. "plain.lua " .. here .. "\nExecuted " .. here .. "plain.lua.\n")
write("BIG.LUA", "print('big')")
check(run("", "BIG.LUA"), "big\nExecuted " .. here .. "BIG.LUA.\n")

os.execute("mkdir sub")
write("sub/inner.lua", "print(NALT_PATH_TO_SCRIPT)")
check(run("", "sub/inner.lua"), "sub/sub/\nExecuted " .. here .. "sub/inner.lua.\n")
check(run("", "'sub\\inner.lua'"), "sub/sub/\nExecuted " .. here .. "sub/inner.lua.\n")
check(run("cd sub;", "../sub/inner.lua"), "../sub/\nExecuted " .. here .. "sub/inner.lua.\n")

-- Line ends.
check(run("NALT_NO_LINE_FEED=on", "BIG.LUA"), "bigExecuted " .. here .. "BIG.LUA.\n")
check(run("NALT_NO_LINE_FEED=1", "BIG.LUA"), "big\nExecuted " .. here .. "BIG.LUA.\n")

-- The log.
write("loud.lua", "print('said') nalt.newModel('a') nalt.newModel('a') error('too bad', 0)")
local found, status = run("NALT_LOG=log", "loud.lua")
check(found, "said\n\nWARNING: Can't create multiple models with the same filename a.\n\n" ..
  "FAILED TO EXECUTE " .. here .. "loud.lua.\ntoo bad\n")
assert(status == 255)
check(read("log"), "said\n\nWARNING: Can't create multiple models with the same filename a.\n\nERROR: too bad\n")

-- No key is waited for, whatever this says.
check(run("NALT_SCRIPT_CONFIRMATION=ON", "BIG.LUA </dev/null"), "big\nExecuted " .. here .. "BIG.LUA.\n")

-- A script that isn't there.
found, status = run("", "none.lua")
assert(found:find("FAILED TO EXECUTE " .. here .. "none.lua.\ncannot open none.lua", 1, true) == 1, found)
assert(status == 255)

-- Nothing of one run is left for the next.
write("leave.lua", "left = true")
write("look.lua", "assert(left == nil)")
assert(select(2, run("", "leave.lua")) == 0 and select(2, run("", "look.lua")) == 0)

-- ---- the log in full ------------------------------------------------------------------------------------------------

-- What is printed and what goes wrong is added to what was there, each with its line end.
write("log", "before\n")
write("say.lua", "print('one', 2) print() print('two\\nlines') error('the\\nend', 0)")
found, status = run("NALT_LOG=log", "say.lua")
check(found, "one 2\n\ntwo\nlines\nFAILED TO EXECUTE " .. here .. "say.lua.\nthe\nend\n")
check(read("log"), "before\none 2\n\ntwo\nlines\nERROR: the\nend\n")
-- Without line ends neither has any; what the program itself says keeps them.
os.remove("log")
found = run("NALT_LOG=log NALT_NO_LINE_FEED=ON", "say.lua")
check(found, "one 2two\nlinesFAILED TO EXECUTE " .. here .. "say.lua.\nthe\nend\n")
check(read("log"), "one 2two\nlinesERROR: the\nend")
-- A good end and an error without text leave no line.
os.remove("log")
run("NALT_LOG=log", "leave.lua")
assert(io.open("log", "rb") == nil)
write("silent.lua", "error('', 0)")
found = run("NALT_LOG=log", "silent.lua")
check(found, "FAILED TO EXECUTE " .. here .. "silent.lua.\n\n")
assert(io.open("log", "rb") == nil)
-- A log that can't be written changes nothing else.
for _, log in ipairs{"no/such/folder/log", "sub", "/dev/full"} do
  check(run("NALT_LOG=" .. log, "BIG.LUA"), "big\nExecuted " .. here .. "BIG.LUA.\n")
end
check(run("NALT_LOG=", "BIG.LUA"), "big\nExecuted " .. here .. "BIG.LUA.\n")
-- Macros write to the same log.
write("macro.lua", "print('macro') error('in it', 0)")
write("outer.lua", "print('outer') print(pcall(nalt.executeMacro, 'macro.lua'))")
run("NALT_LOG=log", "outer.lua")
check(read("log"), "outer\nmacro\nERROR: in it\n\nWARNING: Failed to execute macro.lua.\nin it\n\nfalse in it\n")

-- ---- what counts as yes ---------------------------------------------------------------------------------------------

for value, lineEnds in pairs{ON = false, On = false, oN = false, OFF = true, ONE = true, [" ON"] = true, TRUE = true,
    [""] = true} do
  check(run("NALT_NO_LINE_FEED='" .. value .. "'", "BIG.LUA"),
    "big" .. (lineEnds and "\n" or "") .. "Executed " .. here .. "BIG.LUA.\n")
end
for _, value in ipairs{"OFF", "off", "ON", ""} do
  check(run("NALT_SCRIPT_CONFIRMATION='" .. value .. "'", "BIG.LUA"), "big\nExecuted " .. here .. "BIG.LUA.\n")
end

-- ---- arguments ------------------------------------------------------------------------------------------------------

write("arguments.lua", "for i = -1, #arg + 1 do print(i, arg[i]) end")
found = run("", "arguments.lua a 'b c' '' 'ä\\n' --help")
check(found, "-1 " .. program .. "\n0 arguments.lua\n1 a\n2 b c\n3 \n4 ä\\n\n5 --help\n6 <nil> \nExecuted " .. here ..
  "arguments.lua.\n")

-- ---- settings -------------------------------------------------------------------------------------------------------

-- A script finds the preferences of the user, and leaves them as they are.
write("settings.lua", "print(nalt.getTolerance()) nalt.setTolerance(0.5)")
os.execute("mkdir settings")
check(run("XDG_CONFIG_HOME=" .. here .. "settings", "settings.lua"), "0.0001\nExecuted " .. here .. "settings.lua.\n")
local path = "settings/Nalt/nalt.cfg"
local settings = read(path)
check(run("XDG_CONFIG_HOME=" .. here .. "settings", "settings.lua"), "0.0001\nExecuted " .. here .. "settings.lua.\n")
assert(read(path) == settings)
-- The tolerance is a big-endian double, the second thing in the preferences.
write(path, settings:sub(1, 4136) .. "\63\208\0\0\0\0\0\0" .. settings:sub(4145))
check(run("XDG_CONFIG_HOME=" .. here .. "settings", "settings.lua"), "0.25\nExecuted " .. here .. "settings.lua.\n")
-- Settings of a newer version: 2.5 instead of 2.4.
write(path, "\64\4\0\0\0\0\0\0" .. settings:sub(9))
check(run("XDG_CONFIG_HOME=" .. here .. "settings", "settings.lua"),
  "WARNING: Existing settings file is from a newer version, writing default settings.\n" ..
  "0.0001\nExecuted " .. here .. "settings.lua.\n")
assert(read(path):sub(1, 8) == settings:sub(1, 8))
-- The folder for them is made with what is missing above it; where it can't be, the defaults do.
check(run("XDG_CONFIG_HOME=" .. here .. "not/there/yet", "settings.lua"),
  "0.0001\nExecuted " .. here .. "settings.lua.\n")
assert(read("not/there/yet/Nalt/nalt.cfg") == settings)
check(run("XDG_CONFIG_HOME=/dev/null", "settings.lua"),
  "WARNING: Couldn't load or save settings file.\n0.0001\nExecuted " .. here .. "settings.lua.\n")
