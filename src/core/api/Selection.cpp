#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument selectionMode[] = {
    {"selectionMode", text, oneOf, {}, &selectionModes, "Invalid selection mode."},
};
constexpr ApiArgument addToSelection{"addToSelection", boolean,
                                     "true if the nodes should be added to the current selection.", "false"};

constexpr ApiArgument names[] = {{"nameX", ApiType::names, "The name of node number X."}};
constexpr ApiArgument nameFlags[] = {
    {"caseSensitive", boolean, "true if the names should be compared case sensitively.", "false"},
    addToSelection,
};

constexpr std::string_view attributeModeValues[] = {
    "VERTEX", "POLYGON", "OBJECT", "GROUP", "LOD", "DOF", "EXTERNAL", "SWITCH", "LIGHTPOINT", "LIGHTPOINTSYSTEM",
};
constexpr ApiChoices attributeModes{"AttributeSelectionMode", attributeModeValues};
constexpr ApiArgument condition[] = {
    {"selectionMode", text, oneOf, {}, &attributeModes, "Invalid selection mode for selecting by attributes."},
    {"conditionString", text, "The condition, e.g. \"Name = a and Hidden = 1\"."},
    addToSelection,
    {"indexedLightPoint", boolean, "true if the condition concerns indexed light points.", "false"},
};

constexpr ApiArgument vertexCount[] = {
    {"numVertices", integer, "The number of vertices."},
    {"selectFromCurrent", boolean, "true if only the selected sub-tree should be searched.", "true"},
};
constexpr ApiArgument location[] = {
    {"x", number, "The x coordinate."},
    {"y", number, "The y coordinate."},
};

constexpr std::string_view selected = "true if any primitive was selected.";

constexpr ApiFunction functions[] = {
    {.name = "selectAll",
     .description = "Selects all primitives of a given mode.",
     .returns = selected,
     .result = Result::boolean,
     .arguments = selectionMode},
    {.name = "selectByName",
     .description = "Selects all nodes with at least one specific name.",
     .returns = selected,
     .result = Result::boolean,
     .group = names,
     .last = nameFlags,
     .countError = "Invalid parameters to selectByName.",
     .groupError = "Invalid parameters to selectByName.",
     .signature = "name1, name2, ... , caseSensitive, addToSelection)"},
    {.name = "selectNone", .description = "Clears all selections."},
    {.name = "invertSelection", .description = "Inverts the selection of a given mode.", .arguments = selectionMode},
    {.name = "selectByAttributes",
     .description =
         "Selects all primitives matching a given condition of desired attributes (see documentation for details).",
     .returns = selected,
     .result = Result::boolean,
     .arguments = condition},
    {.name = "getNumSelectedPrimitives",
     .description = "Gets the number of selected primitives of a given mode.",
     .returns = "the number of primitives selected in that mode.",
     .result = Result::integer,
     .arguments = selectionMode},
    {.name = "getTotalNumSelectedPrimitives",
     .description = "Gets the number of selected primitives.",
     .returns = "the number of primitives selected in all modes.",
     .result = Result::integer},
    {.name = "getSelectionNames",
     .description = "Gets the names of all selected primitives.",
     .returns = "a table of the names of all selected primitives, with numeric keys from 1.",
     .result = Result::texts},
    {.name = "convertSelection",
     .description = "Converts the selection to a given mode. E.g., if a number of objects and groups are selected and "
                    "selectionMode is \"POLYGON\", this will select all polygons beneath the objects and groups.",
     .arguments = selectionMode},
    {.name = "selectSliverPolygons",
     .description = "Select thin sliver polygons, defined as polygons with at least one corner\n"
                    "having an angle smaller than the tolerance while the polygon area is smaller than the tolerance.",
     .returns = selected,
     .result = Result::boolean},
    {.name = "selectByNumberOfVertices",
     .description =
         "Selects all polygons in the model (or in the selected sub-tree) having a given number of vertices.",
     .returns = selected,
     .result = Result::boolean,
     .arguments = vertexCount},
    {.name = "selectVerticesByLocation",
     .description = "Selects vertices with a specified two-dimensional x,y position,\n"
                    "regardless of their z coordinate.",
     .returns = selected,
     .result = Result::boolean,
     .arguments = location},
    {.name = "selectParents", .description = "Selects the parents of the currently selected nodes."},
    {.name = "selectChildren", .description = "Selects the child nodes of the currently selected nodes."},
    {.name = "selectPrevious",
     .description = "Selects the previously selected nodes. This will essentially toggle between the two latest "
                    "selections."},
    {.name = "selectNakedEdges",
     .description = "Select edges in currently selected geometry or in the whole model having no\n"
                    "adjacent polygon.",
     .returns = selected,
     .result = Result::boolean},
};

} // namespace

constinit const ApiFamily selection{
    "Selection",
    functions,
    "Most functions work on what is selected. Each family of primitives has its own selection mode, and selections of "
    "several modes stand side by side. A function that finds nothing leaves the selection as it was and gives false. "
    "Parts of a polygon are named by it: \"p1/V0\" is its first vertex, \"p1/E0\" the edge from there to the next. "
    "selectChildren and traverse lead into external references, the others stay outside.",
    "if nalt.selectAll(\"OBJECT\") then\n"
    "  print(nalt.getNumSelectedPrimitives(\"OBJECT\"))\n"
    "  nalt.convertSelection(\"POLYGON\")            -- all polygons below the objects\n"
    "end\n"
    "nalt.selectByName(\"ground\", {\"tower\", \"hangar\"}, true)\n"
    "nalt.selectByName(\"p1/V0\", false, true)       -- one vertex joins\n"
    "for i, name in ipairs(nalt.getSelectionNames()) do print(i, name) end\n",
};

} // namespace nalt::api
