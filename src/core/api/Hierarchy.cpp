#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr std::string_view shifted = "true if any nodes were shifted.";

constexpr ApiFunction functions[] = {
    {.name = "cut", .description = "Cuts the currently selected nodes to the clipboard."},
    {.name = "copy", .description = "Copies the currently selected nodes to the clipboard."},
    {.name = "paste", .description = "Pastes the contents of the clipboard under the current parent."},
    {.name = "delete", .description = "Deletes the currently selected nodes."},
    {.name = "setParent", .description = "Sets the parent to the currently selected node."},
    {.name = "getParent",
     .description = "Gets the name of the current parent.",
     .returns = "the name of the current parent.",
     .result = Result::text},
    {.name = "changeParent", .description = "Moves the currently selected nodes to the current parent."},
    {.name = "shiftFarLeft",
     .description = "Shift selected nodes all the way to the left.",
     .returns = shifted,
     .result = Result::boolean},
    {.name = "shiftLeft",
     .description = "Shift selected nodes one step to the left.",
     .returns = shifted,
     .result = Result::boolean},
    {.name = "shiftRight",
     .description = "Shift selected nodes one step to the right.",
     .returns = shifted,
     .result = Result::boolean},
    {.name = "shiftFarRight",
     .description = "Shift selected nodes all the way to the right.",
     .returns = shifted,
     .result = Result::boolean},
};

} // namespace

constinit const ApiFamily hierarchy{
    "Hierarchy and clipboard",
    functions,
    "What the Edit menu does with the selected nodes. New and pasted nodes go to the current parent, which is the "
    "header "
    "of a new or opened model.",
    "nalt.selectNone()\n"
    "if nalt.selectSliverPolygons() then nalt.delete() end\n"
    "print(nalt.getParent())                       -- the name of the header\n",
};

} // namespace nalt::api
