#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

namespace fltapi {

Record* PrimNodeRecord::clone(FltFile* target) const
{
  auto* copy = Record::clone(target);
  if (copy) copy->asNode()->setExternalFile(externalFile());
  return copy;
}

PrimNodeRecord* PrimNodeRecord::cloneTree(bool rename) const
{
  return cloneTree(file(), rename, /*keepNamesUnique=*/false);
}

namespace {

/// The copy keeps its name if nobody has it, else the first of "_1", "_2" ... behind it that is free.
void makeNameUnique(PrimNodeRecord& copy)
{
  const auto name = copy.getName();
  auto* file = copy.file();
  if (name.empty() || !file || file->registerName(name, copy.opcode(), /*allowDuplicate=*/false)) return;
  for (int i = 1; !copy.setName(name + "_" + std::to_string(i), /*allowDuplicate=*/false); ++i) {
  }
}

/// Definitions aren't doubled when the target has one already.
void copyDefinition(const InstanceReferenceRecord& reference, FltFile* target, bool rename, bool keepNamesUnique)
{
  const auto* source = reference.file();
  const int number = reference.instanceNumber();
  if (!source || !target || target == source || target->instanceDefinition(number)) return;
  const auto* definition = source->instanceDefinition(number);
  if (!definition) return;
  const osg::ref_ptr<PrimNodeRecord> placeholder = static_cast<PrimNodeRecord*>(definition->clone(target));
  if (!placeholder) return;
  // Entered before its content is copied: that may hold a reference to the definition itself.
  auto* copy = static_cast<InstanceDefinitionRecord*>(placeholder.get());
  target->addInstanceDefinition(*copy);
  for (auto* child : definition->children()) {
    const osg::ref_ptr<Record> childCopy =
        child->asNode() ? child->asNode()->cloneTree(target, rename, keepNamesUnique) : child->clone(target);
    copy->addChild(childCopy, /*append=*/true);
  }
}

void copyMasks(const SwitchRecord& from, SwitchRecord& to)
{
  for (int mask = 0; mask < from.maskCount(); ++mask) {
    for (int i = 0; i < to.primaryChildCount(); ++i)
      to.setBit(mask, i, from.bit(mask, i));
  }
}

} // namespace

PrimNodeRecord* PrimNodeRecord::cloneTree(FltFile* target, bool rename, bool keepNamesUnique) const
{
  auto* record = clone(target);
  if (!record) return nullptr;
  osg::ref_ptr<PrimNodeRecord> copy = record->asNode();
  if (rename) copy->assignUniqueName();

  // Content of an external reference keeps its names.
  const bool inExternal = hasAncestorOfType(ExternalRecord::code);
  for (auto* child : children_) {
    if (rename && child->opcode() == LongIDRecord::code) continue;
    if (opcode() == ExternalRecord::code && child->isPrimary()) continue;
    osg::ref_ptr<Record> childCopy;
    if (const auto* node = child->asNode()) {
      childCopy = node->cloneTree(target, rename && !inExternal, keepNamesUnique && !inExternal);
    } else {
      childCopy = child->clone(target);
      if (childCopy && rename) childCopy->assignUniqueName();
    }
    copy->addChild(childCopy, /*append=*/true);
  }
  if (keepNamesUnique) makeNameUnique(*copy);

  if (const auto* external = dynamic_cast<const ExternalRecord*>(this)) {
    static_cast<ExternalRecord&>(*copy).show(external->referencedFile(), external->resolvedPath());
  } else if (const auto* source = dynamic_cast<const SwitchRecord*>(this)) {
    copyMasks(*source, static_cast<SwitchRecord&>(*copy));
  } else if (const auto* reference = dynamic_cast<const InstanceReferenceRecord*>(this)) {
    copyDefinition(*reference, copy->file(), rename, keepNamesUnique);
  }
  return copy.release();
}

} // namespace fltapi
