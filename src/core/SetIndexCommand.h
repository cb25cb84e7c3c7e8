#pragma once

#include "core/Command.h"
#include "core/PaletteIndices.h"

namespace nalt {

/// Another palette entry became the current one.
class SetIndexCommand : public Command {
public:
  SetIndexCommand(Model& model, PaletteKind kind, int before, int after);

  void undo() override { exchange(); }
  void redo() override { exchange(); }
  void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
  std::string scriptText() const override;
  std::string commentText() const override;

private:
  void exchange();

  Model& model_;
  PaletteKind kind_;
  int other_;   ///< what undo or redo brings back
  int current_; ///< what is in force while the command stands on its side of the stack
};

/// Another color became the current one of a model in RGB mode.
class SetRgbColorCommand : public Command {
public:
  SetRgbColorCommand(Model& model, RgbaColor before, RgbaColor after);

  void undo() override { exchange(); }
  void redo() override { exchange(); }
  void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
  std::string scriptText() const override;
  std::string commentText() const override;

private:
  void exchange();

  Model& model_;
  RgbaColor other_;
  RgbaColor current_;
};

} // namespace nalt
