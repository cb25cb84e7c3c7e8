#pragma once

// What nearly every test includes, by itself or by way of the program's headers.
#include <FL/Fl.H>
#include <FL/Fl_Tile.H>
#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <osg/Geometry>
#include <osg/Group>
#include <osg/MatrixTransform>
#include <ranges>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>
