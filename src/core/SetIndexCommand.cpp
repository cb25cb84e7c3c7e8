#include "core/SetIndexCommand.h"

#include "core/ApiReference.h"
#include "core/LuaText.h"
#include "core/Model.h"
#include "core/Shell.h"

#include <utility>

namespace nalt {

SetIndexCommand::SetIndexCommand(Model& model, PaletteKind kind, int before, int after)
    : Command(infoOf(kind).commandName), model_(model), kind_(kind), other_(before), current_(after)
{}

void SetIndexCommand::exchange()
{
  model_.paletteIndices().store(kind_, other_);
  std::swap(other_, current_);
  Shell::get().paletteIndexChanged(model_);
}

std::string SetIndexCommand::scriptText() const
{
  return luaCall(infoOf(kind_).setter, current_);
}

std::string SetIndexCommand::commentText() const
{
  return ApiReference::commentText(infoOf(kind_).setter);
}

SetRgbColorCommand::SetRgbColorCommand(Model& model, RgbaColor before, RgbaColor after)
    : Command("Set Current RGB Color"), model_(model), other_(before), current_(after)
{}

void SetRgbColorCommand::exchange()
{
  model_.paletteIndices().store(other_);
  std::swap(other_, current_);
  Shell::get().paletteIndexChanged(model_);
}

std::string SetRgbColorCommand::scriptText() const
{
  return luaCall("setCurrentColorRGB", int{current_.r}, int{current_.g}, int{current_.b});
}

std::string SetRgbColorCommand::commentText() const
{
  return ApiReference::commentText("setCurrentColorRGB");
}

} // namespace nalt
