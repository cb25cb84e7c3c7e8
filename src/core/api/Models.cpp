#include "core/api/Rows.h"

namespace nalt::api {

namespace {

constexpr ApiArgument filename[] = {{"filename", file, "The filename of the model."}};
constexpr ApiArgument version{"version", integer, "The OpenFlight version to save, 1570 to 1620.", "1620"};
constexpr ApiArgument onlyVersion[] = {version};
constexpr ApiArgument filenameAndVersion[] = {{"filename", file, "The filename of the model."}, version};
constexpr ApiArgument exported[] = {{"filename", file, "The file to export to."}};
constexpr ApiArgument imported[] = {
    {"sourceFilename", file, "The file to import."},
    {"targetFilename", file, "The filename of the new model."},
    {"textureOutputPath", file, "The folder for written textures.", "\"\""},
    {"shaderOutputPath", file, "The folder for written shaders.", "\"\""},
    {"shaderOutputBaseName", text, "The base name for written shaders.", "\"\""},
    {"externalOutputPath", file, "The folder for written externals.", "\"\""},
};

constexpr ApiFunction functions[] = {
    {.name = "getVersion",
     .description = "Gets the version of the program.",
     .returns = "the program version as a number, 2.9.",
     .result = Result::number,
     .needs = Needs::run},
    {.name = "newModel",
     .description = "Creates a new (unsaved) OpenFlight model and makes it the current model.",
     .returns = "true if the new operation was successful.",
     .result = Result::boolean,
     .needs = Needs::run,
     .arguments = filename},
    {.name = "openModel",
     .description = "Opens an OpenFlight model and makes it the current model.",
     .returns = "true if the open operation was successful.",
     .result = Result::boolean,
     .needs = Needs::run,
     .arguments = filename},
    {.name = "revertModel",
     .description = "Reverts the current OpenFlight model.",
     .returns = "true if the revert operation was successful.",
     .result = Result::boolean},
    {.name = "saveModel",
     .description = "Saves the current model to an OpenFlight file with the current model's filename.",
     .returns = "true if the save operation was successful.",
     .result = Result::boolean,
     .arguments = onlyVersion},
    {.name = "saveModelAs",
     .description = "Saves the current model to an OpenFlight file with a given filename.",
     .returns = "true if the save operation was successful.",
     .result = Result::boolean,
     .arguments = filenameAndVersion},
    {.name = "isModelUnsaved",
     .description = "Tells whether the current model has unsaved changes.",
     .returns = "true when the current model has unsaved changes.",
     .result = Result::boolean},
    {.name = "importModel",
     .description = "Imports geometry to a new (unsaved) model and makes it the current model.",
     .returns = "true if the import operation was successful.",
     .result = Result::boolean,
     .needs = Needs::run,
     .arguments = imported},
    {.name = "exportModel",
     .description = "Exports the current model to a file. The file extension determines the output file format.",
     .returns = "true if the export operation was successful.",
     .result = Result::boolean,
     .arguments = exported},
    {.name = "closeModel", .description = "Closes the current model."},
    {.name = "setCurrentModel",
     .description = "Sets the current model to the model with the given filename.",
     .returns = "true if the current model switch succeeded.",
     .result = Result::boolean,
     .needs = Needs::run,
     .arguments = filename},
    {.name = "getCurrentModelFilename",
     .description = "Gets the filename of the current model.",
     .returns = "the filename of the current model, empty string if there is none.",
     .result = Result::text},
    {.name = "saveAllModels",
     .description = "Saves every model in the run.",
     .returns = "true if every save operation was successful.",
     .result = Result::boolean,
     .needs = Needs::run},
    {.name = "closeAllModels", .description = "Closes every model of the run, without saving.", .needs = Needs::run},
};

} // namespace

constinit const ApiFamily models{
    "Models",
    functions,
    "A script has any number of models open, each under its filename, and one of them is the current model: all other "
    "functions work on that one. A run with no window starts with none; in the window the open models are the "
    "script's. "
    "The filename is the key: two models can't have the same, and setCurrentModel takes it as it was given. "
    "saveModelAs adds \".flt\" where it is missing and goes on under the new name. What goes wrong with "
    "a file is a warning in the output.",
    "assert(nalt.newModel(\"empty.flt\"))\n"
    "assert(nalt.saveModelAs(\"copy\", 1570))        -- writes copy.flt as version 15.7\n"
    "print(nalt.getCurrentModelFilename())         -- copy.flt\n"
    "nalt.closeModel()\n"
    "if nalt.openModel(\"copy.flt\") then\n"
    "  print(nalt.isModelUnsaved())                -- false\n"
    "end\n",
};

} // namespace nalt::api
