#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument index{"index", integer, "The palette index of the color."};
constexpr ApiArgument red{"red", integer, "The red channel, 0 - 255."};
constexpr ApiArgument green{"green", integer, "The green channel, 0 - 255."};
constexpr ApiArgument blue{"blue", integer, "The blue channel, 0 - 255."};

constexpr ApiArgument onlyIndex[] = {index};
constexpr ApiArgument intensity[] = {{"intensity", integer, "The intensity, 0 - 127."}};
constexpr ApiArgument channels[] = {red, green, blue};
constexpr ApiArgument indexAndChannels[] = {index, red, green, blue};
constexpr ApiArgument openedPalette[] = {{"filename", file, "The filename of the color palette on disk."}};

constexpr ApiFunction functions[] = {
    {.name = "setCurrentColorIndex",
     .description = "Sets the current color index (excluding the intensity) for the current model; does nothing if "
                    "indexed colours aren't used.",
     .arguments = onlyIndex},
    {.name = "setCurrentColorIntensity",
     .description = "Sets the current color intensity for the current model.",
     .arguments = intensity},
    {.name = "getCurrentColorIndex",
     .description = "Gets the current color index (excluding the intensity) for the current model.",
     .returns = "the current color index, -1 if there is none.",
     .result = Result::index},
    {.name = "getCurrentColorIntensity",
     .description = "Gets the current color intensity for the current model.",
     .returns = "the current color intensity.",
     .result = Result::integer},
    {.name = "setCurrentColorRGB",
     .description = "Sets the current RGB color (if RGB colors are used for this model) for the current model.",
     .arguments = channels},
    {.name = "getCurrentColorRGB",
     .description = "Gets the current RGB color for the current model.",
     .returns = "red, green and blue; a single -1 if RGB colors aren't used for this model.",
     .result = Result::colorOrIndex},
    {.name = "openColorPalette",
     .description = "Opens a palette of colors from disk.",
     .returns = openedCorrectly,
     .result = Result::boolean,
     .arguments = openedPalette},
    {.name = "saveColorPalette",
     .description = "Saves the current color palette to a file on disk.",
     .returns = savedCorrectly,
     .result = Result::boolean,
     .arguments = savedPalette},
    {.name = "setPaletteColor",
     .description = "Sets the RGB values of a color in the color palette.",
     .returns = "true if a color was changed.",
     .result = Result::boolean,
     .arguments = indexAndChannels},
    {.name = "getPaletteColor",
     .description = "Gets the RGB values of a color in the color palette.",
     .returns = "red, green and blue.",
     .result = Result::color,
     .arguments = onlyIndex},
};

} // namespace

constinit const ApiFamily colorPalette{
    "Color palette",
    functions,
    "A model has either indexed colors, 1024 of them with 128 intensities each, or RGB colors.",
    "nalt.setCurrentColorIndex(12)\n"
    "nalt.setCurrentColorIntensity(64)\n"
    "print(nalt.getCurrentColorIndex(), nalt.getCurrentColorIntensity())\n"
    "if nalt.getCurrentColorRGB() ~= -1 then nalt.setCurrentColorRGB(255, 128, 0) end\n",
};

} // namespace nalt::api
