#include "app/MessageDialogs.h"

#include "app/ModalWindow.h"
#include "core/Model.h"
#include "core/dialogs/CheckBox.h"
#include "core/drawing/Icons.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Return_Button.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <memory>

namespace nalt {

namespace {

constexpr int margin = 14;
constexpr int iconSize = 36;
constexpr int textSize = 12;
constexpr int smallestText = 260;
constexpr int widestText = 560;
constexpr int buttonWidth = 84;
constexpr int buttonHeight = 26;
constexpr int gap = 10;

struct Size {
  int w;
  int h;
};

/// Room for `text`, broken into lines where it would be too wide.
Size sizeOfText(const std::string& text)
{
  fl_font(FL_HELVETICA, textSize);
  int w = 0;
  int h = 0;
  fl_measure(text.c_str(), w, h, /*draw_symbols=*/0);
  if (w > widestText) {
    w = widestText;
    fl_measure(text.c_str(), w, h, /*draw_symbols=*/0);
  }
  return {std::clamp(w + 8, smallestText, widestText + 8), std::max(h + 4, iconSize)};
}

struct Choice {
  const char* label;
  Answer answer;
};

class Dialog {
public:
  Dialog(const char* title, const char* picture, const std::string& text, std::initializer_list<Choice> choices,
         Answer otherwise, bool canSilence)
      : text_(text), answer_(otherwise)
  {
    const Size size = sizeOfText(text);
    const int w = margin + iconSize + margin + size.w + margin;
    const int boxHeight = canSilence ? buttonHeight : 0;
    const int h = margin + size.h + gap + boxHeight + gap + buttonHeight + margin;
    window_ = std::make_unique<ModalWindow>(w, h, title);
    auto* image = new Fl_Box(margin, margin, iconSize, iconSize);
    image->image(icon(picture, iconSize));
    auto* label = new Fl_Box(margin + iconSize + margin, margin, size.w, size.h, text_.c_str());
    label->labeltype(plainLabel());
    label->labelsize(textSize);
    label->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT | FL_ALIGN_WRAP);
    if (canSilence) {
      silence_ = new CheckBox(label->x(), margin + size.h + gap, size.w, buttonHeight, "Don't show again");
      silence_->labelsize(textSize);
    }
    const int count = static_cast<int>(choices.size());
    int x = w - margin - count * buttonWidth - (count - 1) * gap;
    for (const Choice& choice : choices) {
      addButton(x, h - margin - buttonHeight, choice);
      x += buttonWidth + gap;
    }
    window_->end();
  }

  Answer run()
  {
    window_->runModal();
    return answer_;
  }

  bool silenced() const { return silence_ && silence_->value() != 0; }

private:
  struct Link {
    Dialog* dialog;
    Answer answer;
  };

  void addButton(int x, int y, const Choice& choice)
  {
    links_.push_back(std::make_unique<Link>(Link{this, choice.answer}));
    const bool first = links_.size() == 1;
    Fl_Button* button = first ? new Fl_Return_Button(x, y, buttonWidth, buttonHeight, choice.label)
                              : new Fl_Button(x, y, buttonWidth, buttonHeight, choice.label);
    button->labelsize(textSize);
    button->callback(
        [](Fl_Widget*, void* data) {
          const Link* link = static_cast<Link*>(data);
          link->dialog->answer_ = link->answer;
          link->dialog->window_->hide();
        },
        links_.back().get());
  }

  std::string text_;
  Answer answer_;
  std::unique_ptr<ModalWindow> window_;
  CheckBox* silence_ = nullptr;
  std::vector<std::unique_ptr<Link>> links_;
};

} // namespace

bool showMessage(MessageKind kind, const std::string& text, bool canSilence)
{
  const bool isWarning = kind == MessageKind::warning;
  Dialog dialog(isWarning ? "WARNING: " : "INFO: ", isWarning ? "dialog-warning" : "dialog-info", text,
                {{"OK", Answer::yes}}, Answer::yes, canSilence);
  dialog.run();
  return dialog.silenced();
}

Answer showQuestion(const std::string& text, bool withCancel)
{
  if (withCancel) {
    return Dialog("Question", "dialog-question", text,
                  {{"&Yes", Answer::yes}, {"&No", Answer::no}, {"Cancel", Answer::cancel}}, Answer::cancel, false)
        .run();
  }
  return Dialog("Question", "dialog-question", text, {{"&Yes", Answer::yes}, {"&No", Answer::no}}, Answer::no, false)
      .run();
}

} // namespace nalt
