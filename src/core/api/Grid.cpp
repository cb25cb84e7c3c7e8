#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument spacing[] = {{"spacing", number, "The spacing between the grid lines."}};
constexpr ApiArgument offset[] = {{"offset", number, "The distance along the grid normal."}};
constexpr ApiArgument origin[] = {
    {"originX", number, "The x coordinate of the new point."},
    {"originY", number, "The y coordinate of the new point."},
    {"originZ", number, "The z coordinate of the new point."},
};
constexpr ApiArgument pointOnAxis[] = {
    {"pointOnAxisX", number, "The x coordinate of the new point."},
    {"pointOnAxisY", number, "The y coordinate of the new point."},
    {"pointOnAxisZ", number, "The z coordinate of the new point."},
};
constexpr ApiArgument thirdPoint[] = {
    {"thirdPointX", number, "The x coordinate of the new point."},
    {"thirdPointY", number, "The y coordinate of the new point."},
    {"thirdPointZ", number, "The z coordinate of the new point."},
};

constexpr ApiFunction functions[] = {
    {.name = "setXYGrid", .description = "Sets the grid to be aligned to the XY plane with the origin at (0,0,0)."},
    {.name = "setXZGrid", .description = "Sets the grid to be aligned to the XZ plane with the origin at (0,0,0)."},
    {.name = "setYZGrid", .description = "Sets the grid to be aligned to the YZ plane with the origin at (0,0,0)."},
    {.name = "setGridSpacing", .description = "Sets the grid spacing.", .arguments = spacing},
    {.name = "addGridOffset",
     .description = "Offsets the grid in the direction of the grid normal.",
     .arguments = offset},
    {.name = "setGridOrigin",
     .description = "Changes the grid origin, the grid will still be aligned as before but translated so that the grid "
                    "origin is at the new origin position.",
     .arguments = origin},
    {.name = "setGridPointOnAxis",
     .description = "Changes the grid point on axis, the grid will be rotated around the axis from the origin to the "
                    "third point so that the point on axis lies on one of the grid axes.",
     .arguments = pointOnAxis},
    {.name = "setGridThirdPoint",
     .description = "Changes the grid third point, the grid will be rotated around the axis from the origin to the "
                    "point on axis so that the third point lies on the grid plane.",
     .arguments = thirdPoint},
    {.name = "alignGridToPolygon",
     .description = "Aligns the grid to the currently selected polygon, if any.",
     .returns = "true if alignment was successful.",
     .result = Result::boolean},
    {.name = "getGridOrigin",
     .description = "Gets the grid origin.",
     .returns = "x, y and z of the grid origin.",
     .result = Result::point},
    {.name = "getGridPointOnAxis",
     .description = "Gets the grid point on axis.",
     .returns = "x, y and z of the grid point on axis.",
     .result = Result::point},
    {.name = "getGridThirdPoint",
     .description = "Gets the grid third point.",
     .returns = "x, y and z of the grid third point.",
     .result = Result::point},
};

} // namespace

constinit const ApiFamily grid{
    "Grid",
    functions,
    "Three points lay the grid: its origin, a point on its first axis, and a third one in its plane. They are kept as "
    "they are given. Each model has its own grid; undo leaves it alone.",
    "nalt.setXYGrid()\n"
    "nalt.setGridOrigin(10, 0, 2)                  -- all three points move along\n"
    "nalt.addGridOffset(-2)                        -- back down, along the normal\n"
    "print(nalt.getGridOrigin())                   -- 10 0 0\n"
    "nalt.setGridSpacing(0.5)\n",
};

} // namespace nalt::api
