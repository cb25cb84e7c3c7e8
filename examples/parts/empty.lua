-- For each.lua: deletes objects that hold nothing.

local empty = {}
if nalt.selectAll("OBJECT") then
  nalt.traverse(function()
    if nalt.getNumChildren() == 0 then empty[#empty + 1] = nalt.getSelectionNames()[1] end
  end, nil)
end
if #empty > 0 and nalt.selectByName(empty, true) then nalt.delete() end
print(path .. ": " .. #empty .. " objects deleted.")
