-- Without a model functions give their neutral results, whatever their arguments are, and say nothing.

local function results(...)
  local texts = {}
  for i = 1, select("#", ...) do texts[i] = tostring((select(i, ...))) end
  return table.concat(texts, " ")
end

local function check(expected, ...)
  local found = results(...)
  if found ~= expected then error("'" .. found .. "' is not '" .. expected .. "'", 2) end
end

check("false", nalt.saveModel())
check("false", nalt.saveModelAs())
check("false", nalt.revertModel())
check("false", nalt.exportModel())
check("false", nalt.isModelUnsaved())
check("", nalt.closeModel())
check("", nalt.getCurrentModelFilename())
check("false", nalt.saveAllModels())
check("", nalt.closeAllModels())
check("", nalt.delete())
check("", nalt.getParent())
check("0", nalt.getNumSelectedPrimitives())
check("0", nalt.getNumChildren())
check("", nalt.traverse())
check("false", nalt.move())
check("", nalt.getTransformationMatrix())
check("1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1", nalt.getAccumulatedTransformationMatrix())
check("", nalt.createPolygon())
check("nil nil", nalt.getAttributes("a", "b"))
check("nil", nalt.getTextureAttributes(0, "a"))
check("0 0", nalt.reportStatistics("a", "b"))
check("-1", nalt.getCurrentSwitchMaskIndex())
check("", nalt.getNumSwitchMasks())
check("0 0 0", nalt.getPivot())
check("-1", nalt.getCurrentColorRGB())
check("0 0 0", nalt.getPaletteColor())
check("-1", nalt.loadTexture())
check("-1 -1", nalt.getTextureSize())
check("0 0", nalt.getTextureMappingUV())
check("0", nalt.getMaterialAlpha())
assert(#nalt.getSelectionNames() == 0 and #nalt.getOpenGLShaderVertexPrograms() == 0)

-- These need no model.
check("0.0001", nalt.getTolerance())
check("", nalt.setTolerance(0.25))
check("0.25", nalt.getTolerance())
check("false", nalt.setCurrentModel("none.flt"))
