#pragma once

#include "core/ApiReference.h"

/// The rows of ApiReference, one file for each family. In the files a row reads top down: what the function is called,
/// what it does, what it gives, what it takes.
namespace nalt::api {

extern const ApiFamily models;
extern const ApiFamily hierarchy;
extern const ApiFamily selection;
extern const ApiFamily transforms;
extern const ApiFamily creation;
extern const ApiFamily surface;
extern const ApiFamily textureCoordinates;
extern const ApiFamily geometry;
extern const ApiFamily attributes;
extern const ApiFamily reports;
extern const ApiFamily grid;
extern const ApiFamily colorPalette;
extern const ApiFamily texturePalette;
extern const ApiFamily materialPalette;
extern const ApiFamily textureMappingPalette;
extern const ApiFamily lightPointPalette;
extern const ApiFamily shaderPalette;
extern const ApiFamily services;

} // namespace nalt::api
