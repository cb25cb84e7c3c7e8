#include "core/api/Rows.h"

namespace nalt::api {

namespace {

// ---- move, rotate, scale --------------------------------------------------------------------------------------------

constexpr std::string_view weightFunctionValues[] = {"LINEAR", "SQUARE", "SQUAREROOT", "CUBE", "CUBEROOT"};
constexpr ApiChoices weightFunctions{"WeightFunction", weightFunctionValues, "SINE"};
constexpr std::string_view weightModeValues[] = {"WEIGHT_PER_VERTEX", "WEIGHT_PER_PRIMITIVE"};
constexpr ApiChoices weightModes{"WeightMode", weightModeValues};

constexpr ApiArgument softSelectionActive{"softSelectionActive", boolean, "true if soft selection should be active.",
                                          "false"};
constexpr ApiArgument radius{"radius", number, "the soft selection radius.", "10.0"};
constexpr ApiArgument weightFunction{"weightFunction",
                                     text,
                                     "one of \"LINEAR\", \"SQUARE\", \"SQUAREROOT\", \"CUBE\", \"CUBEROOT\".",
                                     "\"LINEAR\"",
                                     &weightFunctions,
                                     "Invalid weight function."};
constexpr ApiArgument weightMode{"weightMode",
                                 text,
                                 "one of \"WEIGHT_PER_VERTEX\", \"WEIGHT_PER_PRIMITIVE\".",
                                 "\"WEIGHT_PER_VERTEX\"",
                                 &weightModes,
                                 "Invalid weight mode."};
constexpr ApiArgument applyMatrix{"applyMatrix", boolean,
                                  "true if a transformation matrix should be added to the nodes instead.", "false"};

constexpr ApiArgument moveX{"x", number, "The movement along x, or the position if absolute or moveToPoint is true."};
constexpr ApiArgument moveY{"y", number, "The movement along y, or the position if absolute or moveToPoint is true."};
constexpr ApiArgument moveZ{"z", number, "The movement along z, or the position if absolute or moveToPoint is true."};
constexpr ApiArgument absolute{"absolute", boolean, "true if the coordinates are absolute.", "false"};
constexpr ApiArgument moveToPoint{"moveToPoint", boolean, "true if everything should move to one point.", "false"};
constexpr ApiArgument freezeX{"freezeX", boolean, "true if the x axis is frozen.", "false"};
constexpr ApiArgument freezeY{"freezeY", boolean, "true if the y axis is frozen.", "false"};
constexpr ApiArgument freezeZ{"freezeZ", boolean, "true if the z axis is frozen.", "false"};

constexpr ApiArgument move[] = {
    moveX,          moveY,      moveZ,   absolute, moveToPoint, softSelectionActive, radius,
    weightFunction, weightMode, freezeX, freezeY,  freezeZ,     applyMatrix,
};
/// Scripts written before soft selection was known end in these.
constexpr ApiArgument moveFrozenFirst[] = {
    moveX,   moveY,          moveZ,      absolute,    moveToPoint,
    freezeX, freezeY,        freezeZ,    applyMatrix, softSelectionActive,
    radius,  weightFunction, weightMode,
};
constexpr ApiForm moveForms[] = {{"", moveFrozenFirst}};

constexpr ApiArgument rotate[] = {
    {"angle", number, "The angle in degrees."},
    {"axisX", number, "The x component of the rotation axis."},
    {"axisY", number, "The y component of the rotation axis."},
    {"axisZ", number, "The z component of the rotation axis."},
    {"normal", boolean, "true if vertex normals should be rotated.", "false"},
    softSelectionActive,
    radius,
    weightFunction,
    weightMode,
    applyMatrix,
};

constexpr ApiArgument scale[] = {
    {"scaleX", number, "The scale factor along x."},
    {"scaleY", number, "The scale factor along y."},
    {"scaleZ", number, "The scale factor along z."},
    softSelectionActive,
    radius,
    weightFunction,
    weightMode,
    applyMatrix,
};

// ---- matrices -------------------------------------------------------------------------------------------------------

constexpr std::string_view matrixTypeValues[] = {
    "TRANSLATE", "SCALE", "ROTATE_ABOUT_EDGE", "ROTATE_ABOUT_POINT", "GENERAL_MATRIX",
};
constexpr ApiChoices matrixTypes{"MatrixType", matrixTypeValues};

constexpr ApiArgument matrixType[] = {
    {"type", text, oneOf, {}, &matrixTypes, "Transformation matrix type unsupported for adding."},
};
constexpr ApiArgument newIndex{"index", integer, "The zero-based index of the matrix.", "the end of the list"};
constexpr ApiArgument translate[] = {
    {"fromX", number, "The x coordinate of the point to move from."},
    {"fromY", number, "The y coordinate of the point to move from."},
    {"fromZ", number, "The z coordinate of the point to move from."},
    {"deltaX", number, "The movement along x."},
    {"deltaY", number, "The movement along y."},
    {"deltaZ", number, "The movement along z."},
    newIndex,
};
constexpr ApiArgument scaleMatrix[] = {
    {"centerX", number, "The x coordinate of the center."},
    {"centerY", number, "The y coordinate of the center."},
    {"centerZ", number, "The z coordinate of the center."},
    {"scaleX", number, "The scale factor along x."},
    {"scaleY", number, "The scale factor along y."},
    {"scaleZ", number, "The scale factor along z."},
    newIndex,
};
constexpr ApiArgument aboutEdge[] = {
    {"point1X", number, "The x coordinate of the first point of the edge."},
    {"point1Y", number, "The y coordinate of the first point of the edge."},
    {"point1Z", number, "The z coordinate of the first point of the edge."},
    {"point2X", number, "The x coordinate of the second point of the edge."},
    {"point2Y", number, "The y coordinate of the second point of the edge."},
    {"point2Z", number, "The z coordinate of the second point of the edge."},
    {"angle", number, "The angle in degrees."},
    newIndex,
};
constexpr ApiArgument aboutPoint[] = {
    {"centerX", number, "The x coordinate of the center."},
    {"centerY", number, "The y coordinate of the center."},
    {"centerZ", number, "The z coordinate of the center."},
    {"axisX", number, "The x component of the rotation axis."},
    {"axisY", number, "The y component of the rotation axis."},
    {"axisZ", number, "The z component of the rotation axis."},
    {"angle", number, "The angle in degrees."},
    newIndex,
};
constexpr ApiArgument generalMatrix[] = {
    {"m00", number, "The first element of the matrix; the others follow row after row."},
    {"m01", number, ""},
    {"m02", number, ""},
    {"m03", number, ""},
    {"m10", number, ""},
    {"m11", number, ""},
    {"m12", number, ""},
    {"m13", number, ""},
    {"m20", number, ""},
    {"m21", number, ""},
    {"m22", number, ""},
    {"m23", number, ""},
    {"m30", number, ""},
    {"m31", number, ""},
    {"m32", number, ""},
    {"m33", number, ""},
    newIndex,
};
constexpr ApiForm matrixForms[] = {
    {"TRANSLATE", translate},          {"SCALE", scaleMatrix},
    {"ROTATE_ABOUT_EDGE", aboutEdge},  {"ROTATE_ABOUT_POINT", aboutPoint},
    {"GENERAL_MATRIX", generalMatrix},
};

constexpr ApiArgument index[] = {{"index", integer, "The zero-based index of the matrix."}};
constexpr ApiArgument fromAndTo[] = {
    {"fromIndex", integer, "The present zero-based index of the matrix."},
    {"toIndex", integer, "The new zero-based index of the matrix."},
};

constexpr ApiFunction functions[] = {
    {.name = "move",
     .description = "Moves the currently selected geometry.",
     .returns = "true if any geometry was moved.",
     .result = Result::boolean,
     .arguments = move,
     .forms = moveForms,
     .formBy = ApiFormBy::order,
     .signature = "x, y, z, absolute, moveToPoint,\n"
                  "          softSelectionActive, radius, weightFunction, weightMode,\n"
                  "          freezeX, freezeY, freezeZ, applyMatrix)"},
    {.name = "rotate",
     .description = "Rotates the currently selected geometry.",
     .returns = "true if any geometry was rotated.",
     .result = Result::boolean,
     .arguments = rotate,
     .signature = "angle, axisX, axisY, axisZ, normal,\n"
                  "            softSelectionActive, radius, weightFunction, weightMode, applyMatrix)"},
    {.name = "scale",
     .description = "Scales the currently selected geometry.",
     .returns = "true if any geometry was scaled.",
     .result = Result::boolean,
     .arguments = scale,
     .signature = "scaleX, scaleY, scaleZ,\n"
                  "           softSelectionActive, radius, weightFunction, weightMode, applyMatrix)"},
    {.name = "addTransformationMatrix",
     .description = "Adds a transformation matrix to the selected node.",
     .returns = "true if a transformation matrix was added.",
     .result = Result::boolean,
     .arguments = matrixType,
     .forms = matrixForms,
     .signature = "type, ..."},
    {.name = "getNumTransformationMatrices",
     .description = "Gets the number of transformation matrices of the selected node.",
     .returns = "the number of transformation matrices.",
     .result = Result::integer},
    {.name = "getTransformationMatrixType",
     .description = "Gets the type of a transformation matrix of the selected node.",
     .returns = "the type as addTransformationMatrix takes it, empty string if there is none.",
     .result = Result::text,
     .arguments = index},
    {.name = "getTransformationMatrix",
     .description = "Gets a transformation matrix of the selected node.",
     .returns = "the type, then the numbers of the matrix in the order in which addTransformationMatrix takes them.",
     .result = Result::textAndNumbers,
     .arguments = index},
    {.name = "clearTransformationMatrices",
     .description = "Clears all transformation matrices from the selected node.",
     .returns = "true if any transformation matrices were cleared.",
     .result = Result::boolean},
    {.name = "removeTransformationMatrix",
     .description = "Removes a transformation matrix from the selected node.",
     .returns = "true if a transformation matrix was removed.",
     .result = Result::boolean,
     .arguments = index},
    {.name = "moveTransformationMatrix",
     .description = "Moves a transformation matrix to another place in the list of the selected node.",
     .returns = "true if a transformation matrix was moved.",
     .result = Result::boolean,
     .arguments = fromAndTo},
    {.name = "getAccumulatedTransformationMatrix",
     .description = "Gets the product of all transformation matrices from the root down to the selected node.",
     .returns = "16 numbers, the matrix row after row.",
     .result = Result::matrix},
    {.name = "eliminateTransformationMatrices",
     .description = "Eliminates all transformation matrices recursively in the currently selected sub-tree\n"
                    "and modifies all coordinates accordingly instead.",
     .returns = "true if any transformation matrices were eliminated.",
     .result = Result::boolean},
};

} // namespace

constinit const ApiFamily transforms{
    "Transforms",
    functions,
    "Moving, turning and scaling what is selected: at once, or by a list of transformation matrices that stays with "
    "the "
    "node. Turning and scaling are about the pivot point. With soft selection vertices around the selected ones "
    "follow, "
    "the less the farther they are.",
};

} // namespace nalt::api
