-- Tells how many edges of a model no other polygon adjoins: where a closed surface has a hole, or where neighbors don't
-- share their corners.
--
--   nalt examples/borders.lua model.flt...

for _, path in ipairs(arg) do
  assert(nalt.openModel(path), "can't open " .. path)
  nalt.selectNone()
  if nalt.selectAll("POLYGON") then
    nalt.convertSelection("EDGE")
    local all = nalt.getNumSelectedPrimitives("EDGE")
    nalt.selectAll("POLYGON")
    local naked = nalt.selectNakedEdges() and nalt.getNumSelectedPrimitives("EDGE") or 0
    print(path .. ": " .. naked .. " of " .. all .. " edges have no neighbor.")
  else
    print(path .. ": no polygons.")
  end
  nalt.closeModel()
end
