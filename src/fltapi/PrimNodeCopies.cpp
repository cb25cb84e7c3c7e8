#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

namespace fltapi {

namespace {

/// Copies trees into one file. Definitions that references bring along wait until the tree is done: chains of instances
/// can be as long as there are numbers.
class TreeCopier {
public:
  explicit TreeCopier(FltFile* target) : target_(target) {}

  osg::ref_ptr<PrimNodeRecord> copy(const PrimNodeRecord& node, bool rename, bool keepNamesUnique)
  {
    auto copied = copyNode(node, rename, keepNamesUnique, node.hasAncestorOfType(ExternalRecord::code));
    finish();
    return copied;
  }

  void copyChildren(const PrimNodeRecord& from, PrimNodeRecord& to)
  {
    copyChildren(from, to, /*rename=*/false, /*keepNamesUnique=*/false);
    finish();
  }

private:
  struct Waiting {
    const InstanceDefinitionRecord* from;
    osg::ref_ptr<InstanceDefinitionRecord> to;
    bool rename;
    bool keepNamesUnique;
  };

  osg::ref_ptr<PrimNodeRecord> copyNode(const PrimNodeRecord& node, bool rename, bool keepNamesUnique, bool inExternal);
  void copyChildren(const PrimNodeRecord& from, PrimNodeRecord& to, bool rename, bool keepNamesUnique);
  void bringDefinition(const InstanceReferenceRecord& reference, bool rename, bool keepNamesUnique);
  void finish();

  FltFile* target_;
  std::vector<Waiting> waiting_;
};

/// The copy bears the name of its original, which keeps it: it is only the copy that lets go of it.
void forgetName(PrimNodeRecord& copy)
{
  copy.set(nodeFields.id, "");
  if (auto* record = copy.findChild<LongIDRecord>()) copy.removeChild(record);
}

void assignFreshName(PrimNodeRecord& copy)
{
  const auto* file = copy.file();
  if (!file || !file->header() || opcodeInfo(copy.opcode()).counter == NameCounter::none) return;
  forgetName(copy);
  copy.assignUniqueName();
}

/// The copy keeps its name if nobody has it, else the first of "_1", "_2" ... behind it that is free.
void makeNameUnique(PrimNodeRecord& copy)
{
  const auto name = copy.getName();
  auto* file = copy.file();
  if (name.empty() || !copy.hasId() || !file) return;
  if (file->registerName(name, copy.opcode(), /*allowDuplicate=*/false)) return;
  forgetName(copy);
  for (int i = 1; !copy.setName(name + "_" + std::to_string(i), /*allowDuplicate=*/false); ++i) {
  }
}

osg::ref_ptr<PrimNodeRecord> TreeCopier::copyNode(const PrimNodeRecord& node, bool rename, bool keepNamesUnique,
                                                  bool inExternal)
{
  const osg::ref_ptr<Record> record = node.clone(target_);
  if (!record) return nullptr;
  osg::ref_ptr<PrimNodeRecord> copy = record->asNode();
  if (rename) assignFreshName(*copy);
  // The copy of a switch has the bits of its children with the rest of its bytes.
  const SwitchRecord::MasksStay stay(dynamic_cast<SwitchRecord*>(copy.get()));
  // Content of an external reference keeps its names.
  copyChildren(node, *copy, rename && !inExternal, keepNamesUnique && !inExternal);
  if (keepNamesUnique) makeNameUnique(*copy);

  if (const auto* external = dynamic_cast<const ExternalRecord*>(&node)) {
    static_cast<ExternalRecord&>(*copy).show(external->referencedFile(), external->resolvedPath());
  } else if (const auto* reference = dynamic_cast<const InstanceReferenceRecord*>(&node)) {
    bringDefinition(*reference, rename, keepNamesUnique);
  }
  return copy;
}

void TreeCopier::copyChildren(const PrimNodeRecord& from, PrimNodeRecord& to, bool rename, bool keepNamesUnique)
{
  for (auto* child : from.children()) {
    if (rename && child->opcode() == LongIDRecord::code) continue;
    // What an external reference shows isn't copied; the copy shows the same.
    if (from.opcode() == ExternalRecord::code && child->isPrimary()) continue;
    osg::ref_ptr<Record> copy;
    if (const auto* node = child->asNode()) {
      copy = copyNode(*node, rename, keepNamesUnique, /*inExternal=*/false);
    } else {
      copy = child->clone(target_);
      if (copy && rename) copy->assignUniqueName();
    }
    to.addChild(copy, /*append=*/true);
  }
}

/// Definitions aren't doubled when the target has one already.
void TreeCopier::bringDefinition(const InstanceReferenceRecord& reference, bool rename, bool keepNamesUnique)
{
  const auto* source = reference.file();
  const int number = reference.instanceNumber();
  if (!source || !target_ || target_ == source || target_->instanceDefinition(number)) return;
  const auto* definition = source->instanceDefinition(number);
  if (!definition) return;
  const osg::ref_ptr<Record> copy = definition->clone(target_);
  if (!copy) return;
  auto& entered = static_cast<InstanceDefinitionRecord&>(*copy);
  target_->addInstanceDefinition(entered);
  waiting_.push_back({definition, &entered, rename, keepNamesUnique});
}

void TreeCopier::finish()
{
  while (!waiting_.empty()) {
    const auto next = waiting_.back();
    waiting_.pop_back();
    copyChildren(*next.from, *next.to, next.rename, next.keepNamesUnique);
  }
}

} // namespace

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

PrimNodeRecord* PrimNodeRecord::cloneTree(FltFile* target, bool rename, bool keepNamesUnique) const
{
  return TreeCopier(target ? target : file()).copy(*this, rename, keepNamesUnique).release();
}

void PrimNodeRecord::cloneChildrenInto(PrimNodeRecord& copy) const
{
  TreeCopier(copy.file()).copyChildren(*this, copy);
}

} // namespace fltapi
