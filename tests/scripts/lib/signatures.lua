-- What the 250 functions take and what they give when there is nothing to work on, kept by hand: a second opinion on the
-- table that the program makes its checks and documents from.
--
--   name(arguments) result       in the order in which scripts get the functions
--   name = other                 another name of the same function
--
-- Arguments: s text, i integer, n number, b any value but none, e one of the function's texts, f function or nil; "?"
-- behind one that may be left out; "*" for any number of others, whose rules arguments.lua tells.
-- Results: nothing, boolean (false), integer and number (0), index (-1), text (""), texts (an empty table), two and three
-- (as many zeros), size (-1, -1), matrix (the identity), nils and zeros (one for each name that is asked for).

local rows = [[
getVersion() number
newModel(s) boolean
openModel(s) boolean
revertModel() boolean
saveModel(i?) boolean
saveModelAs(s, i?) boolean
isModelUnsaved() boolean
importModel(s, s, s?, s?, s?, s?) boolean
exportModel(s) boolean
closeModel() nothing
setCurrentModel(s) boolean
getCurrentModelFilename() text
saveAllModels() boolean
closeAllModels() nothing
cut() nothing
copy() nothing
paste() nothing
delete() nothing
setParent() nothing
getParent() text
changeParent() nothing
shiftFarLeft() boolean
shiftLeft() boolean
shiftRight() boolean
shiftFarRight() boolean
selectAll(e) boolean
selectByName(*) boolean
selectNone() nothing
invertSelection(e) nothing
selectByAttributes(e, s, b?, b?) boolean
getNumSelectedPrimitives(e) integer
getTotalNumSelectedPrimitives() integer
getSelectionNames() texts
convertSelection(e) nothing
selectSliverPolygons() boolean
selectByNumberOfVertices(i, b?) boolean
selectVerticesByLocation(n, n) boolean
selectParents() nothing
selectChildren() nothing
selectPrevious() nothing
selectNakedEdges() boolean
move(n, n, n, b?, b?, b?, n?, e?, e?, b?, b?, b?, b?) boolean
rotate(n, n, n, n, b?, b?, n?, e?, e?, b?) boolean
scale(n, n, n, b?, n?, e?, e?, b?) boolean
addTransformationMatrix(e, *) boolean
getNumTransformationMatrices() integer
getTransformationMatrixType(i) text
getTransformationMatrix(i) text
clearTransformationMatrices() boolean
removeTransformationMatrix(i) boolean
moveTransformationMatrix(i, i) boolean
getAccumulatedTransformationMatrix() matrix
eliminateTransformationMatrices() boolean
createPolygon(*) text
createDisk(n, n, n, n, n, n, n, n, n, i) text
createSphere(n, n, n, n, n, n, i, i) text
createExternals(*) boolean
createLightPoint(b, *) text
create(e) text
applyColor() boolean
readColor() boolean
applyTexture() boolean
readTexture() boolean
applyTextureMapping() boolean
readTextureMapping() boolean
applyMaterial() boolean
readMaterial() boolean
applyShader() boolean
readShader() boolean
removeTexture() boolean
removeTextureMapping() boolean
removeMaterial() boolean
removeShader() boolean
mapTexture(e, i, b, *) boolean
moveTextureMap(n, n, n, i?, b?, b?, b?) boolean
rotateTextureMap(n, n, n, n, i?) boolean
scaleTextureMap(n, n, n, i?) boolean
modifyUV(i, *) boolean
mirror() boolean
reverse() boolean
slice(b) boolean
split() boolean
extrude(b, *) boolean
revolve(n, n, n, n, i, b?) boolean
subdivide(i, b?) boolean
simplify(n, n?, n?, n?, b?) boolean
merge(b?) boolean
quantify(n) boolean
shade(b, b, b?, n?) boolean
applyAttributes(*) boolean
setAttributes = applyAttributes
getAttributes(*) nils
addSwitchMask(s, s?) boolean
deleteSwitchMask(i) boolean
setSwitchMask(i, s, s?) boolean
setActiveSwitchMaskIndex(i) boolean
getNumSwitchMasks() text
getSwitchMask(i) text
getSwitchState(i, i) boolean
getCurrentSwitchMaskIndex() index
applyComment(s) boolean
setComment = applyComment
getComment() text
changePivot(n, n, n) nothing
getPivot() three
reportStatistics(*) zeros
reportDifferences(e, *) text
setXYGrid() nothing
setXZGrid() nothing
setYZGrid() nothing
setGridSpacing(n) nothing
addGridOffset(n) nothing
setGridOrigin(n, n, n) nothing
setGridPointOnAxis(n, n, n) nothing
setGridThirdPoint(n, n, n) nothing
alignGridToPolygon() boolean
getGridOrigin() three
getGridPointOnAxis() three
getGridThirdPoint() three
setCurrentColorIndex(i) nothing
setCurrentColorIntensity(i) nothing
getCurrentColorIndex() index
getCurrentColorIntensity() integer
setCurrentColorRGB(i, i, i) nothing
getCurrentColorRGB() index
openColorPalette(s) boolean
saveColorPalette(s) boolean
setPaletteColor(i, i, i, i) boolean
getPaletteColor(i) three
loadTexture(s) index
loadTextures(*) boolean
replaceTexture(i, s) boolean
getTextureIndex(s) index
getMaxTextureIndex() index
getTextureFilename(i) text
getTextureSize(i) size
setCurrentTextureIndex(i) nothing
getCurrentTextureIndex() index
changeTextureIndex(i, i) boolean
openTexturePalette(s) boolean
saveTexturePalette(s) boolean
removeTextureFromPalette(i) boolean
removeUnusedTexturesFromPalette() boolean
removeTexturePath(i) boolean
changeAllTexturePaths(s) nothing
removeAllTexturePaths() nothing
makeTexturePathsRelative() nothing
makeTexturePathsAbsolute() nothing
applyTextureAttributes(i, *) boolean
setTextureAttributes = applyTextureAttributes
getTextureAttributes(i, *) nils
newMaterial() index
getMaxMaterialIndex() index
setCurrentMaterialIndex(i) nothing
getCurrentMaterialIndex() index
changeMaterialIndex(i, i) boolean
openMaterialPalette(s) boolean
saveMaterialPalette(s) boolean
removeMaterialFromPalette(i) boolean
removeUnusedMaterialsFromPalette() boolean
setMaterialAmbient(i, i, i, i) boolean
getMaterialAmbient(i) three
setMaterialDiffuse(i, i, i, i) boolean
getMaterialDiffuse(i) three
setMaterialSpecular(i, i, i, i) boolean
getMaterialSpecular(i) three
setMaterialEmissive(i, i, i, i) boolean
getMaterialEmissive(i) three
setMaterialShininess(i, n) boolean
getMaterialShininess(i) number
setMaterialAlpha(i, n) boolean
getMaterialAlpha(i) number
setCurrentTextureMappingIndex(i) nothing
getCurrentTextureMappingIndex() index
changeTextureMappingIndex(i, i) boolean
openTextureMappingPalette(s) boolean
saveTextureMappingPalette(s) boolean
removeTextureMappingFromPalette(i) boolean
removeUnusedTextureMappingsFromPalette() boolean
getMaxTextureMappingIndex() index
setTextureMappingName(i, s) boolean
getTextureMappingName(i) text
getTextureMappingType(i) text
setTextureMappingUV(i, i, n, n) boolean
getTextureMappingUV(i, i) two
setTextureMappingRepetitions(i, n) boolean
getTextureMappingRepetitions(i) number
setCurrentLightPointAppearanceIndex(i) nothing
setCurrentLightPointAnimationIndex(i) nothing
getCurrentLightPointAppearanceIndex() index
getCurrentLightPointAnimationIndex() index
changeLightPointAppearanceIndex(i, i) boolean
changeLightPointAnimationIndex(i, i) boolean
openLightPointPalette(s) boolean
saveLightPointPalette(s) boolean
newLightPointAppearance() index
newLightPointAnimation() index
getMaxLightPointAppearanceIndex() index
getMaxLightPointAnimationIndex() index
removeLightPointAppearanceFromPalette(i) boolean
removeUnusedLightPointAppearancesFromPalette() boolean
removeLightPointAnimationFromPalette(i) boolean
removeUnusedLightPointAnimationsFromPalette() boolean
applyLightPointAppearanceAttributes(i, *) boolean
setLightPointAppearanceAttributes = applyLightPointAppearanceAttributes
getLightPointAppearanceAttributes(i, *) nils
applyLightPointAnimationAttributes(i, *) boolean
setLightPointAnimationAttributes = applyLightPointAnimationAttributes
getLightPointAnimationAttributes(i, *) nils
addLightPointSequenceState(i) index
removeLightPointSequenceState(i, i) boolean
getNumLightPointSequenceStates(i) integer
setCurrentShaderIndex(i) nothing
getCurrentShaderIndex() index
changeShaderIndex(i, i) boolean
setShaderName(i, s) boolean
getShaderName(i) text
openShaderPalette(s) boolean
saveShaderPalette(s) boolean
newShader(s) index
getMaxShaderIndex() index
removeShaderFromPalette(i) boolean
removeUnusedShadersFromPalette() boolean
setShaderType(i, e) boolean
getShaderType(i) text
addOpenGLShaderVertexProgram(i, s) boolean
removeOpenGLShaderVertexProgram(i, i) boolean
getOpenGLShaderVertexPrograms(i) texts
addOpenGLShaderFragmentProgram(i, s) boolean
removeOpenGLShaderFragmentProgram(i, i) boolean
getOpenGLShaderFragmentPrograms(i) texts
setCgShaderVertexProgram(i, s) boolean
getCgShaderVertexProgram(i) text
setCgShaderFragmentProgram(i, s) boolean
getCgShaderFragmentProgram(i) text
setCgShaderVertexProgramProfile(i, i) boolean
getCgShaderVertexProgramProfile(i) integer
setCgShaderFragmentProgramProfile(i, i) boolean
getCgShaderFragmentProgramProfile(i) integer
setCgShaderVertexProgramEntryPoint(i, s) boolean
getCgShaderVertexProgramEntryPoint(i) text
setCgShaderFragmentProgramEntryPoint(i, s) boolean
getCgShaderFragmentProgramEntryPoint(i) text
removeShaderPaths(i) boolean
executeMacro(s, *) boolean
traverse(f, f) nothing
getNumChildren() integer
getNumVertices() integer
getTolerance() number
setTolerance(n) nothing
]]

