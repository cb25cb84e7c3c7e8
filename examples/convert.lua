-- Saves models in another version of the format, each under its own name in a folder.
--
--   nalt examples/convert.lua 1570 folder model...

local version, folder = tonumber(arg[1]), arg[2]
assert(version and folder, "usage: nalt convert.lua version folder model...")

for i = 3, #arg do
  assert(nalt.openModel(arg[i]), "can't open " .. arg[i])
  assert(nalt.saveModelAs(folder .. "/" .. arg[i]:match("[^/\\]*$"), version), "can't save " .. arg[i])
  nalt.closeModel()
end
print((#arg - 2) .. " models converted.")
