#pragma once

#include "core/api/Families.h"

/// Words that the rows of several families share.
namespace nalt::api {

using enum ApiType;
using Result = ApiResult;
using Needs = ApiNeeds;

inline constexpr std::string_view selectionModeValues[] = {
    "VERTEX",   "EDGE",   "POLYGON",    "OBJECT",           "GROUP",  "LOD", "DOF",
    "EXTERNAL", "SWITCH", "LIGHTPOINT", "LIGHTPOINTSYSTEM", "HEADER",
};
inline constexpr ApiChoices selectionModes{"SelectionMode", selectionModeValues};

/// Ends in ":", so that the choices follow.
inline constexpr std::string_view oneOf = "One of the following strings:";

inline constexpr std::string_view mappingTypeValues[] = {"THREEPOINT", "FOURPOINT", "CYLINDRICAL", "SPHERICAL"};
inline constexpr ApiChoices mappingTypes{"TextureMappingType", mappingTypeValues};

inline constexpr std::string_view openedCorrectly = "true if the palette was opened correctly.";
inline constexpr std::string_view savedCorrectly = "true if the palette was saved correctly.";
inline constexpr std::string_view indexChanged = "true if the index change was successful.";

inline constexpr ApiArgument savedPalette[] = {{"filename", file, "The filename of the saved palette."}};
inline constexpr ApiArgument oldAndNewIndex[] = {
    {"oldIndex", integer, "The present index."},
    {"newIndex", integer, "The new index."},
};

/// Pairs of a name and a value, as the functions that set attributes take them.
inline constexpr ApiArgument attributePairs[] = {
    {"nameX", text, "The name of attribute number X."},
    {"attributeX", value, "The value of attribute number X (boolean, number or string)."},
};
inline constexpr ApiArgument attributeNames[] = {{"nameX", text, "The name of attribute number X."}};
inline constexpr std::string_view attributePairsSignature = "name1, attribute1, name2, attribute2, ...)";

} // namespace nalt::api
