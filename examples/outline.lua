-- Prints the tree of a model, down to the objects with the number of their polygons.
--
--   nalt examples/outline.lua model.flt

assert(nalt.openModel(arg[1]), "can't open " .. tostring(arg[1]))

local depth, inExternal = 0, 0

local function enter(kind)
  if kind == "POLYGON" then return false end
  if inExternal == 0 then
    local line = ("  "):rep(depth) .. kind .. " " .. nalt.getSelectionNames()[1]
    if kind == "OBJECT" then
      local count = nalt.getNumChildren()
      line = line .. " (" .. count .. (count == 1 and " polygon)" or " polygons)")
    end
    print(line)
  end
  depth = depth + 1
  if kind == "EXTERNAL" then inExternal = inExternal + 1 end
  return kind ~= "OBJECT" and kind ~= "LIGHTPOINT"
end

local function leave(kind)
  if kind == "POLYGON" then return end
  depth = depth - 1
  if kind == "EXTERNAL" then inExternal = inExternal - 1 end
end

nalt.selectAll("HEADER")
nalt.traverse(enter, leave)
