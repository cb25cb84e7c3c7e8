#pragma once

#include "core/selection/Selection.h"

namespace fltapi {
class HeaderRecord;
}

namespace nalt {

class Model;
class Selections;

/// Null for a model without a document.
fltapi::HeaderRecord* headerOf(const Model& model);

/// Adds everything of the selection's family at and below `node` to it, in the node's own file. Instances are entered,
/// each definition once.
void collect(fltapi::PrimNodeRecord& node, Selection& into);

/// All of a selection in another family, see Selection::convert; empty when there is nothing.
std::unique_ptr<Selection> converted(const Selections& selections, SelectionMode target);

/// Adds what one element is in the family of `into`: what is found at or below it, else the nearest node above.
void convertElement(fltapi::PrimNodeRecord& node, fltapi::VertexBaseRecord* vertex, Selection& into);

/// Calls `work(node)` for `node` and each one below it in its own file; instances are entered, each definition once.
void forEachNode(fltapi::PrimNodeRecord& node, const std::function<void(fltapi::PrimNodeRecord&)>& work);
/// Calls `work(list)` for each vertex list at and below `node` in its own file.
void forEachVertexList(fltapi::PrimNodeRecord& node, const std::function<void(fltapi::VertexListRecord&)>& work);

} // namespace nalt
