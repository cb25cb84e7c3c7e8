-- Deletes the sliver polygons of a model: those with fewer than three corners, and the thin and tiny ones.
--
--   nalt examples/clean.lua in.flt out.flt

assert(nalt.openModel(arg[1]), "can't open " .. tostring(arg[1]))
nalt.selectNone()
if nalt.selectSliverPolygons() then
  print(nalt.getNumSelectedPrimitives("POLYGON") .. " sliver polygons deleted.")
  nalt.delete()
else
  print("There are no sliver polygons.")
end
assert(nalt.saveModelAs(arg[2]), "can't save " .. tostring(arg[2]))
