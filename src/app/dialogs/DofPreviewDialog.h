#pragma once

#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"
#include "scene/image/DofPreview.h"

#include <array>
#include <memory>
#include <osg/ref_ptr>
#include <vector>

class Fl_Box;
class Fl_Button;
class Fl_Choice;
class Fl_Slider;
class Fl_Value_Input;

namespace nalt {

class Gui;
class Model;

/// Moves the DOFs of the current model on the screen, for looking only: when the window closes, all stand where they
/// stood.
class DofPreviewDialog : public DialogWindow {
public:
  explicit DofPreviewDialog(Gui& gui);
  ~DofPreviewDialog() override;

  /// Another model is current, or the selection or the document changed.
  void follow();

protected:
  void opening() override;
  void closed() override { stop(); }

private:
  /// The model that is previewed as long as it is open.
  Model* model() const;
  void start();
  void stop();
  void fillChoice(const fltapi::DofRecord* wanted);
  fltapi::DofRecord* selectedDof() const;
  fltapi::DofRecord* dof() const;
  void showValues();
  void move(std::size_t channel, double value);
  void reset();

  Gui& gui_;
  Actions actions_;
  Fl_Choice* choice_;
  std::array<Fl_Value_Input*, 9> numbers_{};
  std::array<Fl_Slider*, 9> sliders_{};
  Fl_Button* reset_;
  osg::ref_ptr<fltapi::FltFile> file_; ///< of the model that is previewed
  std::unique_ptr<DofPreview> preview_;
  std::vector<osg::ref_ptr<fltapi::DofRecord>> dofs_; ///< in the order of the choice
};

} // namespace nalt
