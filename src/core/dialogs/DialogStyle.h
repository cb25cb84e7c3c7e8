#pragma once

/// Sizes that all dialogs share, in pixels.
namespace nalt::dialog {

inline constexpr int margin = 14;
inline constexpr int textSize = 12;
inline constexpr int rowHeight = 24;
inline constexpr int rowGap = 5;   ///< between two rows
inline constexpr int fieldGap = 8; ///< between a label and its field
inline constexpr int groupGap = 12;
inline constexpr int buttonWidth = 84;
inline constexpr int buttonHeight = 26;
inline constexpr int buttonGap = 10;

} // namespace nalt::dialog
