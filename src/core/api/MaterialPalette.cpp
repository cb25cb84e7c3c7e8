#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument index{"index", integer, "The palette index of the material."};
constexpr ApiArgument onlyIndex[] = {index};
constexpr ApiArgument color[] = {
    index,
    {"red", integer, "The red channel, 0 - 255."},
    {"green", integer, "The green channel, 0 - 255."},
    {"blue", integer, "The blue channel, 0 - 255."},
};
constexpr ApiArgument shininess[] = {index, {"shininess", number, "The shininess, 0 - 128."}};
constexpr ApiArgument alpha[] = {index, {"alpha", number, "The alpha, 0 - 1."}};
constexpr ApiArgument openedPalette[] = {{"filename", file, "The filename of the material palette on disk."}};

constexpr std::string_view changed = "true if a material was changed.";
constexpr std::string_view channels = "red, green and blue, each 0 - 255.";

constexpr ApiFunction functions[] = {
    {.name = "newMaterial",
     .description = "Creates a new material in the palette.",
     .returns = "the palette index of the new material.",
     .result = Result::index},
    {.name = "getMaxMaterialIndex",
     .description = "Gets the highest palette index of all materials.",
     .returns = "the highest index used, -1 if there is none.",
     .result = Result::index},
    {.name = "setCurrentMaterialIndex",
     .description = "Sets the current material index for the current model.",
     .arguments = onlyIndex},
    {.name = "getCurrentMaterialIndex",
     .description = "Gets the current material index for the current model.",
     .returns = "the current material index, -1 if there is none.",
     .result = Result::index},
    {.name = "changeMaterialIndex",
     .description = "Changes the palette index of a given material.",
     .returns = indexChanged,
     .result = Result::boolean,
     .arguments = oldAndNewIndex},
    {.name = "openMaterialPalette",
     .description = "Opens a palette of materials from disk.",
     .returns = openedCorrectly,
     .result = Result::boolean,
     .arguments = openedPalette},
    {.name = "saveMaterialPalette",
     .description = "Saves the current material palette to a file on disk.",
     .returns = savedCorrectly,
     .result = Result::boolean,
     .arguments = savedPalette},
    {.name = "removeMaterialFromPalette",
     .description = "Removes the material at the specified index from the palette.",
     .returns = "true if a material was removed.",
     .result = Result::boolean,
     .arguments = onlyIndex},
    {.name = "removeUnusedMaterialsFromPalette",
     .description = "Removes all unused materials from the palette.",
     .returns = "true if any materials was removed.",
     .result = Result::boolean},
    {.name = "setMaterialAmbient",
     .description = "Sets the ambient color of the material with the given index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = color},
    {.name = "getMaterialAmbient",
     .description = "Gets the ambient color of the material with the given index.",
     .returns = channels,
     .result = Result::color,
     .arguments = onlyIndex},
    {.name = "setMaterialDiffuse",
     .description = "Sets the diffuse color of the material with the given index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = color},
    {.name = "getMaterialDiffuse",
     .description = "Gets the diffuse color of the material with the given index.",
     .returns = channels,
     .result = Result::color,
     .arguments = onlyIndex},
    {.name = "setMaterialSpecular",
     .description = "Sets the specular color of the material with the given index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = color},
    {.name = "getMaterialSpecular",
     .description = "Gets the specular color of the material with the given index.",
     .returns = channels,
     .result = Result::color,
     .arguments = onlyIndex},
    {.name = "setMaterialEmissive",
     .description = "Sets the emissive color of the material with the given index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = color},
    {.name = "getMaterialEmissive",
     .description = "Gets the emissive color of the material with the given index.",
     .returns = channels,
     .result = Result::color,
     .arguments = onlyIndex},
    {.name = "setMaterialShininess",
     .description = "Sets the shininess of the material with the given index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = shininess},
    {.name = "getMaterialShininess",
     .description = "Gets the shininess of the material with the given index.",
     .returns = "the shininess, 0 - 128.",
     .result = Result::number,
     .arguments = onlyIndex},
    {.name = "setMaterialAlpha",
     .description = "Sets the alpha of the material with the given index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = alpha},
    {.name = "getMaterialAlpha",
     .description = "Gets the alpha of the material with the given index.",
     .returns = "the alpha, 0 - 1.",
     .result = Result::number,
     .arguments = onlyIndex},
};

} // namespace

constinit const ApiFamily materialPalette{
    "Material palette",
    functions,
    "The materials of a model. Colors are 0 to 255 in scripts, whatever the file holds.",
};

} // namespace nalt::api
