#include "fltapi/RecordVisitor.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

namespace fltapi {

#define FLTAPI_FALL_BACK(Class, Fallback)                                                                              \
  void RecordVisitor::apply(Class& record)                                                                             \
  {                                                                                                                    \
    apply(static_cast<Fallback&>(record));                                                                             \
  }
#define FLTAPI_SKIP(Class, Fallback)
FLTAPI_VISITED_RECORDS(FLTAPI_FALL_BACK, FLTAPI_SKIP)
#undef FLTAPI_FALL_BACK
#undef FLTAPI_SKIP

void RecordVisitor::apply(Record& record)
{
  if (traversalVisitor) {
    record.accept(*traversalVisitor);
  } else if (traversalMode != TraversalMode::none) {
    record.traverse(*this);
  }
}

// A definition is never walked where it stands, only through the references to it.
void RecordVisitor::apply(InstanceDefinitionRecord&) {}

void RecordVisitor::apply(InstanceReferenceRecord& reference)
{
  auto* file = reference.file();
  auto* definition = file ? file->instanceDefinition(reference.instanceNumber()) : nullptr;
  const Level level(*this);
  if (!definition || level.tooDeep()) return;
  if (!revisit && !visited.insert(definition).second) return;
  if (!entered_.insert(definition).second) return;
  if (auto* body = definition->firstPrimaryChild()) body->accept(*this);
  entered_.erase(definition);
}

void RecordVisitor::apply(ExternalRecord& external)
{
  if (traversalMode == TraversalMode::notExternals) return;
  const auto mode = traversalMode;
  const bool isNested = external.externalFile() != nullptr;
  if (isNested && !revisit && !enteredFiles_.insert(external.referencedFile()).second)
    traversalMode = TraversalMode::none;
  apply(static_cast<PrimNodeRecord&>(external));
  traversalMode = mode;
}

} // namespace fltapi
