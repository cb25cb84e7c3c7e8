#pragma once

namespace nalt {

/// Tells what this program is and what it was made with, until the user has read it.
void showAboutDialog();

} // namespace nalt
