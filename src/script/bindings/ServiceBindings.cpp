#include "script/bindings/ServiceBindings.h"

#include "core/Preferences.h"
#include "script/Call.h"

namespace nalt::bindings {

namespace {

int getTolerance(Call& call)
{
  return call.give(Preferences::get().tolerance);
}

/// For the program as a whole and for good: neither undo nor the end of the script takes it back.
int setTolerance(Call& call)
{
  const double value = call.number("value");
  if (value >= 0) Preferences::get().tolerance = value; // false for what isn't a number
  return call.giveNothing();
}

constexpr Binding table[] = {
    {"getTolerance", getTolerance},
    {"setTolerance", setTolerance},
};

} // namespace

std::span<const Binding> serviceBindings()
{
  return table;
}

} // namespace nalt::bindings
