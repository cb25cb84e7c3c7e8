#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument slice[] = {
    {"sliceAlongGridPlane", boolean,
     "true to slice along the grid plane, false to slice along the grid lines, like a cookie-cutter."},
};

constexpr ApiArgument extrude[] = {{"keepFloor", boolean, "true if the floor should be kept."}};
constexpr ApiArgument toPoint[] = {
    {"x", number, "The x coordinate of the point to which the extrusion goes."},
    {"y", number, "The y coordinate of the point to which the extrusion goes."},
    {"z", number, "The z coordinate of the point to which the extrusion goes."},
    {"sharedAxis", boolean,
     "true to use the extrusion axis from the pivot point of the selected polygons to the indicated point."},
};
constexpr ApiArgument byHeight[] = {{"height", number, "The distance along the normal of each polygon."}};
constexpr ApiForm extrudeForms[] = {{"POINT", toPoint}, {"HEIGHT", byHeight}};

constexpr ApiArgument revolve[] = {
    {"x", number, "The x component of the revolve axis."},
    {"y", number, "The y component of the revolve axis."},
    {"z", number, "The z component of the revolve axis."},
    {"angle", number, "The angle in degrees."},
    {"numSteps", integer, "The number of steps."},
    {"revolveNormals", boolean, "true if vertex normals should be revolved.", "false"},
};

constexpr ApiArgument subdivide[] = {
    {"iterations", integer, "The number of subdividing iterations."},
    {"subdivideBorders", boolean, "true if borders should be subdivided.", "false"},
};

constexpr ApiArgument simplify[] = {
    {"level", number, "The simplify level (0 - 1)."},
    {"weightRatio", number, "Edge length (0) to normal deviation (1).", "0"},
    {"boundaryLevel", number, "The boundary level (0 - 1).", "0"},
    {"boundaryWeightRatio", number, "Edge length (0) to edge angles (1).", "0"},
    {"vertexWeightEqual", boolean, "true if all vertices weigh the same.", "true"},
};

constexpr ApiArgument merge[] = {{"loose", boolean, "true to not consider same plane.", "false"}};
constexpr ApiArgument quantify[] = {{"quantification", number, "The value that all coordinates become multiples of."}};

constexpr ApiArgument shade[] = {
    {"flat", boolean, "true if the polygons should be flat shaded."},
    {"updateLightMode", boolean, "true if the polygon light mode should be updated."},
    {"vertexColorLit", boolean,
     "true if the polygon light mode should be set to 'vertex color lit', false if 'polygon color lit'.", "false"},
    {"creaseAngle", number, "The crease angle to use when smooth shading.", "180"},
};

constexpr ApiFunction functions[] = {
    {.name = "mirror",
     .description = "Mirrors the selected nodes with respect to the grid plane.",
     .returns = "true if any geometry was mirrored.",
     .result = Result::boolean},
    {.name = "reverse",
     .description = "Reverses the polygons in the current selection.",
     .returns = "true if any polygons were reversed.",
     .result = Result::boolean},
    {.name = "slice",
     .description = "Slices the currently selected geometry either along the grid plane or along the grid lines.",
     .returns = "true if any geometry was sliced.",
     .result = Result::boolean,
     .arguments = slice},
    {.name = "split",
     .description = "Splits selected edges in halves, triangulates selected polygons and splits polygons between "
                    "selected vertices.",
     .returns = "true if any geometry was split.",
     .result = Result::boolean},
    {.name = "extrude",
     .description = "Extrudes the currently selected polygons.",
     .returns = "true if any geometry was extruded.",
     .result = Result::boolean,
     .arguments = extrude,
     .forms = extrudeForms,
     .formBy = ApiFormBy::count,
     .countError = "Invalid number of extrude parameters.",
     .signature = "keepFloor, ..."},
    {.name = "revolve",
     .description = "Revolves the currently selected polygons around a specific axis. Note that the revolve origin is "
                    "the current pivot point.",
     .returns = "true if any geometry was revolved.",
     .result = Result::boolean,
     .arguments = revolve},
    {.name = "subdivide",
     .description = "Increases the complexity of the selected geometry by subdividing the current polygons.",
     .returns = "true if any geometry was subdivided.",
     .result = Result::boolean,
     .arguments = subdivide},
    {.name = "simplify",
     .description = "Reduces the complexity of the selected geometry.",
     .returns = "true if any geometry was simplified.",
     .result = Result::boolean,
     .arguments = simplify},
    {.name = "merge",
     .description = "Merges all polygons in the selected sub-tree that are adjacent and in the same plane.",
     .returns = "true if any polygons were merged.",
     .result = Result::boolean,
     .arguments = merge},
    {.name = "quantify",
     .description = "Quantifies all selected vertices to a specific value.",
     .returns = "true if any vertices were quantified.",
     .result = Result::boolean,
     .arguments = quantify},
    {.name = "shade",
     .description = "Smooth or flat shades polygons in the selected geometry.",
     .returns = "true if any polygons were shaded.",
     .result = Result::boolean,
     .arguments = shade},
};

} // namespace

constinit const ApiFamily geometry{
    "Geometry tools",
    functions,
    "What the tools of the MODIFY group do. None changes what an external reference shows.",
};

} // namespace nalt::api
