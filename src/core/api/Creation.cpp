#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument vertices[] = {
    {"xn", number, "The x coordinate of vertex number n."},
    {"yn", number, "The y coordinate of vertex number n."},
    {"zn", number, "The z coordinate of vertex number n."},
};

constexpr ApiArgument centerX{"centerX", number, "The x coordinate of the center."};
constexpr ApiArgument centerY{"centerY", number, "The y coordinate of the center."};
constexpr ApiArgument centerZ{"centerZ", number, "The z coordinate of the center."};
constexpr ApiArgument borderX{"borderX", number, "The x coordinate of a point on the border."};
constexpr ApiArgument borderY{"borderY", number, "The y coordinate of a point on the border."};
constexpr ApiArgument borderZ{"borderZ", number, "The z coordinate of a point on the border."};
constexpr ApiArgument numSegments{"numSegments", integer, "The number of segments."};

constexpr ApiArgument disk[] = {
    centerX,
    centerY,
    centerZ,
    borderX,
    borderY,
    borderZ,
    {"normalX", number, "The x component of the normal of the disk."},
    {"normalY", number, "The y component of the normal of the disk."},
    {"normalZ", number, "The z component of the normal of the disk."},
    numSegments,
};
constexpr ApiArgument sphere[] = {
    centerX, centerY, centerZ, borderX, borderY, borderZ, {"numRows", integer, "The number of rows."}, numSegments,
};

constexpr ApiArgument externals[] = {{"filenameX", file, "The filename of external model number X."}};
constexpr ApiArgument indexed[] = {{"indexed", boolean, "true if the light point should be an indexed one."}};

constexpr std::string_view creationModeValues[] = {"OBJECT", "GROUP", "LOD", "DOF", "SWITCH", "LIGHTPOINTSYSTEM"};
constexpr ApiChoices creationModes{"CreationMode", creationModeValues};
constexpr ApiArgument creationMode[] = {
    {"selectionMode", text, oneOf, {}, &creationModes, "Invalid selection mode for creation."},
};

constexpr ApiFunction functions[] = {
    {.name = "createPolygon",
     .description = "Creates a polygon.",
     .returns = "the name of the new polygon, empty string if no polygon was created.",
     .result = Result::text,
     .group = vertices,
     .countError = "Incorrect number of arguments for creating polygon.",
     .groupError = "Incorrect argument for creating polygon.",
     .signature = "x1, y1, z1, x2, y2, z2, ... , xn, yn, zn)"},
    {.name = "createDisk",
     .description = "Creates a disk polygon.",
     .returns = "the name of the created disk polygon, empty string if no disk was created.",
     .result = Result::text,
     .arguments = disk},
    {.name = "createSphere",
     .description = "Creates a sphere.",
     .returns = "the name of the created sphere object node, empty string if no sphere was created.",
     .result = Result::text,
     .arguments = sphere},
    {.name = "createExternals",
     .description = "Creates one or more external references.",
     .returns = "true if any external reference nodes were created.",
     .result = Result::boolean,
     .group = externals,
     .countError = "Invalid number of createExternals parameters.",
     .signature = "filename1, filename2, ...)"},
    {.name = "createLightPoint",
     .description = "Creates a light point node with one or more light point vertices.",
     .returns = "the name of the new light point node, empty string if no light point node was created.",
     .result = Result::text,
     .arguments = indexed,
     .group = vertices,
     .countError = "Incorrect number of arguments for creating light point.",
     .groupError = "Incorrect argument for creating light point.",
     .signature = "indexed, x1, y1, z1, x2, y2, z2, ... , xn, yn, zn)"},
    {.name = "create",
     .description = "Creates a primitive of given type.",
     .returns = "the name of the new node, empty string if no node was created.",
     .result = Result::text,
     .arguments = creationMode},
};

} // namespace

constinit const ApiFamily creation{
    "Creation",
    functions,
    "New geometry goes below the current parent and gets a name of its own, which the functions give back.",
};

} // namespace nalt::api
