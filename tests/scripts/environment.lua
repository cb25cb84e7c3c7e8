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
