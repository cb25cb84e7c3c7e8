#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr std::string_view layerMeaning = "The texture layer, 0 - 7.";
constexpr std::string_view badLayer = "Invalid texture mapping layer index.";
constexpr int lastLayer = 7;
constexpr ApiArgument layer{"layer", integer, layerMeaning, {}, nullptr, badLayer, lastLayer};
constexpr ApiArgument optionalLayer{"layer", integer, layerMeaning, "0", nullptr, badLayer, lastLayer};

constexpr ApiArgument mapTexture[] = {
    {"type", text, oneOf, {}, &mappingTypes, "Invalid texture mapping type."},
    layer,
    {"addToPalette", boolean, "true if the texture mapping should be added to the palette."},
};
constexpr ApiArgument threePoint[] = {
    {"x1", number, "The coordinates of a point; those of the other points follow."},
    {"y1", number, ""},
    {"z1", number, ""},
    {"x2", number, ""},
    {"y2", number, ""},
    {"z2", number, ""},
    {"x3", number, ""},
    {"y3", number, ""},
    {"z3", number, ""},
    {"u1", number, "The texture coordinate of the first point; those of the other points follow."},
    {"v1", number, ""},
    {"u2", number, ""},
    {"v2", number, ""},
    {"u3", number, ""},
    {"v3", number, ""},
};
constexpr ApiArgument fourPoint[] = {
    {"x1", number, "The coordinates of a point; those of the other points follow."},
    {"y1", number, ""},
    {"z1", number, ""},
    {"x2", number, ""},
    {"y2", number, ""},
    {"z2", number, ""},
    {"x3", number, ""},
    {"y3", number, ""},
    {"z3", number, ""},
    {"x4", number, ""},
    {"y4", number, ""},
    {"z4", number, ""},
    {"u1", number, "The texture coordinate of the first point; those of the other points follow."},
    {"v1", number, ""},
    {"u2", number, ""},
    {"v2", number, ""},
    {"u3", number, ""},
    {"v3", number, ""},
    {"u4", number, ""},
    {"v4", number, ""},
};

constexpr ApiArgument zeroX{"zeroX", number, "The x coordinate of the point at angle zero."};
constexpr ApiArgument zeroY{"zeroY", number, "The y coordinate of the point at angle zero."};
constexpr ApiArgument zeroZ{"zeroZ", number, "The z coordinate of the point at angle zero."};
constexpr ApiArgument repetitions{"repetitions", number, "How often the texture goes round."};
constexpr ApiArgument u0{"u0", number, "The texture coordinate of the first corner; those of the other corners follow.",
                         "0"};
constexpr ApiArgument v0{"v0", number, "", "0"};
constexpr ApiArgument u1{"u1", number, "", "1"};
constexpr ApiArgument v1{"v1", number, "", "0"};
constexpr ApiArgument u2{"u2", number, "", "1"};
constexpr ApiArgument v2{"v2", number, "", "1"};
constexpr ApiArgument u3{"u3", number, "", "0"};
constexpr ApiArgument v3{"v3", number, "", "1"};

constexpr ApiArgument cylindrical[] = {
    {"lowerX", number, "The x coordinate of the lower center."},
    {"lowerY", number, "The y coordinate of the lower center."},
    {"lowerZ", number, "The z coordinate of the lower center."},
    {"upperX", number, "The x coordinate of the upper center."},
    {"upperY", number, "The y coordinate of the upper center."},
    {"upperZ", number, "The z coordinate of the upper center."},
    zeroX,
    zeroY,
    zeroZ,
    repetitions,
    u0,
    v0,
    u1,
    v1,
    u2,
    v2,
    u3,
    v3,
};
constexpr ApiArgument spherical[] = {
    {"centerX", number, "The x coordinate of the center."},
    {"centerY", number, "The y coordinate of the center."},
    {"centerZ", number, "The z coordinate of the center."},
    {"poleX", number, "The x coordinate of the pole."},
    {"poleY", number, "The y coordinate of the pole."},
    {"poleZ", number, "The z coordinate of the pole."},
    zeroX,
    zeroY,
    zeroZ,
    repetitions,
    u0,
    v0,
    u1,
    v1,
    u2,
    v2,
    u3,
    v3,
};
constexpr ApiForm mappingForms[] = {
    {"THREEPOINT", threePoint, "x1, y1, z1, x2, y2, z2, x3, y3, z3, u1, v1, u2, v2, u3, v3)"},
    {"FOURPOINT", fourPoint, "x1, y1, z1, ... , x4, y4, z4, u1, v1, ... , u4, v4)"},
    {"CYLINDRICAL", cylindrical},
    {"SPHERICAL", spherical},
};

