#pragma once

#include "core/Shell.h"

#include <string>

namespace nalt {

enum class MessageKind { warning, info };

/// Shows `text` until the user has read it. With `canSilence` there is a box "Don't show again"; true when it was
/// ticked. Needs a display.
bool showMessage(MessageKind kind, const std::string& text, bool canSilence);

/// A yes-or-no question, with `withCancel` a third way out. Closing the window or Escape is `cancel`, or `no` without.
Answer showQuestion(const std::string& text, bool withCancel);

} // namespace nalt
