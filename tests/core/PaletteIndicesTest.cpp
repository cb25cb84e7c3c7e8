#include "core/PaletteIndices.h"

#include "core/SetIndexCommand.h"
#include "tests/core/ModelFixture.h"

namespace nalt {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

class PaletteIndicesTest : public ModelFixture {
protected:
  PaletteIndices& indices() { return model->paletteIndices(); }
  const CommandStack::Commands& commands() { return model->commandStack().undoCommands(); }
};

TEST_F(PaletteIndicesTest, EachKindHasACommandOfItsName)
{
  const std::tuple<PaletteKind, const char*, const char*> kinds[] = {
      {PaletteKind::colorIndex, "Set Current Color Index", "setCurrentColorIndex"},
      {PaletteKind::colorIntensity, "Set Current Color Intensity", "setCurrentColorIntensity"},
      {PaletteKind::texture, "Set Current Texture", "setCurrentTextureIndex"},
      {PaletteKind::material, "Set Current Material", "setCurrentMaterialIndex"},
      {PaletteKind::textureMapping, "Set Current Texture Mapping", "setCurrentTextureMappingIndex"},
      {PaletteKind::lightPointAppearance, "Set Current Light Point Appearance", "setCurrentLightPointAppearanceIndex"},
      {PaletteKind::lightPointAnimation, "Set Current Light Point Animation", "setCurrentLightPointAnimationIndex"},
      {PaletteKind::shader, "Set Current Shader", "setCurrentShaderIndex"},
  };
  for (const auto& [kind, name, function] : kinds) {
    const int before = indices().get(kind);
    indices().set(kind, 3, /*undoable=*/true);
    const auto& command = *commands().back();
    EXPECT_EQ(command.name(), name);
    EXPECT_EQ(command.scriptText(), std::string("nalt.") + function + "(3)");
    EXPECT_THAT(command.commentText(), StartsWith(std::string("--\n-- nalt.") + function + "("));
    model->commandStack().undo();
    EXPECT_EQ(indices().get(kind), before) << name;
    model->commandStack().redo();
    EXPECT_EQ(indices().get(kind), 3) << name;
  }
  EXPECT_EQ(commands().size(), std::size(kinds));
}

TEST_F(PaletteIndicesTest, TheSameEntryTwiceIsOneCommand)
{
  indices().set(PaletteKind::texture, 4, /*undoable=*/true);
  indices().set(PaletteKind::texture, 4, /*undoable=*/true);
  EXPECT_EQ(commands().size(), 1U);
  indices().setRgbColor({.r = 1, .g = 2, .b = 3, .a = 4}, /*undoable=*/true);
  indices().setRgbColor({.r = 1, .g = 2, .b = 3, .a = 4}, /*undoable=*/true);
  ASSERT_EQ(commands().size(), 2U);
  EXPECT_EQ(commands().back()->name(), "Set Current RGB Color");
  EXPECT_EQ(commands().back()->scriptText(), "nalt.setCurrentColorRGB(1, 2, 3)");
}

TEST_F(PaletteIndicesTest, WithoutUndoThereIsNoCommand)
{
  indices().set(PaletteKind::shader, 4, /*undoable=*/false);
  indices().setRgbColor({.r = 9}, /*undoable=*/false);
  EXPECT_THAT(commands(), IsEmpty());
  EXPECT_EQ(indices().get(PaletteKind::shader), 4);
  EXPECT_EQ(indices().rgbColor().r, 9);
}

TEST_F(PaletteIndicesTest, TheCurrentColorIsThatOfThePaletteUnlessTheModelUsesRgbColors)
{
  auto* palette = model->fltFile()->colorPalette();
  ASSERT_TRUE(palette);
  const auto expected = palette->colorAt(7 * 128 + 50);
  indices().set(PaletteKind::colorIndex, 7, /*undoable=*/false);
  indices().set(PaletteKind::colorIntensity, 50, /*undoable=*/false);
  indices().setRgbColor({.r = 1, .g = 2, .b = 3}, /*undoable=*/false);
  EXPECT_EQ(indices().currentColor(), (RgbaColor{.r = expected.r, .g = expected.g, .b = expected.b}));
  using Header = fltapi::HeaderRecord;
  header().set(Header::fields.flags, header().get(Header::fields.flags) | Header::rgbModeFlag);
  EXPECT_EQ(indices().currentColor(), (RgbaColor{.r = 1, .g = 2, .b = 3}));
}

} // namespace
} // namespace nalt
