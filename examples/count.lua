-- Prints how many nodes of each kind models hold.
--
--   nalt examples/count.lua model...

local modes = {"GROUP", "OBJECT", "POLYGON", "VERTEX", "LOD", "DOF", "SWITCH", "EXTERNAL", "LIGHTPOINT"}

for _, path in ipairs(arg) do
  if nalt.openModel(path) then
    local counts = {}
    for _, mode in ipairs(modes) do
      if nalt.selectAll(mode) then
        counts[#counts + 1] = mode:lower() .. " " .. nalt.getNumSelectedPrimitives(mode)
      end
    end
    print(path .. ": " .. table.concat(counts, ", "))
    nalt.closeModel()
  end
end
