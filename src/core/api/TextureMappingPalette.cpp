#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument index{"index", integer, "The palette index of the texture mapping."};
constexpr ApiArgument onlyIndex[] = {index};
constexpr ApiArgument pointNumber{"number", integer, "The zero-based number of the point."};
constexpr ApiArgument point[] = {index, pointNumber};
constexpr ApiArgument pointUv[] = {
    index,
    pointNumber,
    {"u", ApiType::number, "The new u coordinate."},
    {"v", ApiType::number, "The new v coordinate."},
};
constexpr ApiArgument name[] = {index, {"name", text, "The new name."}};
constexpr ApiArgument repetitions[] = {index, {"repetitions", ApiType::number, "The new number of repetitions."}};
constexpr ApiArgument openedPalette[] = {{"filename", file, "The filename of the texture mapping palette on disk."}};

constexpr std::string_view changed = "true if a texture mapping was changed.";

constexpr ApiFunction functions[] = {
    {.name = "setCurrentTextureMappingIndex",
     .description = "Sets the current texture mapping index for the current model.",
     .arguments = onlyIndex},
    {.name = "getCurrentTextureMappingIndex",
     .description = "Gets the current texture mapping index for the current model.",
     .returns = "the current texture mapping index, -1 if there is none.",
     .result = Result::index},
    {.name = "changeTextureMappingIndex",
     .description = "Changes the palette index of a given texture mapping.",
     .returns = indexChanged,
     .result = Result::boolean,
     .arguments = oldAndNewIndex},
    {.name = "openTextureMappingPalette",
     .description = "Opens a palette of texture mappings from disk.",
     .returns = openedCorrectly,
     .result = Result::boolean,
     .arguments = openedPalette},
    {.name = "saveTextureMappingPalette",
     .description = "Saves the current texture mapping palette to a file on disk.",
     .returns = savedCorrectly,
     .result = Result::boolean,
     .arguments = savedPalette},
    {.name = "removeTextureMappingFromPalette",
     .description = "Removes the texture mapping at the specified index from the palette.",
     .returns = "true if a texture mapping was removed.",
     .result = Result::boolean,
     .arguments = onlyIndex},
    {.name = "removeUnusedTextureMappingsFromPalette",
     .description = "Removes all unused texture mappings from the palette.",
     .returns = "true if any texture mappings was removed.",
     .result = Result::boolean},
    {.name = "getMaxTextureMappingIndex",
     .description = "Gets the highest palette index of all texture mappings.",
     .returns = "the highest index used, -1 if there is none.",
     .result = Result::index},
    {.name = "setTextureMappingName",
     .description = "Sets the name of the texture mapping at the specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = name},
    {.name = "getTextureMappingName",
     .description = "Gets the name of the texture mapping at the specified index.",
     .returns = "the name, empty string if there is no such texture mapping.",
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "getTextureMappingType",
     .description = "Gets the type of the texture mapping at the specified index.",
     .returns = "the type as mapTexture takes it, empty string if there is no such texture mapping.",
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "setTextureMappingUV",
     .description = "Sets the texture coordinate of a given point in the texture mapping at the specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = pointUv,
     .signature = "index, number, u,v)"},
    {.name = "getTextureMappingUV",
     .description = "Gets the texture coordinate of a given point in the texture mapping at the specified index.",
     .returns = "u and v.",
     .result = Result::uv,
     .arguments = point},
    {.name = "setTextureMappingRepetitions",
     .description = "Sets the number of repetitions of the texture mapping at the specified index; only valid for "
                    "cylindrical and spherical mappings.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = repetitions},
    {.name = "getTextureMappingRepetitions",
     .description = "Gets the number of repetitions of the texture mapping at the specified index.",
     .returns = "the number of repetitions.",
     .result = Result::number,
     .arguments = onlyIndex},
};

} // namespace

constinit const ApiFamily textureMappingPalette{
    "Texture mapping palette",
    functions,
    "Recipes for laying a texture on geometry.",
};

} // namespace nalt::api
