#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument comment[] = {{"comment", text, "The comment."}};

constexpr std::string_view bitsMeaning = "The mask as a text of 0 and 1, one for each child; empty for all children.";
constexpr ApiArgument newMask[] = {
    {"name", text, "The name of the mask."},
    {"bits", text, bitsMeaning, "\"\""},
};
constexpr ApiArgument maskIndex[] = {{"index", integer, "The zero-based index of the mask."}};
constexpr ApiArgument changedMask[] = {
    {"index", integer, "The zero-based index of the mask."},
    {"name", text, "The new name of the mask, or the new mask as a text of 0 and 1."},
    {"bits", text, "The new mask as a text of 0 and 1, one for each child.", "\"\""},
};
constexpr ApiArgument maskAndChild[] = {
    {"maskIndex", integer, "The zero-based index of the mask."},
    {"childIndex", integer, "The zero-based number of the child."},
};

constexpr ApiFunction functions[] = {
    {.name = "applyAttributes",
     .description = "Applies a number of attributes to the selected geometry.",
     .returns = "true if any attribute was applied.",
     .result = Result::boolean,
     .group = attributePairs,
     .countError = "Invalid number of applyAttributes parameters.",
     .groupError = "Parameter %n to applyAttributes for %s is of invalid type.",
     .signature = attributePairsSignature},
    {.name = "setAttributes", .aliasOf = "applyAttributes"},
    {.name = "getAttributes",
     .description = "Gets a number of attributes of the selected geometry.",
     .returns = "one value for each name (boolean, number or string), nil for what isn't available.",
     .result = Result::valuePerName,
     .group = attributeNames,
     .countError = "Invalid number of getAttributes parameters.",
     .signature = "name1, name2, ...)"},
    {.name = "addSwitchMask",
     .description = "Adds a mask to the selected switch.",
     .returns = "true if a mask was added.",
     .result = Result::boolean,
     .arguments = newMask},
    {.name = "deleteSwitchMask",
     .description = "Removes a mask from the selected switch.",
     .returns = "true if a mask was removed.",
     .result = Result::boolean,
     .arguments = maskIndex},
    {.name = "setSwitchMask",
     .description = "Changes a mask of the selected switch.",
     .returns = "true if a mask was changed.",
     .result = Result::boolean,
     .arguments = changedMask},
    {.name = "setActiveSwitchMaskIndex",
     .description = "Makes a mask of the selected switch the current one.",
     .returns = "true if the mask became the current one.",
     .result = Result::boolean,
     .arguments = maskIndex},
    {.name = "getNumSwitchMasks",
     .description = "Gets the number of masks of the selected switch.",
     .returns = "the number of masks, empty string if not exactly one switch is selected.",
     .result = Result::integerOrText},
    {.name = "getSwitchMask",
     .description = "Gets a mask of the selected switch.",
     .returns = "the mask as a text of 0 and 1, one for each child.",
     .result = Result::text,
     .arguments = maskIndex},
    {.name = "getSwitchState",
     .description = "Tells whether a mask of the selected switch shows a child.",
     .returns = "true if the mask shows the child.",
     .result = Result::boolean,
     .arguments = maskAndChild},
    {.name = "getCurrentSwitchMaskIndex",
     .description = "Gets the index of the current mask of the selected switch.",
     .returns = "the zero-based index of the current mask, -1 if there is none.",
     .result = Result::index},
    {.name = "applyComment",
     .description = "Applies a comment to the currently selected nodes.",
     .returns = "true if a comment was applied.",
     .result = Result::boolean,
     .arguments = comment},
    {.name = "setComment", .aliasOf = "applyComment"},
    {.name = "getComment",
     .description = "Gets the comment of the selected node.",
     .returns = "the comment, empty string if not exactly one node is selected.",
     .result = Result::text},
};

} // namespace

constinit const ApiFamily attributes{
    "Attributes and switch masks",
    functions,
    "Attributes are named by their labels in the attribute panels, with or without the colon, in any case. A layer of "
    "a "
    "texture is named behind the label: \"Texture Index (layer 1)\".",
};

} // namespace nalt::api
