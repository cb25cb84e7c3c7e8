#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument pivot[] = {
    {"x", number, "The x coordinate of the new pivot point."},
    {"y", number, "The y coordinate of the new pivot point."},
    {"z", number, "The z coordinate of the new pivot point."},
};
constexpr ApiArgument statistics[] = {{"nameX", text, "The name of statistic number X."}};

constexpr std::string_view sourceValues[] = {"CLIPBOARD", "FILE"};
constexpr ApiChoices sources{"DifferencesSource", sourceValues};
constexpr ApiArgument source[] = {{"source", text, oneOf, {}, &sources, "Invalid differences source type."}};
constexpr ApiArgument ignoreRevisionDate{"ignoreRevisionDate", boolean,
                                         "true if the dates of the last revision may differ.", "false"};
constexpr ApiArgument ignoreDatabaseVersion{"ignoreDatabaseVersion", boolean,
                                            "true if the versions of the databases may differ.", "false"};
constexpr ApiArgument toClipboard[] = {ignoreRevisionDate, ignoreDatabaseVersion};
constexpr ApiArgument toFile[] = {
    {"filename", file, "The filename of the model to compare with."},
    ignoreRevisionDate,
    ignoreDatabaseVersion,
};
constexpr ApiForm differencesForms[] = {{"CLIPBOARD", toClipboard}, {"FILE", toFile}};

constexpr ApiFunction functions[] = {
    {.name = "changePivot",
     .description = "Changes the position of the pivot point to a given point.",
     .arguments = pivot},
    {.name = "getPivot",
     .description = "Gets the position of the pivot point.",
     .returns = "x, y and z of the pivot point.",
     .result = Result::point},
    {.name = "reportStatistics",
     .description = "Counts what the selected geometry, or the whole model, contains.",
     .returns = "one number for each name.",
     .result = Result::numberPerName,
     .group = statistics,
     .countError = "Invalid number of reportStatistics parameters.",
     .signature = "name1, name2, ...)"},
    {.name = "reportDifferences",
     .description = "Compares the selected geometry, or the whole model, with the clipboard or with a file.",
     .returns = "the report, empty string if there are no differences.",
     .result = Result::text,
     .arguments = source,
     .forms = differencesForms,
     .signature = "source, ..."},
};

} // namespace

constinit const ApiFamily reports{
    "Pivot and reports",
    functions,
    "The pivot point lies in the centre of what is selected, until it is set elsewhere.",
    "if nalt.selectAll(\"POLYGON\") then\n"
    "  local x, y, z = nalt.getPivot()             -- the centre of all polygons\n"
    "  print(x, y, z)\n"
    "end\n",
};

} // namespace nalt::api
