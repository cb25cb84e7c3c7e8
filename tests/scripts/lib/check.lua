-- What the script tests share: comparing results with their types, and errors to the letter.

local check = {}

-- "number:1 string:a boolean:true nil", and of a table its texts: "table:a,b".
function check.described(...)
  local texts = {}
  for i = 1, select("#", ...) do
    local value = select(i, ...)
    local kind = type(value)
    if kind == "nil" then
      texts[i] = "nil"
    elseif kind == "table" then
      texts[i] = "table:" .. table.concat(value, ",")
    else
      texts[i] = kind .. ":" .. tostring(value)
    end
  end
  return table.concat(texts, " ")
end

-- The call gave just that, described as above.
function check.results(expected, ...)
  local found = check.described(...)
  if found ~= expected then error("found '" .. found .. "', expected '" .. expected .. "'", 2) end
end

-- Calling the function with these arguments ends with that error, to the letter; only the function's own name, which
-- Lua looks up among several, reads "?".
function check.fails(expected, call, ...)
  local good, text = pcall(call, ...)
  if good then error("no error, expected '" .. expected .. "'", 2) end
  if type(text) == "string" then text = text:gsub("^(bad argument #%d+ to ')[^']*'", "%1?'") end
  if text ~= expected then error("error '" .. tostring(text) .. "', expected '" .. expected .. "'", 2) end
end

function check.same(expected, found)
  if found ~= expected then error("found '" .. tostring(found) .. "', expected '" .. tostring(expected) .. "'", 2) end
end

-- Heads what is printed next, so that the expected output can be read.
function check.section(title) print("-- " .. title) end

function check.read(path)
  local file = io.open(path, "rb")
  if not file then return nil end
  local text = file:read("*a")
  file:close()
  return text
end

function check.write(path, text)
  local file = assert(io.open(path, "wb"))
  file:write(text)
  file:close()
end

-- Runs a script with the same program: what it wrote on standard output and on standard error, and its exit status.
--   variables: what stands in front of the command, "NALT_LOG=log" say
--   arguments: what stands behind the script
function check.run(variables, script, arguments)
  local _, _, status = os.execute(variables .. " '" .. arg[-1] .. "' '" .. script .. "' " .. (arguments or "") ..
    " >run.out 2>run.err </dev/null")
  -- A build with AddressSanitizer remarks on each request for memory that it refuses.
  local errors = check.read("run.err"):gsub("==%d+==WARNING: AddressSanitizer failed to allocate [^\n]*\n", "")
  return check.read("run.out"), errors, status
end

return check