local neutral = {
  nothing = "", boolean = "boolean:false", integer = "number:0", number = "number:0", index = "number:-1",
  text = "string:", texts = "table:", two = "number:0 number:0", three = "number:0 number:0 number:0",
  size = "number:-1 number:-1", nils = "", zeros = "",
  matrix = "number:1 number:0 number:0 number:0 number:0 number:1 number:0 number:0 " ..
    "number:0 number:0 number:1 number:0 number:0 number:0 number:0 number:1",
}

-- In order: name, arguments (list of {kind, optional}), more (whether others may follow), neutral (as check.described
-- tells it), aliasOf.
local signatures = {}
for row in rows:gmatch("[^\n]+") do
  local alias, target = row:match("^(%w+) = (%w+)$")
  if alias then
    signatures[#signatures + 1] = {name = alias, aliasOf = target, arguments = {}}
  else
    local name, list, result = row:match("^(%w+)%((.*)%) (%w+)$")
    local signature = {name = name, arguments = {}, neutral = assert(neutral[result], row)}
    for kind, optional in list:gmatch("([%w*])(%??)") do
      if kind == "*" then
        signature.more = true
      else
        table.insert(signature.arguments, {kind = kind, optional = optional == "?"})
      end
    end
    signatures[#signatures + 1] = signature
  end
end

return signatures
