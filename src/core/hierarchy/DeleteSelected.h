#pragma once

namespace nalt {

class Model;

/// Deletes what is selected: nodes with everything below them, corners out of their polygons, and the polygons that are
/// left with fewer than three. Content of external references stays, with one message. Nothing is selected afterwards.
/// @param undoable hands a command to the model's stack
void deleteSelected(Model& model, bool undoable);

} // namespace nalt
