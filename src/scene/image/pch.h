#pragma once

// What nearly every source file of this folder includes by way of its headers.
#include "fltapi/AllRecords.h"

#include <osg/Geode>
#include <osg/Geometry>
#include <osg/MatrixTransform>
#include <osg/StateSet>
