-- With NALT_DEBUG_STRUCT_SIZES the program prints its record sizes, makes nothing, and ends.
local program = io.popen("readlink /proc/$PPID/exe"):read("*l")
local home = arg[1] .. "home"
assert(os.execute("mkdir '" .. home .. "'"))

-- Set is enough: the value may be empty. Arguments don't count.
for _, value in ipairs{"", "1", "OFF"} do
  local command = string.format("NALT_DEBUG_STRUCT_SIZES='%s' HOME='%s' '%s' nothing.lua 2>&1", value, home, program)
  local pipe = io.popen(command)
  local lines = {}
  for line in pipe:lines() do lines[#lines + 1] = line end
  assert(pipe:close(), "exit status")
  assert(#lines == 134, #lines .. " lines")
  assert(lines[1] == "opcode\tsize", lines[1])
  for opcode = 1, 133 do
    assert(lines[opcode + 1]:match("^" .. opcode .. "\t%d+$"), lines[opcode + 1])
  end
  -- A few of the kinds that matter, one of those without a class, and one bare head.
  assert(lines[2] == "1\t324")
  assert(lines[3] == "2\t44")
  assert(lines[6] == "5\t80")
  assert(lines[45] == "44\t4")
  assert(lines[71] == "70\t64")
  assert(lines[97] == "96\t32")
  assert(lines[124] == "123\t4")
  assert(lines[134] == "133\t1036")
end

local left = io.popen("find '" .. home .. "' -mindepth 1"):read("*a")
assert(left == "", "made in the home folder: " .. left)