constexpr ApiArgument move[] = {
    {"x", number, "The movement along x."},
    {"y", number, "The movement along y."},
    {"z", number, "The movement along z."},
    optionalLayer,
    {"freezeX", boolean, "true if the x axis is frozen.", "false"},
    {"freezeY", boolean, "true if the y axis is frozen.", "false"},
    {"freezeZ", boolean, "true if the z axis is frozen.", "false"},
};
constexpr ApiArgument rotate[] = {
    {"angle", number, "The angle in degrees."},
    {"axisX", number, "The x component of the rotation axis."},
    {"axisY", number, "The y component of the rotation axis."},
    {"axisZ", number, "The z component of the rotation axis."},
    optionalLayer,
};
constexpr ApiArgument scale[] = {
    {"scaleX", number, "The scale factor along x."},
    {"scaleY", number, "The scale factor along y."},
    {"scaleZ", number, "The scale factor along z."},
    optionalLayer,
};

constexpr ApiArgument onlyLayer[] = {layer};
constexpr ApiArgument modified[] = {
    {"vertexNameX", text, "The name of vertex number X, such as \"p19/V2\"."},
    {"uX", number, "The new u coordinate of vertex number X."},
    {"vX", number, "The new v coordinate of vertex number X."},
};

constexpr ApiFunction functions[] = {
    {.name = "mapTexture",
     .description = "Maps the current texture onto the currently selected geometry.",
     .returns = "true if any texture was mapped.",
     .result = Result::boolean,
     .arguments = mapTexture,
     .forms = mappingForms,
     .countError = "Invalid number of mapTexture parameters.",
     .signature = "type, layer, addToPalette, ..."},
    {.name = "moveTextureMap",
     .description = "Moves the texture over the currently selected geometry.",
     .returns = "true if any texture coordinate was changed.",
     .result = Result::boolean,
     .arguments = move,
     .commentName = "moveTexmap"},
    {.name = "rotateTextureMap",
     .description = "Rotates the texture on the currently selected geometry.",
     .returns = "true if any texture coordinate was changed.",
     .result = Result::boolean,
     .arguments = rotate,
     .commentName = "rotateTexmap"},
    {.name = "scaleTextureMap",
     .description = "Scales the texture on the currently selected geometry.",
     .returns = "true if any texture coordinate was changed.",
     .result = Result::boolean,
     .arguments = scale,
     .commentName = "scaleTexmap"},
    {.name = "modifyUV",
     .description = "Modifies the texture coordinate of one or more given vertices.",
     .returns = "true if any texture coordinate was changed.",
     .result = Result::boolean,
     .arguments = onlyLayer,
     .group = modified,
     .countError = "Invalid number of modifyUV parameters.",
     // "u2, u2" stays as it is.
     .signature = "layer, vertexName1, u1, v1, vertexName2, u2, u2, ...)"},
};

} // namespace

constinit const ApiFamily textureCoordinates{
    "Texture coordinates",
    functions,
    "Layers count from 0 to 7. A form of mapTexture is chosen by its type.",
};

} // namespace nalt::api
