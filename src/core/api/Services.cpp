#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument scriptFile[] = {{"scriptFile", file, "The script file to execute."}};
constexpr ApiArgument parameters[] = {
    {"paramNameX", text, "The name of the parameter number X."},
    {"paramValueX", value, "The value for the parameter number X."},
};
constexpr ApiArgument callbacks[] = {
    {"preFunction", function,
     "Called with the type of a node before its children are visited; they are visited if it returns true. nil for "
     "none."},
    {"postFunction", function, "Called with the type of a node after its children were visited. nil for none."},
};
constexpr ApiArgument tolerance[] = {{"value", number, "The new tolerance."}};

constexpr ApiFunction functions[] = {
    {.name = "executeMacro",
     .description = "Executes a macro with parameters.",
     .returns = "true if the macro was executed.",
     .result = Result::boolean,
     .needs = Needs::run,
     .arguments = scriptFile,
     .group = parameters,
     .groupsNeeded = 0,
     .countError = "Invalid number of parameters to executeMacro.",
     .groupError = "Invalid parameter type to executeMacro.",
     .noRunError = "Internal error.",
     .signature = "scriptFile, paramName1, paramValue1, ...)",
     .comment = "--\n"
                "-- nalt.executeMacro(scriptFile, paramName1, paramValue1, ...)\n"
                "-- Executes a macro with parameters.\n"
                "-- scriptFile: The script file to execute.\n"
                "-- paramNameX: The name of the parameter number X.\n"
                "-- paramValueX: The value for the parameter number X."},
    {.name = "traverse",
     .description = "Walks the selected nodes and everything below them and calls a function on each. While a function "
                    "runs, the selection is just the node it was called for. In the end nothing is selected.",
     .arguments = callbacks,
     .countError = "Invalid number of arguments to traverse."},
    {.name = "getNumChildren",
     .description = "Gets the number of children of the selected node.",
     .returns = "the number of children.",
     .result = Result::integer},
    {.name = "getNumVertices",
     .description = "Gets the number of vertices of the selected polygon or light point node.",
     .returns = "the number of vertices.",
     .result = Result::integer},
    {.name = "getTolerance",
     .description = "Gets the tolerance within which geometry counts as equal.",
     .returns = "the tolerance.",
     .result = Result::number,
     .needs = Needs::run},
    {.name = "setTolerance",
     .description = "Sets the tolerance within which geometry counts as equal. It stays when the script has ended.",
     .needs = Needs::run,
     .arguments = tolerance},
};

} // namespace

constinit const ApiFamily services{
    "Script services",
    functions,
    "Other scripts, walks over what is selected, and settings of the program. executeMacro runs another script with "
    "named values as its globals; its error is the caller's. traverse calls functions on nodes and selects each "
    "node for them, so that every other function works on just that node.",
    "local depth = 0\n"
    "nalt.selectAll(\"HEADER\")\n"
    "nalt.traverse(function(kind)\n"
    "  print((\"  \"):rep(depth) .. kind .. \" \" .. (nalt.getSelectionNames()[1] or \"\"))\n"
    "  depth = depth + 1\n"
    "  return kind ~= \"POLYGON\"                   -- not into the vertices\n"
    "end, function() depth = depth - 1 end)\n",
};

} // namespace nalt::api
