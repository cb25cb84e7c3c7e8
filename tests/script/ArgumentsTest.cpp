#include "tests/script/ScriptTest.h"

namespace nalt {

namespace {

/// Calls functions in a script that has a model, so that their arguments are looked at.
class ArgumentsTest : public ScriptTest {
protected:
  ArgumentsTest() { shell.newModel("a.flt"); }

  /// Whether the call was made, with nothing wrong about its arguments.
  testing::AssertionResult accepted(const std::string& call)
  {
    if (execute(call)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << error;
  }
};

} // namespace

// ---- single arguments -----------------------------------------------------------------------------------------------

TEST_F(ArgumentsTest, RequiredOnesMustBeThere)
{
  EXPECT_EQ(errorOf("nalt.newModel()"), "bad argument #1 to 'newModel' (string expected, got no value)");
  EXPECT_EQ(errorOf("nalt.changePivot(1, 2)"), "bad argument #3 to 'changePivot' (number expected, got no value)");
  EXPECT_EQ(errorOf("nalt.removeTexturePath()"),
            "bad argument #1 to 'removeTexturePath' (number expected, got no value)");
  EXPECT_EQ(errorOf("nalt.slice()"), "bad argument #1 to 'slice' (value expected)");
  EXPECT_EQ(errorOf("nalt.loadTextures()"), "bad argument #1 to 'loadTextures' (string expected, got no value)");
}

TEST_F(ArgumentsTest, MustHaveTheRightType)
{
  EXPECT_EQ(errorOf("nalt.openModel({})"), "bad argument #1 to 'openModel' (string expected, got table)");
  EXPECT_EQ(errorOf("nalt.quantify('a')"), "bad argument #1 to 'quantify' (number expected, got string)");
  EXPECT_EQ(errorOf("nalt.getShaderName(true)"), "bad argument #1 to 'getShaderName' (number expected, got boolean)");
}

TEST_F(ArgumentsTest, AreTakenAsLuaConvertsThem)
{
  EXPECT_TRUE(accepted("nalt.quantify('0.5')"));
  EXPECT_TRUE(accepted("nalt.applyComment(7)"));
  EXPECT_TRUE(accepted("nalt.slice(nil)")) << "nil is false";
  EXPECT_TRUE(accepted("nalt.slice(0)")) << "0 is true";
  EXPECT_TRUE(accepted("nalt.getShaderName(2.7)")) << "cut off toward zero";
}

TEST_F(ArgumentsTest, OptionalOnesCountOnlyWhenTheCallReachesThem)
{
  EXPECT_TRUE(accepted("nalt.saveModel()"));
  EXPECT_EQ(errorOf("nalt.saveModel(nil)"), "bad argument #1 to 'saveModel' (number expected, got nil)");
  EXPECT_TRUE(accepted("nalt.merge()"));
  EXPECT_TRUE(accepted("nalt.merge(nil)"));
  EXPECT_TRUE(accepted("nalt.shade(true, false)"));
  EXPECT_EQ(errorOf("nalt.shade(true, false, nil, nil)"), "bad argument #4 to 'shade' (number expected, got nil)");
  EXPECT_EQ(errorOf("nalt.simplify(0.5, 'x')"), "bad argument #2 to 'simplify' (number expected, got string)");
}

TEST_F(ArgumentsTest, MayBeMoreThanAreTaken)
{
  EXPECT_TRUE(accepted("nalt.applyColor(1, 2, 3)"));
  EXPECT_TRUE(accepted("nalt.saveModel(1620, 'more')"));
}

// ---- texts out of a list --------------------------------------------------------------------------------------------

TEST_F(ArgumentsTest, SelectionModesAreTakenInAnyCase)
{
  for (const char* function : {"selectAll", "invertSelection", "convertSelection", "getNumSelectedPrimitives"}) {
    const std::string call = std::string("nalt.") + function;
    EXPECT_TRUE(accepted(call + "('POLYGON')"));
    EXPECT_TRUE(accepted(call + "('lightPointSystem')"));
    EXPECT_EQ(errorOf(call + "('FACE')"), "Invalid selection mode.");
    EXPECT_EQ(errorOf(call + "('UNSUPPORTED')"), "Invalid selection mode.");
    EXPECT_EQ(errorOf(call + "('')"), "Invalid selection mode.");
    EXPECT_EQ(errorOf(call + "(3)"), "Invalid selection mode.");
  }
}

TEST_F(ArgumentsTest, OtherTextsHaveListsOfTheirOwn)
{
  EXPECT_TRUE(accepted("nalt.create('group')"));
  EXPECT_EQ(errorOf("nalt.create('VERTEX')"), "Invalid selection mode for creation.");
  EXPECT_TRUE(accepted("nalt.selectByAttributes('Polygon', 'Hidden = 1')"));
  EXPECT_EQ(errorOf("nalt.selectByAttributes('EDGE', 'Hidden = 1')"),
            "Invalid selection mode for selecting by attributes.");
  EXPECT_EQ(errorOf("nalt.selectByAttributes('HEADER', 'Hidden = 1')"),
            "Invalid selection mode for selecting by attributes.");
  EXPECT_TRUE(accepted("nalt.setShaderType(0, 'CG')"));
  EXPECT_EQ(errorOf("nalt.setShaderType(0, 'HLSL')"), "Invalid shader type.");
}

TEST_F(ArgumentsTest, WeightsHaveLists)
{
  EXPECT_TRUE(accepted("nalt.scale(1, 1, 1, true, 10, 'CubeRoot', 'weight_per_primitive')"));
  EXPECT_TRUE(accepted("nalt.scale(1, 1, 1, true, 10, 'SINE')"));
  EXPECT_EQ(errorOf("nalt.scale(1, 1, 1, true, 10, 'COSINE')"), "Invalid weight function.");
  EXPECT_EQ(errorOf("nalt.scale(1, 1, 1, true, 10, 'LINEAR', 'WEIGHT')"), "Invalid weight mode.");
}

// ---- functions with several forms -----------------------------------------------------------------------------------

TEST_F(ArgumentsTest, MoveTakesBothOrders)
{
  EXPECT_TRUE(accepted("nalt.move(1, 2, 3)"));
  EXPECT_TRUE(
      accepted("nalt.move(1, 2, 3, true, false, true, 10, 'LINEAR', 'WEIGHT_PER_VERTEX', true, true, true, true)"));
  EXPECT_TRUE(accepted("nalt.move(1, 2, 3, true, false, true, false, true, false, true, 10, 'SQUARE')"));
  EXPECT_EQ(errorOf("nalt.move(1, 2, 3, true, false, true, 'x')"),
            "bad argument #7 to 'move' (number expected, got string)");
  EXPECT_EQ(errorOf("nalt.move(1, 2, 3, true, false, true, false, true, false, true, 10, 'ROUND')"),
            "Invalid weight function.");
}

TEST_F(ArgumentsTest, MatricesTakeTheNumbersOfTheirType)
{
  EXPECT_TRUE(accepted("nalt.addTransformationMatrix('translate', 1, 2, 3, 4, 5, 6)"));
  EXPECT_TRUE(accepted("nalt.addTransformationMatrix('SCALE', 1, 2, 3, 4, 5, 6, 0)"));
  EXPECT_TRUE(accepted("nalt.addTransformationMatrix('ROTATE_ABOUT_EDGE', 1, 2, 3, 4, 5, 6, 7)"));
  EXPECT_TRUE(accepted("nalt.addTransformationMatrix('ROTATE_ABOUT_POINT', 1, 2, 3, 4, 5, 6, 7, 0)"));
  EXPECT_TRUE(accepted("nalt.addTransformationMatrix('GENERAL_MATRIX', 1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,1)"));
  EXPECT_EQ(errorOf("nalt.addTransformationMatrix('SHEAR', 1, 2, 3)"),
            "Transformation matrix type unsupported for adding.");
  EXPECT_EQ(errorOf("nalt.addTransformationMatrix('SCALE', 1, 2, 3, 4, 5)"),
            "bad argument #7 to 'addTransformationMatrix' (number expected, got no value)");
  EXPECT_EQ(errorOf("nalt.addTransformationMatrix('SCALE', 1, 2, 3, 4, 5, 6, 'last')"),
            "bad argument #8 to 'addTransformationMatrix' (number expected, got string)");
}

TEST_F(ArgumentsTest, ExtrudeTakesAPointOrAHeight)
{
  EXPECT_TRUE(accepted("nalt.extrude(true, 2)"));
  EXPECT_TRUE(accepted("nalt.extrude(true, 1, 2, 3, false)"));
  for (const char* call : {"nalt.extrude()", "nalt.extrude(true)", "nalt.extrude(true, 1, 2)",
                           "nalt.extrude(true, 1, 2, 3)", "nalt.extrude(true, 1, 2, 3, false, 4)"})
    EXPECT_EQ(errorOf(call), "Invalid number of extrude parameters.");
  EXPECT_EQ(errorOf("nalt.extrude(true, 'high')"), "bad argument #2 to 'extrude' (number expected, got string)");
}

TEST_F(ArgumentsTest, TextureMappingsTakeTheirPoints)
{
  EXPECT_EQ(errorOf("nalt.mapTexture('FOO', 0, false)"), "Invalid texture mapping type.");
  EXPECT_EQ(errorOf("nalt.mapTexture('THREEPOINT', 8, false)"), "Invalid texture mapping layer index.");
  EXPECT_EQ(errorOf("nalt.mapTexture('THREEPOINT', -1, false)"), "Invalid texture mapping layer index.");
  const std::string nine = ", 1, 2, 3, 4, 5, 6, 7, 8, 9";
  EXPECT_TRUE(accepted("nalt.mapTexture('threepoint', 0, false" + nine + ", 1, 2, 3, 4, 5, 6)"));
  EXPECT_TRUE(accepted("nalt.mapTexture('FOURPOINT', 7, true" + nine + nine + ", 1, 2)"));
  for (const std::string type : {"CYLINDRICAL", "SPHERICAL"}) {
    EXPECT_TRUE(accepted("nalt.mapTexture('" + type + "', 0, false" + nine + ", 2)"));
    EXPECT_TRUE(accepted("nalt.mapTexture('" + type + "', 0, false" + nine + nine + ")"));
    EXPECT_EQ(errorOf("nalt.mapTexture('" + type + "', 0, false" + nine + ", 2, 0, 0)"),
              "Invalid number of mapTexture parameters.");
  }
  EXPECT_EQ(errorOf("nalt.mapTexture('THREEPOINT', 0, false" + nine + ")"), "Invalid number of mapTexture parameters.");
  EXPECT_EQ(errorOf("nalt.mapTexture('THREEPOINT', 0, false" + nine + ", 1, 2, 3, 4, 5, 'v')"),
            "bad argument #18 to 'mapTexture' (number expected, got string)");
}

TEST_F(ArgumentsTest, LayersGoFromZeroToSeven)
{
  EXPECT_TRUE(accepted("nalt.moveTextureMap(1, 2, 3)"));
  EXPECT_TRUE(accepted("nalt.moveTextureMap(1, 2, 3, 7.9)"));
  EXPECT_TRUE(accepted("nalt.moveTextureMap(1, 2, 3, -0.5)"));
  for (const char* call :
       {"nalt.moveTextureMap(1, 2, 3, 8)", "nalt.moveTextureMap(1, 2, 3, 0/0)", "nalt.rotateTextureMap(1, 2, 3, 4, -1)",
        "nalt.scaleTextureMap(1, 2, 3, 1e300)", "nalt.modifyUV(8, 'p1/V0', 0, 0)"})
    EXPECT_EQ(errorOf(call), "Invalid texture mapping layer index.");
}

TEST_F(ArgumentsTest, DifferencesAreAgainstTheClipboardOrAFile)
{
  EXPECT_TRUE(accepted("nalt.reportDifferences('CLIPBOARD')"));
  EXPECT_TRUE(accepted("nalt.reportDifferences('Clipboard', true, true)"));
  EXPECT_TRUE(accepted("nalt.reportDifferences('FILE', 'b.flt')"));
  EXPECT_TRUE(accepted("nalt.reportDifferences('FILE', 'b.flt', true, true)"));
  EXPECT_EQ(errorOf("nalt.reportDifferences('NETWORK')"), "Invalid differences source type.");
  EXPECT_EQ(errorOf("nalt.reportDifferences('FILE')"),
            "bad argument #2 to 'reportDifferences' (string expected, got no value)");
}

TEST_F(ArgumentsTest, TraverseTakesExactlyTwo)
{
  EXPECT_TRUE(accepted("nalt.traverse(print, nil)"));
  EXPECT_TRUE(accepted("nalt.traverse(nil, print)"));
  for (const char* call : {"nalt.traverse()", "nalt.traverse(print)", "nalt.traverse(print, print, print)"})
    EXPECT_EQ(errorOf(call), "Invalid number of arguments to traverse.");
}

// ---- lists ----------------------------------------------------------------------------------------------------------

TEST_F(ArgumentsTest, NamesComeBeforeUpToTwoBooleans)
{
  for (const char* call :
       {"nalt.selectByName('a')", "nalt.selectByName('a', 'b', {'c', 'd'}, 'e')", "nalt.selectByName({'a','b'}, true)",
        "nalt.selectByName('a', true, false)", "nalt.selectByName('a', false)"})
    EXPECT_TRUE(accepted(call));
  for (const char* call :
       {"nalt.selectByName()", "nalt.selectByName(true)", "nalt.selectByName(true, false)", "nalt.selectByName(1)",
        "nalt.selectByName('a', nil)", "nalt.selectByName('a', {1})", "nalt.selectByName('a', true, 'b')",
        "nalt.selectByName('a', true, false, true)", "nalt.selectByName(true, 'a')", "nalt.selectByName('a', print)"})
    EXPECT_EQ(errorOf(call), "Invalid parameters to selectByName.") << call;
}

TEST_F(ArgumentsTest, PolygonsTakeTriples)
{
  EXPECT_TRUE(accepted("nalt.createPolygon(0, 0, 0)"));
  EXPECT_TRUE(accepted("nalt.createPolygon(0, 0, 0, 1, 0, 0, '1', 1, 0)"));
  for (const char* call : {"nalt.createPolygon()", "nalt.createPolygon(1, 2)", "nalt.createPolygon(1, 2, 3, 4)"})
    EXPECT_EQ(errorOf(call), "Incorrect number of arguments for creating polygon.");
  for (const char* call : {"nalt.createPolygon(1, 2, 'x')", "nalt.createPolygon(nil, 2, 3)"})
    EXPECT_EQ(errorOf(call), "Incorrect argument for creating polygon.");
}

TEST_F(ArgumentsTest, LightPointsTakeTriples)
{
  EXPECT_TRUE(accepted("nalt.createLightPoint(true, 0, 0, 0)"));
  for (const char* call : {"nalt.createLightPoint()", "nalt.createLightPoint(true)",
                           "nalt.createLightPoint(true, 1, 2)", "nalt.createLightPoint(1, 2, 3)"})
    EXPECT_EQ(errorOf(call), "Incorrect number of arguments for creating light point.");
  EXPECT_EQ(errorOf("nalt.createLightPoint(false, 1, 2, {})"), "Incorrect argument for creating light point.");
}

TEST_F(ArgumentsTest, ExternalsTakeFiles)
{
  EXPECT_TRUE(accepted("nalt.createExternals('a.flt', 'b.flt')"));
  EXPECT_EQ(errorOf("nalt.createExternals()"), "Invalid number of createExternals parameters.");
  EXPECT_EQ(errorOf("nalt.createExternals('a.flt', {})"),
            "bad argument #2 to 'createExternals' (string expected, got table)");
}

TEST_F(ArgumentsTest, ModifyUvTakesVerticesWithCoordinates)
{
  EXPECT_TRUE(accepted("nalt.modifyUV(0, 'p1/V0', 0, 0.5, 'p1/V1', 1, 1)"));
  for (const char* call : {"nalt.modifyUV()", "nalt.modifyUV(0)", "nalt.modifyUV(0, 'p1/V0', 1)"})
    EXPECT_EQ(errorOf(call), "Invalid number of modifyUV parameters.");
  EXPECT_EQ(errorOf("nalt.modifyUV(0, 'p1/V0', 'u', 1)"),
            "bad argument #3 to 'modifyUV' (number expected, got string)");
}

TEST_F(ArgumentsTest, AttributesComeInPairs)
{
  EXPECT_TRUE(accepted("nalt.applyAttributes('Hidden', true, 'Name', 'a', 'Priority', 2)"));
  for (const char* call : {"nalt.applyAttributes()", "nalt.applyAttributes('Hidden')",
                           "nalt.applyAttributes('Hidden', true, 'Name')", "nalt.setAttributes('Hidden')"})
    EXPECT_EQ(errorOf(call), "Invalid number of applyAttributes parameters.");
  EXPECT_EQ(errorOf("nalt.applyAttributes('Hidden', true, 'Name', {})"),
            "Parameter 4 to applyAttributes for Name is of invalid type.");
  EXPECT_EQ(errorOf("nalt.setAttributes('Hidden', nil)"),
            "Parameter 2 to applyAttributes for Hidden is of invalid type.");
  EXPECT_EQ(errorOf("nalt.applyAttributes({}, 1)"),
            "bad argument #1 to 'applyAttributes' (string expected, got table)");
}

TEST_F(ArgumentsTest, PaletteAttributesComeInPairsBehindTheIndex)
{
  for (const std::string kind : {"Texture", "LightPointAppearance", "LightPointAnimation"}) {
    const auto apply = "apply" + kind + "Attributes";
    EXPECT_TRUE(accepted("nalt." + apply + "(0, 'a', 1)"));
    EXPECT_EQ(errorOf("nalt." + apply + "()"), "Invalid number of " + apply + " parameters.");
    EXPECT_EQ(errorOf("nalt." + apply + "(0)"), "Invalid number of " + apply + " parameters.");
    EXPECT_EQ(errorOf("nalt.set" + kind + "Attributes(0, 'a')"), "Invalid number of " + apply + " parameters.");
    EXPECT_EQ(errorOf("nalt." + apply + "(0, 'a', print)"), "Parameter 3 to " + apply + " for a is of invalid type.");
    const auto get = "get" + kind + "Attributes";
    EXPECT_TRUE(accepted("nalt." + get + "(0, 'a', 'b')"));
    EXPECT_EQ(errorOf("nalt." + get + "(0)"), "Invalid number of " + get + " parameters.");
  }
}

TEST_F(ArgumentsTest, QueriesTakeAtLeastOneName)
{
  EXPECT_EQ(errorOf("nalt.getAttributes()"), "Invalid number of getAttributes parameters.");
  EXPECT_EQ(errorOf("nalt.reportStatistics()"), "Invalid number of reportStatistics parameters.");
  EXPECT_EQ(errorOf("nalt.getAttributes('a', true)"),
            "bad argument #2 to 'getAttributes' (string expected, got boolean)");
}

TEST_F(ArgumentsTest, MacrosTakePairsBehindTheFile)
{
  const auto macro = "'" + script("", "m.lua") + "'";
  EXPECT_TRUE(accepted("nalt.executeMacro(" + macro + ")"));
  EXPECT_TRUE(accepted("nalt.executeMacro(" + macro + ", 'a', 1, 'b', true, 'c', 'x')"));
  for (const char* call : {"nalt.executeMacro()", "nalt.executeMacro('m.lua', 'a')"})
    EXPECT_EQ(errorOf(call), "Invalid number of parameters to executeMacro.");
  EXPECT_EQ(errorOf("nalt.executeMacro('m.lua', 'a', {})"), "Invalid parameter type to executeMacro.");
}

} // namespace nalt
