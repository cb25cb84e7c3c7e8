-- Looks for faults in models. The exit status says whether there are any, so that a build can ask for it.
--
--   nalt examples/check.lua model.flt...

local function listed(names, one, several)
  return table.concat(names, ", ") .. " " .. (#names == 1 and one or several)
end

-- Objects that hold nothing.
local function emptyObjects()
  local empty = {}
  nalt.selectAll("OBJECT")
  nalt.traverse(function()
    if nalt.getNumChildren() == 0 then empty[#empty + 1] = nalt.getSelectionNames()[1] end
  end, nil)
  return empty
end

local function faultsOf(path)
  if not nalt.openModel(path) then return {"can't be opened"} end
  local faults = {}
  if not nalt.selectAll("POLYGON") then faults[#faults + 1] = "there are no polygons" end
  local empty = emptyObjects()
  if #empty > 0 then faults[#faults + 1] = listed(empty, "holds no polygons", "hold no polygons") end
  nalt.selectNone()
  if nalt.selectSliverPolygons() then
    faults[#faults + 1] = listed(nalt.getSelectionNames(), "is a sliver", "are slivers")
  end
  nalt.closeModel()
  return faults
end

local bad = 0
for _, path in ipairs(arg) do
  local faults = faultsOf(path)
  print(path .. ": " .. (#faults > 0 and table.concat(faults, "; ") or "good"))
  if #faults > 0 then bad = bad + 1 end
end
if bad > 0 then error(bad .. " of " .. #arg .. " models have faults.", 0) end
