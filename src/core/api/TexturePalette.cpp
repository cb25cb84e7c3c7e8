#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument index{"index", integer, "The palette index of the texture."};
constexpr ApiArgument filename{"filename", file, "The filename of the texture."};

constexpr ApiArgument onlyIndex[] = {index};
constexpr ApiArgument onlyFilename[] = {filename};
constexpr ApiArgument indexAndFilename[] = {index, filename};
constexpr ApiArgument filenames[] = {{"filenameX", file, "The filename of texture number X."}};
constexpr ApiArgument openedPalette[] = {{"filename", file, "The filename of the texture palette on disk."}};
constexpr ApiArgument path[] = {{"path", file, "The new path."}};

constexpr ApiFunction functions[] = {
    {.name = "loadTexture",
     .description = "Loads a texture into the texture palette.",
     .returns = "the index of the new texture, -1 if loading failed.",
     .result = Result::index,
     .arguments = onlyFilename},
    {.name = "loadTextures",
     .description = "Loads a number of textures into the texture palette.",
     .returns = "true if all textures were loaded.",
     .result = Result::boolean,
     .group = filenames,
     .signature = "filename1, filename2, ...)"},
    {.name = "replaceTexture",
     .description = "Replaces the texture at a specified index with a new texture with a given filename.",
     .returns = "true if replacing was successful, i.e. if the index was valid and a new texture was loaded.",
     .result = Result::boolean,
     .arguments = indexAndFilename},
    {.name = "getTextureIndex",
     .description = "Gets the palette index of the texture with a given filename.",
     .returns = "the palette index, -1 if there is no such texture.",
     .result = Result::index,
     .arguments = onlyFilename},
    {.name = "getMaxTextureIndex",
     .description = "Gets the highest palette index of all textures.",
     .returns = "the highest index used, -1 if there is none.",
     .result = Result::index},
    {.name = "getTextureFilename",
     .description = "Gets the filename of the texture at the specified index.",
     .returns = "the filename as it stands in the palette, empty string if there is no such texture.",
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "getTextureSize",
     .description = "Gets the size of the texture at the specified index.",
     .returns = "width and height in pixels, -1 and -1 if there is no such texture.",
     .result = Result::size,
     .arguments = onlyIndex},
    {.name = "setCurrentTextureIndex",
     .description = "Sets the current texture index for the current model.",
     .arguments = onlyIndex},
    {.name = "getCurrentTextureIndex",
     .description = "Gets the current texture index for the current model.",
     .returns = "the current texture index, -1 if there is none.",
     .result = Result::index},
    {.name = "changeTextureIndex",
     .description = "Changes the palette index of a given texture.",
     .returns = indexChanged,
     .result = Result::boolean,
     .arguments = oldAndNewIndex},
    {.name = "openTexturePalette",
     .description = "Opens a palette of textures from disk.",
     .returns = openedCorrectly,
     .result = Result::boolean,
     .arguments = openedPalette},
    {.name = "saveTexturePalette",
     .description = "Saves the current texture palette to a file on disk.",
     .returns = savedCorrectly,
     .result = Result::boolean,
     .arguments = savedPalette},
    {.name = "removeTextureFromPalette",
     .description = "Removes the texture at the specified index from the palette.",
     .returns = "true if a texture was removed.",
     .result = Result::boolean,
     .arguments = onlyIndex},
    {.name = "removeUnusedTexturesFromPalette",
     .description = "Removes all unused textures from the palette.",
     .returns = "true if any textures was removed.",
     .result = Result::boolean},
    {.name = "removeTexturePath",
     .description = "Removes the path for the texture with a specified index.",
     .returns = "true if the path removal was successful.",
     .result = Result::boolean,
     .arguments = onlyIndex},
    {.name = "changeAllTexturePaths",
     .description = "Changes the path for all textures in the palette.",
     .arguments = path},
    {.name = "removeAllTexturePaths", .description = "Removes the paths for all textures in the palette."},
    {.name = "makeTexturePathsRelative",
     .description = "Update all texture paths in the texture palette to be relative to the current model file path."},
    {.name = "makeTexturePathsAbsolute",
     .description = "Update all texture paths in the texture palette to be absolute, by appending the model file path "
                    "to the relative paths."},
    {.name = "applyTextureAttributes",
     .description = "Applies a number of texture attributes to the texture with the selected index and saves the "
                    "corresponding attribute file.",
     .returns = "true if any texture attribute was applied.",
     .result = Result::boolean,
     .arguments = onlyIndex,
     .group = attributePairs,
     .countError = "Invalid number of applyTextureAttributes parameters.",
     .groupError = "Parameter %n to applyTextureAttributes for %s is of invalid type.",
     .signature = "index, name1, attribute1, name2, attribute2, ...)"},
    {.name = "setTextureAttributes", .aliasOf = "applyTextureAttributes"},
    {.name = "getTextureAttributes",
     .description = "Gets a number of texture attributes of the texture with the selected index.",
     .returns = "one value for each name (boolean, number or string), nil for what isn't available.",
     .result = Result::valuePerName,
     .arguments = onlyIndex,
     .group = attributeNames,
     .countError = "Invalid number of getTextureAttributes parameters.",
     .signature = "index, name1, ...)"},
};

} // namespace

constinit const ApiFamily texturePalette{
    "Texture palette",
    functions,
    "The textures of a model, each an image file and the attribute file beside it.",
};

} // namespace nalt::api
