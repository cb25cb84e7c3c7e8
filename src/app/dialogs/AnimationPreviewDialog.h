#pragma once

#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"
#include "scene/image/AnimationPreview.h"

#include <memory>
#include <osg/Timer>
#include <osg/ref_ptr>
#include <vector>

class Fl_Box;
class Fl_Button;
class Fl_Multi_Browser;

namespace nalt {

class Gui;
class Model;

/// Plays the animated groups of the current model on the screen, for looking only: when it stops, all children are
/// shown as before.
class AnimationPreviewDialog : public DialogWindow {
public:
  explicit AnimationPreviewDialog(Gui& gui);
  ~AnimationPreviewDialog() override;

  /// Another model is current, or the document changed.
  void follow();

protected:
  void opening() override { fill(); }
  void closed() override;

private:
  Model* model() const;
  void fill();
  void play();
  void stop();
  void tick();
  void updateButtons();
  static void tickOf(void* self);

  Gui& gui_;
  Actions actions_;
  Fl_Multi_Browser* browser_;
  Fl_Box* state_;
  Fl_Button* play_;
  Fl_Button* stop_;
  osg::ref_ptr<fltapi::FltFile> file_; ///< of the model whose groups are listed
  std::vector<osg::ref_ptr<fltapi::GroupRecord>> groups_;
  std::unique_ptr<AnimationPreview> preview_;
  osg::Timer_t started_ = 0;
};

} // namespace nalt
