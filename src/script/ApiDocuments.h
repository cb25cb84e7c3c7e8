#pragma once

#include <string>

namespace nalt {

/// docs/lua-api.md: all functions with their arguments and results, for people.
std::string apiManual();

/// docs/nalt.d.lua: the same as annotations, for the language servers of Lua editors.
std::string apiAnnotations();

} // namespace nalt
