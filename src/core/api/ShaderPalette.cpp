#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument index{"index", integer, "The palette index of the shader."};
constexpr ApiArgument onlyIndex[] = {index};
constexpr ApiArgument onlyName[] = {{"name", text, "The name of the new shader."}};
constexpr ApiArgument name[] = {index, {"name", text, "The new name."}};

constexpr std::string_view shaderTypeValues[] = {"GLSL", "Cg"};
constexpr ApiChoices shaderTypes{"ShaderType", shaderTypeValues};
constexpr ApiArgument type[] = {index, {"type", text, oneOf, {}, &shaderTypes, "Invalid shader type."}};

constexpr ApiArgument program[] = {index, {"filename", file, "The filename of the program."}};
constexpr ApiArgument vertexProgram[] = {
    index, {"vertexProgramIndex", integer, "The zero-based index of the vertex program."}};
constexpr ApiArgument fragmentProgram[] = {
    index, {"fragmentProgramIndex", integer, "The zero-based index of the fragment program."}};
constexpr ApiArgument profile[] = {index, {"profile", integer, "The number of the profile."}};
constexpr ApiArgument entryPoint[] = {index,
                                      {"entryPoint", text, "The name of the function that the program starts with."}};
constexpr ApiArgument openedPalette[] = {{"filename", file, "The filename of the shader palette on disk."}};

constexpr std::string_view changed = "true if a shader was changed.";
constexpr std::string_view filenames = "a table of the filenames, with numeric keys from 1.";
constexpr std::string_view filename = "the filename of the program, empty string if there is none.";
constexpr std::string_view profileNumber = "the number of the profile.";
constexpr std::string_view functionName = "the name of the function that the program starts with.";

constexpr ApiFunction functions[] = {
    {.name = "setCurrentShaderIndex",
     .description = "Sets the current shader index for the current model.",
     .arguments = onlyIndex},
    {.name = "getCurrentShaderIndex",
     .description = "Gets the current shader index for the current model.",
     .returns = "the current shader index, -1 if there is none.",
     .result = Result::index},
    {.name = "changeShaderIndex",
     .description = "Changes the palette index of a given shader.",
     .returns = indexChanged,
     .result = Result::boolean,
     .arguments = oldAndNewIndex},
    {.name = "setShaderName",
     .description = "Changes the name of a given shader.",
     .returns = "true if the name change was successful.",
     .result = Result::boolean,
     .arguments = name},
    {.name = "getShaderName",
     .description = "Gets the name of a given shader.",
     .returns = "the name, empty string if there is no such shader.",
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "openShaderPalette",
     .description = "Opens a palette of shaders from disk.",
     .returns = openedCorrectly,
     .result = Result::boolean,
     .arguments = openedPalette},
    {.name = "saveShaderPalette",
     .description = "Saves the current shader palette to a file on disk.",
     .returns = savedCorrectly,
     .result = Result::boolean,
     .arguments = savedPalette},
    {.name = "newShader",
     .description = "Creates a new shader in the palette.",
     .returns = "the palette index of the new shader.",
     .result = Result::index,
     .arguments = onlyName},
    {.name = "getMaxShaderIndex",
     .description = "Gets the highest palette index of all shaders.",
     .returns = "the highest index used, -1 if there is none.",
     .result = Result::index},
    {.name = "removeShaderFromPalette",
     .description = "Removes the shader at the specified index from the palette.",
     .returns = "true if a shader was removed.",
     .result = Result::boolean,
     .arguments = onlyIndex},
    {.name = "removeUnusedShadersFromPalette",
     .description = "Removes all unused shaders from the palette.",
     .returns = "true if any shaders was removed.",
     .result = Result::boolean},
    {.name = "setShaderType",
     .description = "Sets the shader type.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = type},
    {.name = "getShaderType",
     .description = "Gets the shader type.",
     .returns = "\"GLSL\" or \"Cg\", empty string if there is no such shader.",
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "addOpenGLShaderVertexProgram",
     .description = "Adds an OpenGL shader vertex program to a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = program},
    {.name = "removeOpenGLShaderVertexProgram",
     .description = "Removes an OpenGL shader vertex program from a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = vertexProgram},
    {.name = "getOpenGLShaderVertexPrograms",
     .description = "Gets the OpenGL shader vertex programs of a shader with a specified index.",
     .returns = filenames,
     .result = Result::texts,
     .arguments = onlyIndex},
    {.name = "addOpenGLShaderFragmentProgram",
     .description = "Adds an OpenGL shader fragment program to a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = program},
    {.name = "removeOpenGLShaderFragmentProgram",
     .description = "Removes an OpenGL shader fragment program from the shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = fragmentProgram},
    {.name = "getOpenGLShaderFragmentPrograms",
     .description = "Gets the OpenGL shader fragment programs of a shader with a specified index.",
     .returns = filenames,
     .result = Result::texts,
     .arguments = onlyIndex},
    {.name = "setCgShaderVertexProgram",
     .description = "Sets the Cg shader vertex program for a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = program},
    {.name = "getCgShaderVertexProgram",
     .description = "Gets the Cg shader vertex program for a shader with a specified index.",
     .returns = filename,
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "setCgShaderFragmentProgram",
     .description = "Sets the Cg shader fragment program for a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = program},
    {.name = "getCgShaderFragmentProgram",
     .description = "Gets the Cg shader fragment program for a shader with a specified index.",
     .returns = filename,
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "setCgShaderVertexProgramProfile",
     .description = "Sets the Cg shader vertex program profile for a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = profile},
    {.name = "getCgShaderVertexProgramProfile",
     .description = "Gets the Cg shader vertex program profile for a shader with a specified index.",
     .returns = profileNumber,
     .result = Result::integer,
     .arguments = onlyIndex},
    {.name = "setCgShaderFragmentProgramProfile",
     .description = "Sets the Cg shader fragment program profile for a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = profile},
    {.name = "getCgShaderFragmentProgramProfile",
     .description = "Gets the Cg shader fragment program profile for a shader with a specified index.",
     .returns = profileNumber,
     .result = Result::integer,
     .arguments = onlyIndex},
    {.name = "setCgShaderVertexProgramEntryPoint",
     .description = "Sets the Cg shader vertex program entry point for a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = entryPoint},
    {.name = "getCgShaderVertexProgramEntryPoint",
     .description = "Gets the Cg shader vertex program entry point for a shader with a specified index.",
     .returns = functionName,
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "setCgShaderFragmentProgramEntryPoint",
     .description = "Sets the Cg shader fragment program entry point for a shader with a specified index.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = entryPoint},
    {.name = "getCgShaderFragmentProgramEntryPoint",
     .description = "Gets the Cg shader fragment program entry point for a shader with a specified index.",
     .returns = functionName,
     .result = Result::text,
     .arguments = onlyIndex},
    {.name = "removeShaderPaths",
     .description = "Removes the paths for a given shader, leaving only the shader source file names.",
     .returns = changed,
     .result = Result::boolean,
     .arguments = onlyIndex},
};

} // namespace

constinit const ApiFamily shaderPalette{
    "Shader palette",
    functions,
    "GLSL and Cg programs. Program indices count from 0.",
};

} // namespace nalt::api
