#include "core/ApiReference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

namespace nalt {

namespace {

/// The order in which scripts get their functions. Kept by hand: names that scripts use must not go away.
constexpr std::string_view namesInOrder[] = {
    "getVersion",
    "newModel",
    "openModel",
    "revertModel",
    "saveModel",
    "saveModelAs",
    "isModelUnsaved",
    "importModel",
    "exportModel",
    "closeModel",
    "setCurrentModel",
    "getCurrentModelFilename",
    "saveAllModels",
    "closeAllModels",
    "cut",
    "copy",
    "paste",
    "delete",
    "setParent",
    "getParent",
    "changeParent",
    "shiftFarLeft",
    "shiftLeft",
    "shiftRight",
    "shiftFarRight",
    "selectAll",
    "selectByName",
    "selectNone",
    "invertSelection",
    "selectByAttributes",
    "getNumSelectedPrimitives",
    "getTotalNumSelectedPrimitives",
    "getSelectionNames",
    "convertSelection",
    "selectSliverPolygons",
    "selectByNumberOfVertices",
    "selectVerticesByLocation",
    "selectParents",
    "selectChildren",
    "selectPrevious",
    "selectNakedEdges",
    "move",
    "rotate",
    "scale",
    "addTransformationMatrix",
    "getNumTransformationMatrices",
    "getTransformationMatrixType",
    "getTransformationMatrix",
    "clearTransformationMatrices",
    "removeTransformationMatrix",
    "moveTransformationMatrix",
    "getAccumulatedTransformationMatrix",
    "eliminateTransformationMatrices",
    "createPolygon",
    "createDisk",
    "createSphere",
    "createExternals",
    "createLightPoint",
    "create",
    "applyColor",
    "readColor",
    "applyTexture",
    "readTexture",
    "applyTextureMapping",
    "readTextureMapping",
    "applyMaterial",
    "readMaterial",
    "applyShader",
    "readShader",
    "removeTexture",
    "removeTextureMapping",
    "removeMaterial",
    "removeShader",
    "mapTexture",
    "moveTextureMap",
    "rotateTextureMap",
    "scaleTextureMap",
    "modifyUV",
    "mirror",
    "reverse",
    "slice",
    "split",
    "extrude",
    "revolve",
    "subdivide",
    "simplify",
    "merge",
    "quantify",
    "shade",
    "applyAttributes",
    "setAttributes",
    "getAttributes",
    "addSwitchMask",
    "deleteSwitchMask",
    "setSwitchMask",
    "setActiveSwitchMaskIndex",
    "getNumSwitchMasks",
    "getSwitchMask",
    "getSwitchState",
    "getCurrentSwitchMaskIndex",
    "applyComment",
    "setComment",
    "getComment",
    "changePivot",
    "getPivot",
    "reportStatistics",
    "reportDifferences",
    "setXYGrid",
    "setXZGrid",
    "setYZGrid",
    "setGridSpacing",
    "addGridOffset",
    "setGridOrigin",
    "setGridPointOnAxis",
    "setGridThirdPoint",
    "alignGridToPolygon",
    "getGridOrigin",
    "getGridPointOnAxis",
    "getGridThirdPoint",
    "setCurrentColorIndex",
    "setCurrentColorIntensity",
    "getCurrentColorIndex",
    "getCurrentColorIntensity",
    "setCurrentColorRGB",
    "getCurrentColorRGB",
    "openColorPalette",
    "saveColorPalette",
    "setPaletteColor",
    "getPaletteColor",
    "loadTexture",
    "loadTextures",
    "replaceTexture",
    "getTextureIndex",
    "getMaxTextureIndex",
    "getTextureFilename",
    "getTextureSize",
    "setCurrentTextureIndex",
    "getCurrentTextureIndex",
    "changeTextureIndex",
    "openTexturePalette",
    "saveTexturePalette",
    "removeTextureFromPalette",
    "removeUnusedTexturesFromPalette",
    "removeTexturePath",
    "changeAllTexturePaths",
    "removeAllTexturePaths",
    "makeTexturePathsRelative",
    "makeTexturePathsAbsolute",
    "applyTextureAttributes",
    "setTextureAttributes",
    "getTextureAttributes",
    "newMaterial",
    "getMaxMaterialIndex",
    "setCurrentMaterialIndex",
    "getCurrentMaterialIndex",
    "changeMaterialIndex",
    "openMaterialPalette",
    "saveMaterialPalette",
    "removeMaterialFromPalette",
    "removeUnusedMaterialsFromPalette",
    "setMaterialAmbient",
    "getMaterialAmbient",
    "setMaterialDiffuse",
    "getMaterialDiffuse",
    "setMaterialSpecular",
    "getMaterialSpecular",
    "setMaterialEmissive",
    "getMaterialEmissive",
    "setMaterialShininess",
    "getMaterialShininess",
    "setMaterialAlpha",
    "getMaterialAlpha",
    "setCurrentTextureMappingIndex",
    "getCurrentTextureMappingIndex",
    "changeTextureMappingIndex",
    "openTextureMappingPalette",
    "saveTextureMappingPalette",
    "removeTextureMappingFromPalette",
    "removeUnusedTextureMappingsFromPalette",
    "getMaxTextureMappingIndex",
    "setTextureMappingName",
    "getTextureMappingName",
    "getTextureMappingType",
    "setTextureMappingUV",
    "getTextureMappingUV",
    "setTextureMappingRepetitions",
    "getTextureMappingRepetitions",
    "setCurrentLightPointAppearanceIndex",
    "setCurrentLightPointAnimationIndex",
    "getCurrentLightPointAppearanceIndex",
    "getCurrentLightPointAnimationIndex",
    "changeLightPointAppearanceIndex",
    "changeLightPointAnimationIndex",
    "openLightPointPalette",
    "saveLightPointPalette",
    "newLightPointAppearance",
    "newLightPointAnimation",
    "getMaxLightPointAppearanceIndex",
    "getMaxLightPointAnimationIndex",
    "removeLightPointAppearanceFromPalette",
    "removeUnusedLightPointAppearancesFromPalette",
    "removeLightPointAnimationFromPalette",
    "removeUnusedLightPointAnimationsFromPalette",
    "applyLightPointAppearanceAttributes",
    "setLightPointAppearanceAttributes",
    "getLightPointAppearanceAttributes",
    "applyLightPointAnimationAttributes",
    "setLightPointAnimationAttributes",
    "getLightPointAnimationAttributes",
    "addLightPointSequenceState",
    "removeLightPointSequenceState",
    "getNumLightPointSequenceStates",
    "setCurrentShaderIndex",
    "getCurrentShaderIndex",
    "changeShaderIndex",
    "setShaderName",
    "getShaderName",
    "openShaderPalette",
    "saveShaderPalette",
    "newShader",
    "getMaxShaderIndex",
    "removeShaderFromPalette",
    "removeUnusedShadersFromPalette",
    "setShaderType",
    "getShaderType",
    "addOpenGLShaderVertexProgram",
    "removeOpenGLShaderVertexProgram",
    "getOpenGLShaderVertexPrograms",
    "addOpenGLShaderFragmentProgram",
    "removeOpenGLShaderFragmentProgram",
    "getOpenGLShaderFragmentPrograms",
    "setCgShaderVertexProgram",
    "getCgShaderVertexProgram",
    "setCgShaderFragmentProgram",
    "getCgShaderFragmentProgram",
    "setCgShaderVertexProgramProfile",
    "getCgShaderVertexProgramProfile",
    "setCgShaderFragmentProgramProfile",
    "getCgShaderFragmentProgramProfile",
    "setCgShaderVertexProgramEntryPoint",
    "getCgShaderVertexProgramEntryPoint",
    "setCgShaderFragmentProgramEntryPoint",
    "getCgShaderFragmentProgramEntryPoint",
    "removeShaderPaths",
    "executeMacro",
    "traverse",
    "getNumChildren",
    "getNumVertices",
    "getTolerance",
    "setTolerance",
};

std::vector<const ApiFunction*> allFunctions()
{
  std::vector<const ApiFunction*> all;
  for (const auto& function : ApiReference::functions())
    all.push_back(&function);
  return all;
}

/// Every list of arguments of a function.
std::vector<std::span<const ApiArgument>> argumentLists(const ApiFunction& function)
{
  std::vector<std::span<const ApiArgument>> lists{function.arguments, function.group, function.last};
  for (const auto& form : function.forms)
    lists.push_back(form.arguments);
  return lists;
}

} // namespace

TEST(ApiReference, HoldsAllFunctionsInTheirOrder)
{
  std::vector<std::string_view> names;
  for (const auto* function : allFunctions())
    names.push_back(function->name);
  EXPECT_EQ(names.size(), 250u);
  EXPECT_THAT(names, testing::ElementsAreArray(namesInOrder));
}

TEST(ApiReference, FindsEachFunctionByItsName)
{
  for (const auto* function : allFunctions())
    EXPECT_EQ(ApiReference::find(function->name), function);
  EXPECT_EQ(ApiReference::find("applycolor"), nullptr);
  EXPECT_EQ(ApiReference::find(""), nullptr);
}

TEST(ApiReference, LeadsAliasesToTheirFunctions)
{
  const std::vector<std::pair<std::string_view, std::string_view>> pairs{
      {"setAttributes", "applyAttributes"},
      {"setComment", "applyComment"},
      {"setTextureAttributes", "applyTextureAttributes"},
      {"setLightPointAppearanceAttributes", "applyLightPointAppearanceAttributes"},
      {"setLightPointAnimationAttributes", "applyLightPointAnimationAttributes"},
  };
  std::size_t aliases = 0;
  for (const auto* function : allFunctions())
    aliases += function->aliasOf.empty() ? 0 : 1;
  EXPECT_EQ(aliases, pairs.size());
  for (const auto& [alias, name] : pairs) {
    const auto* row = ApiReference::find(alias);
    ASSERT_NE(row, nullptr) << alias;
    EXPECT_EQ(&ApiReference::resolve(*row), ApiReference::find(name));
    EXPECT_EQ(ApiReference::aliasFor(*ApiReference::find(name)), alias);
    EXPECT_EQ(ApiReference::commentText(alias), ApiReference::commentText(name));
  }
  EXPECT_EQ(ApiReference::aliasFor(*ApiReference::find("move")), "");
}

TEST(ApiReference, TellsWhatEachFunctionDoesAndGives)
{
  for (const auto* row : allFunctions()) {
    const auto& function = ApiReference::resolve(*row);
    SCOPED_TRACE(function.name);
    EXPECT_TRUE(function.description.ends_with('.'));
    EXPECT_TRUE(std::isupper(static_cast<unsigned char>(function.description.front())));
    EXPECT_EQ(function.returns.empty(), function.result == ApiResult::nothing);
    EXPECT_TRUE(function.returns.empty() || function.returns.ends_with('.'));
    if (function.result == ApiResult::boolean) {
      EXPECT_TRUE(function.returns.starts_with("true "));
    }
  }
}

TEST(ApiReference, TellsWhatEachArgumentMeans)
{
  for (const auto* function : allFunctions()) {
    SCOPED_TRACE(function->name);
    for (const auto list : argumentLists(*function)) {
      bool optional = false;
      std::set<std::string_view> names;
      bool first = true;
      for (const auto& argument : list) {
        SCOPED_TRACE(argument.name);
        EXPECT_TRUE(names.insert(argument.name).second) << "twice";
        EXPECT_FALSE(optional && !argument.optional()) << "a required argument behind an optional one";
        optional = argument.optional();
        EXPECT_FALSE(first && argument.meaning.empty());
        first = false;
        EXPECT_TRUE(argument.meaning.empty() || argument.meaning.ends_with('.') || argument.choices);
        EXPECT_EQ(argument.choices != nullptr || argument.maximum >= 0, !argument.error.empty());
        if (argument.type == ApiType::boolean && argument.optional()) {
          EXPECT_TRUE(argument.otherwise == "true" || argument.otherwise == "false");
        }
        if (argument.type == ApiType::text && argument.optional()) {
          EXPECT_TRUE(argument.otherwise.starts_with('"') && argument.otherwise.ends_with('"'));
        }
      }
    }
  }
}

TEST(ApiReference, HasAFormForEachChoiceThatSelectsOne)
{
  for (const auto* function : allFunctions()) {
    if (function->forms.empty() || function->formBy != ApiFormBy::choice) continue;
    SCOPED_TRACE(function->name);
    const auto& choice = function->arguments.front();
    ASSERT_NE(choice.choices, nullptr);
    std::vector<std::string_view> labels;
    for (const auto& form : function->forms)
      labels.push_back(form.label);
    EXPECT_THAT(labels, testing::ElementsAreArray(choice.choices->values));
  }
}

TEST(ApiReference, KeepsTheSameArgumentsInBothOrdersOfMove)
{
  const auto& move = *ApiReference::find("move");
  std::set<std::string_view> order;
  for (const auto& argument : move.arguments)
    order.insert(argument.name);
  std::set<std::string_view> other;
  for (const auto& argument : move.forms.front().arguments)
    other.insert(argument.name);
  EXPECT_EQ(order.size(), 13u);
  EXPECT_EQ(order, other);
}

// ---- recorded comments ----------------------------------------------------------------------------------------------

TEST(ApiReference, CommentOfAProcedureHasNoResult)
{
  EXPECT_EQ(ApiReference::commentText("delete"), "--\n"
                                                 "-- nalt.delete()\n"
                                                 "-- Deletes the currently selected nodes.");
  EXPECT_EQ(ApiReference::commentText("selectNone"), "--\n"
                                                     "-- nalt.selectNone()\n"
                                                     "-- Clears all selections.");
  EXPECT_EQ(ApiReference::commentText("closeModel"), "--\n"
                                                     "-- nalt.closeModel()\n"
                                                     "-- Closes the current model.");
}

TEST(ApiReference, CommentHasALineForEachArgumentAndTheResult)
{
  EXPECT_EQ(ApiReference::commentText("subdivide"),
            "--\n"
            "-- nalt.subdivide(iterations, subdivideBorders)\n"
            "-- Increases the complexity of the selected geometry by subdividing the current polygons.\n"
            "-- iterations: The number of subdividing iterations.\n"
            "-- subdivideBorders (optional, default false): true if borders should be subdivided.\n"
            "-- returns: true if any geometry was subdivided.");
  EXPECT_EQ(ApiReference::commentText("openColorPalette"), "--\n"
                                                           "-- nalt.openColorPalette(filename)\n"
                                                           "-- Opens a palette of colors from disk.\n"
                                                           "-- filename: The filename of the color palette on disk.\n"
                                                           "-- returns: true if the palette was opened correctly.");
  EXPECT_EQ(ApiReference::commentText("saveColorPalette"), "--\n"
                                                           "-- nalt.saveColorPalette(filename)\n"
                                                           "-- Saves the current color palette to a file on disk.\n"
                                                           "-- filename: The filename of the saved palette.\n"
                                                           "-- returns: true if the palette was saved correctly.");
}

TEST(ApiReference, CommentOfAMacroCallHasNoResult)
{
  EXPECT_EQ(ApiReference::commentText("executeMacro"),
            "--\n"
            "-- nalt.executeMacro(scriptFile, paramName1, paramValue1, ...)\n"
            "-- Executes a macro with parameters.\n"
            "-- scriptFile: The script file to execute.\n"
            "-- paramNameX: The name of the parameter number X.\n"
            "-- paramValueX: The value for the parameter number X.");
}

TEST(ApiReference, CommentNamesTheAlias)
{
  EXPECT_EQ(ApiReference::commentText("applyAttributes"),
            "--\n"
            "-- nalt.applyAttributes(name1, attribute1, name2, attribute2, ...)\n"
            "-- (nalt.setAttributes is an alias that works exactly in the same way)\n"
            "-- Applies a number of attributes to the selected geometry.\n"
            "-- nameX: The name of attribute number X.\n"
            "-- attributeX: The value of attribute number X (boolean, number or string).\n"
            "-- returns: true if any attribute was applied.");
}

TEST(ApiReference, CommentListsTheTextsAnArgumentMayBe)
{
  EXPECT_EQ(ApiReference::commentText("create"),
            "--\n"
            "-- nalt.create(selectionMode)\n"
            "-- Creates a primitive of given type.\n"
            "-- selectionMode: One of the following strings:\n"
            "--   \"OBJECT\"\n"
            "--   \"GROUP\"\n"
            "--   \"LOD\"\n"
            "--   \"DOF\"\n"
            "--   \"SWITCH\"\n"
            "--   \"LIGHTPOINTSYSTEM\"\n"
            "-- returns: the name of the new node, empty string if no node was created.");
}

TEST(ApiReference, CommentOfAListEndsWithItsFlags)
{
  EXPECT_EQ(ApiReference::commentText("selectByName"),
            "--\n"
            "-- nalt.selectByName(name1, name2, ... , caseSensitive, addToSelection)\n"
            "-- Selects all nodes with at least one specific name.\n"
            "-- nameX: The name of node number X.\n"
            "-- caseSensitive (optional, default false): true if the names should be compared case sensitively.\n"
            "-- addToSelection (optional, default false): true if the nodes should be added to the current selection.\n"
            "-- returns: true if any primitive was selected.");
}

TEST(ApiReference, CommentHasTheFormsUnderTheSignature)
{
  EXPECT_EQ(ApiReference::commentText("extrude"),
            "--\n"
            "-- nalt.extrude(keepFloor, ...\n"
            "--   POINT: x, y, z, sharedAxis)\n"
            "--   HEIGHT: height)\n"
            "-- Extrudes the currently selected polygons.\n"
            "-- keepFloor: true if the floor should be kept.\n"
            "-- x: The x coordinate of the point to which the extrusion goes.\n"
            "-- y: The y coordinate of the point to which the extrusion goes.\n"
            "-- z: The z coordinate of the point to which the extrusion goes.\n"
            "-- sharedAxis: true to use the extrusion axis from the pivot point of the selected polygons to the "
            "indicated point.\n"
            "-- height: The distance along the normal of each polygon.\n"
            "-- returns: true if any geometry was extruded.");
  EXPECT_THAT(ApiReference::commentText("addTransformationMatrix"),
              testing::StartsWith("--\n"
                                  "-- nalt.addTransformationMatrix(type, ...\n"
                                  "--   TRANSLATE: fromX, fromY, fromZ, deltaX, deltaY, deltaZ, index)\n"));
}

TEST(ApiReference, CommentBreaksLongSignatures)
{
  EXPECT_THAT(ApiReference::commentText("move"),
              testing::StartsWith("--\n"
                                  "-- nalt.move(x, y, z, absolute, moveToPoint,\n"
                                  "--           softSelectionActive, radius, weightFunction, weightMode,\n"
                                  "--           freezeX, freezeY, freezeZ, applyMatrix)\n"
                                  "-- Moves the currently selected geometry.\n"
                                  "-- x: "));
  EXPECT_THAT(ApiReference::commentText("move"),
              testing::HasSubstr("\n-- softSelectionActive (optional, default false): true if soft selection should be "
                                 "active.\n"
                                 "-- radius (optional, default 10.0): the soft selection radius.\n"
                                 "-- weightFunction (optional, default \"LINEAR\"): one of \"LINEAR\", \"SQUARE\", "
                                 "\"SQUAREROOT\", \"CUBE\", \"CUBEROOT\".\n"
                                 "-- weightMode (optional, default \"WEIGHT_PER_VERTEX\"): one of "
                                 "\"WEIGHT_PER_VERTEX\", \"WEIGHT_PER_PRIMITIVE\".\n"));
}

// The words of recorded comments don't change, not even where they could be better.
TEST(ApiReference, CommentKeepsItsOldSlips)
{
  EXPECT_THAT(ApiReference::commentText("moveTextureMap"),
              testing::StartsWith("--\n-- nalt.moveTexmap(x, y, z, layer, freezeX, freezeY, freezeZ)\n"));
  EXPECT_THAT(ApiReference::commentText("rotateTextureMap"),
              testing::StartsWith("--\n-- nalt.rotateTexmap(angle, axisX, axisY, axisZ, layer)\n"));
  EXPECT_THAT(ApiReference::commentText("scaleTextureMap"),
              testing::StartsWith("--\n-- nalt.scaleTexmap(scaleX, scaleY, scaleZ, layer)\n"));
  EXPECT_THAT(ApiReference::commentText("modifyUV"),
              testing::StartsWith("--\n-- nalt.modifyUV(layer, vertexName1, u1, v1, vertexName2, u2, u2, ...)\n"));
  EXPECT_THAT(ApiReference::commentText("removeUnusedTexturesFromPalette"),
              testing::EndsWith("\n-- returns: true if any textures was removed."));
}

TEST(ApiReference, EachLineOfACommentIsOneInLua)
{
  for (const auto* function : allFunctions()) {
    std::string text = ApiReference::commentText(function->name) + "\n";
    for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1)
      EXPECT_EQ(text.substr(start, 2), "--") << function->name;
  }
  EXPECT_EQ(ApiReference::commentText("nothingOfThatName"), "");
}

} // namespace nalt
