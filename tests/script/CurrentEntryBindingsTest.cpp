#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/palettes/LightPointPaletteRecords.h"
#include "fltapi/palettes/MaterialPaletteRecords.h"
#include "fltapi/palettes/ShaderPaletteRecord.h"
#include "fltapi/palettes/TextureMappingPaletteRecord.h"
#include "fltapi/palettes/TexturePaletteRecord.h"
#include "tests/script/ScriptTest.h"
#include "tests/script/SmallDocument.h"

namespace nalt {

namespace {

class CurrentEntryBindings : public ScriptTest {
protected:
  CurrentEntryBindings() : model(*shell.newModel("a.flt")) {}

  void useRgbColors()
  {
    auto& header = *model.fltFile()->header();
    header.set(fltapi::HeaderRecord::fields.flags,
               header.get(fltapi::HeaderRecord::fields.flags) | fltapi::HeaderRecord::rgbModeFlag);
  }

  template <class Entry>
  void addEntry(int index)
  {
    auto* entry = model.fltFile()->create<Entry>();
    entry->set(Entry::fields.index, index);
    model.fltFile()->header()->addChild(entry, /*append=*/true);
  }

  std::size_t undoable() const { return model.commandStack().undoCommands().size(); }

  Model& model;
};

const std::vector<std::string> palettes{
    "Texture", "Material", "TextureMapping", "LightPointAppearance", "LightPointAnimation", "Shader"};

} // namespace

TEST_F(CurrentEntryBindings, StartWithNoEntry)
{
  for (const auto& palette : palettes)
    EXPECT_EQ(printed("print(nalt.getCurrent" + palette + "Index())"), "-1\n") << palette;
  EXPECT_EQ(printed("print(nalt.getCurrentColorIndex(), nalt.getCurrentColorIntensity())"), "0 127\n");
}

TEST_F(CurrentEntryBindings, TakeAnEntryThatThePaletteHas)
{
  addEntry<fltapi::TexturePaletteRecord>(7);
  addEntry<fltapi::MaterialPaletteRecord>(7);
  addEntry<fltapi::TextureMappingPaletteRecord>(7);
  addEntry<fltapi::LightPointAppearancePaletteRecord>(7);
  addEntry<fltapi::LightPointAnimationPaletteRecord>(7);
  addEntry<fltapi::ShaderPaletteRecord>(7);
  for (const auto& palette : palettes) {
    printed("nalt.setCurrent" + palette + "Index(7)");
    EXPECT_EQ(printed("print(nalt.getCurrent" + palette + "Index())"), "7\n") << palette;
    printed("nalt.setCurrent" + palette + "Index(6)");
    EXPECT_EQ(printed("print(nalt.getCurrent" + palette + "Index())"), "7\n") << palette << ": no such entry";
    printed("nalt.setCurrent" + palette + "Index(-1)");
    EXPECT_EQ(printed("print(nalt.getCurrent" + palette + "Index())"), "-1\n") << palette << ": none";
  }
  EXPECT_EQ(undoable(), 12u);
  EXPECT_TRUE(shell.messages.empty());
}

TEST_F(CurrentEntryBindings, AreProcedures)
{
  for (const auto& palette : palettes)
    EXPECT_EQ(printed("print(select('#', nalt.setCurrent" + palette + "Index(0)))"), "0\n") << palette;
  EXPECT_EQ(printed("print(select('#', nalt.setCurrentColorRGB(1, 2, 3)), select('#', nalt.setCurrentColorIndex(1)))"),
            "0 0\n");
}

TEST_F(CurrentEntryBindings, CutColorsToTheirRange)
{
  EXPECT_EQ(printed("for _, i in ipairs{5, 1023, 1024, 1e9, -1, -2} do\n"
                    "  nalt.setCurrentColorIndex(i) print(nalt.getCurrentColorIndex())\n"
                    "end"),
            "5\n1023\n1023\n1023\n-1\n-1\n");
  EXPECT_EQ(printed("for _, i in ipairs{5, 128, 0, -1} do\n"
                    "  nalt.setCurrentColorIntensity(i) print(nalt.getCurrentColorIntensity())\n"
                    "end"),
            "5\n127\n0\n0\n");
}

TEST_F(CurrentEntryBindings, GiveMinusOneForRgbColorsInAnIndexedModel)
{
  EXPECT_EQ(printed("nalt.setCurrentColorRGB(1, 2, 3) print(nalt.getCurrentColorRGB())"), "-1\n");
  EXPECT_EQ(undoable(), 0u);
}

TEST_F(CurrentEntryBindings, SetRgbColorsOfAnRgbModel)
{
  useRgbColors();
  EXPECT_EQ(printed("print(nalt.getCurrentColorRGB())"), "255 255 255\n");
  EXPECT_EQ(printed("nalt.setCurrentColorRGB(10, 300, -5) print(nalt.getCurrentColorRGB())"), "10 255 0\n");
  EXPECT_EQ(undoable(), 1u);
  model.commandStack().undo();
  EXPECT_EQ(printed("print(nalt.getCurrentColorRGB())"), "255 255 255\n");
}

TEST_F(CurrentEntryBindings, SetNoColorIndexInAnRgbModel)
{
  useRgbColors();
  EXPECT_EQ(printed("nalt.setCurrentColorIndex(5) print(nalt.getCurrentColorIndex())"), "0\n");
}

TEST_F(CurrentEntryBindings, MakeOneCommandForEachChange)
{
  printed("nalt.setCurrentColorIndex(5) nalt.setCurrentColorIndex(5) nalt.setCurrentColorIntensity(5)");
  ASSERT_EQ(undoable(), 2u);
  EXPECT_EQ(model.commandStack().undoCommands().front()->name(), "Set Current Color Index");
  EXPECT_EQ(model.commandStack().undoCommands().front()->scriptText(), "nalt.setCurrentColorIndex(5)");
  EXPECT_EQ(model.commandStack().undoCommands().back()->name(), "Set Current Color Intensity");
}

TEST_F(CurrentEntryBindings, MakeNoCommandInABatchRun)
{
  std::size_t commands = 1;
  ScriptRun run(/*batch=*/true);
  ASSERT_TRUE(execute(run, "nalt.newModel('b.flt') nalt.setCurrentColorIndex(5)\n"
                           "assert(nalt.getCurrentColorIndex() == 5)"))
      << error;
  commands = run.currentModel()->commandStack().undoCommands().size();
  EXPECT_EQ(commands, 0u);
}

} // namespace nalt
