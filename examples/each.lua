-- Runs a script on each of several models and saves those that it changed. The script finds its model open and
-- current, and its path in the global `path`; parts/ has some.
--
--   nalt examples/each.lua examples/parts/empty.lua model.flt...

local part = assert(arg[1], "usage: nalt each.lua part.lua model.flt...")

for i = 2, #arg do
  assert(nalt.openModel(arg[i]), "can't open " .. arg[i])
  nalt.executeMacro(part, "path", arg[i])
  if nalt.isModelUnsaved() then assert(nalt.saveModel(), "can't save " .. arg[i]) end
  nalt.closeModel()
end
