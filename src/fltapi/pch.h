#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <osg/Matrixd>
#include <osg/Referenced>
#include <osg/Vec3d>
#include <osg/ref_ptr>
#include <set>
#include <string>
#include <vector>
