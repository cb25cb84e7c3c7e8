#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiFunction functions[] = {
    {.name = "applyColor",
     .description = "Applies the current color to the currently selected nodes.",
     .returns = "true if any color was applied.",
     .result = Result::boolean},
    {.name = "readColor",
     .description = "Reads the color from the currently selected node(s). The retrieved color will be the current "
                    "color.",
     .returns = "true if a color was retrieved.",
     .result = Result::boolean},
    {.name = "applyTexture",
     .description = "Applies the current texture to the currently selected nodes.",
     .returns = "true if any texture was applied.",
     .result = Result::boolean},
    {.name = "readTexture",
     .description = "Reads the texture from the currently selected node(s). The retrieved texture will be the current "
                    "texture.",
     .returns = "true if a texture was retrieved.",
     .result = Result::boolean},
    {.name = "applyTextureMapping",
     .description = "Applies the current texture mapping to the currently selected nodes.",
     .returns = "true if any texture mapping was applied.",
     .result = Result::boolean},
    {.name = "readTextureMapping",
     .description = "Reads the texture mapping from the currently selected node(s). The retrieved texture mapping will "
                    "be the current texture mapping.",
     .returns = "true if a texture mapping was retrieved.",
     .result = Result::boolean},
    {.name = "applyMaterial",
     .description = "Applies the current material to the currently selected nodes.",
     .returns = "true if any material was applied.",
     .result = Result::boolean},
    {.name = "readMaterial",
     .description = "Reads the material from the currently selected node(s). The retrieved material will be the "
                    "current material.",
     .returns = "true if a material was retrieved.",
     .result = Result::boolean},
    {.name = "applyShader",
     .description = "Applies the current shader to the currently selected nodes.",
     .returns = "true if any shader was applied.",
     .result = Result::boolean},
    {.name = "readShader",
     .description = "Reads the shader from the currently selected node(s). The retrieved shader will be the current "
                    "shader.",
     .returns = "true if a shader was retrieved.",
     .result = Result::boolean},
    {.name = "removeTexture",
     .description = "Removes all texture and texture mapping indices from the currently selected nodes.",
     .returns = "true if any texture or texture mapping was removed.",
     .result = Result::boolean},
    {.name = "removeTextureMapping",
     .description = "Removes all texture mapping indices from the currently selected nodes.",
     .returns = "true if any texture mapping was removed.",
     .result = Result::boolean},
    {.name = "removeMaterial",
     .description = "Removes all material indices from the currently selected nodes.",
     .returns = "true if any material was removed.",
     .result = Result::boolean},
    {.name = "removeShader",
     .description = "Removes all shader indices from the currently selected nodes.",
     .returns = "true if any shader was removed.",
     .result = Result::boolean},
};

} // namespace

constinit const ApiFamily surface{
    "Surface",
    functions,
    "Applying puts the current palette entry on the selected geometry, reading makes an entry of the geometry the "
    "current "
    "one.",
};

} // namespace nalt::api
