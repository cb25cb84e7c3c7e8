#include "fltapi/FltFile.h"

#include "fltapi/AllRecords.h"
#include "fltapi/Host.h"
#include "fltapi/visitors/FirstReferenceVisitor.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace fltapi {

FltFile::FltFile()
{
  nextNumbers_.fill(1);
}

FltFile::FltFile(const FltFile& other)
    : osg::Referenced(),
      path_(other.path_),
      nextNumbers_(other.nextNumbers_),
      totalBytes_(other.totalBytes_),
      loadedVersion_(other.loadedVersion_),
      quiet_(other.quiet_)
{
  // All definitions are entered before anything that refers to them is copied.
  std::vector<InstanceDefinitionRecord*> copies;
  for (const auto& [number, definition] : other.instanceDefinitions_) {
    copies.push_back(static_cast<InstanceDefinitionRecord*>(definition->clone(this)));
    instanceDefinitions_.emplace(number, copies.back());
  }
  auto copy = copies.begin();
  for (const auto& [number, definition] : other.instanceDefinitions_)
    definition->cloneChildrenInto(**copy++);
  if (other.header_) {
    header_ = static_cast<HeaderRecord*>(other.header_->cloneTree(this, /*rename=*/false, /*keepNamesUnique=*/false));
  }
  totalBytes_ = other.totalBytes_;
}

FltFile::~FltFile() = default;

void FltFile::initNew()
{
  path_ = "untitled.flt";
  header_ = create<HeaderRecord>();
  header_->setName("db");
  const auto now = std::time(nullptr);
  std::string date = std::asctime(std::localtime(&now));
  date.pop_back(); // asctime ends with a line feed
  header_->set(HeaderRecord::fields.dateAndTime, date);
  header_->addChild(create<ColorPaletteRecord>(), /*append=*/true);
  auto* appearance = create<LightPointAppearancePaletteRecord>();
  appearance->set(LightPointAppearancePaletteRecord::fields.index, 0);
  appearance->setName("appearance0");
  header_->addChild(appearance, /*append=*/true);
  header_->addChild(create<VertexPaletteRecord>(), /*append=*/true);
}

// ---- records -------------------------------------------------------------------------------------------------------

Record* FltFile::createRecord(int opcode)
{
  return createRecord(defaultBuffer(opcode));
}

Record* FltFile::createRecord(Buffer buffer)
{
  auto* record = makeRecord(std::move(buffer));
  record->setFile(this);
  return record;
}

VertexPaletteRecord* FltFile::vertexPalette() const
{
  return header_ ? header_->findChild<VertexPaletteRecord>() : nullptr;
}

ColorPaletteRecord* FltFile::colorPalette() const
{
  if (const auto* other = paletteOwner(opcodes::colorPalette); other != this) return other->colorPalette();
  return header_ ? header_->findChild<ColorPaletteRecord>() : nullptr;
}

std::vector<Record*> FltFile::palette(int opcode) const
{
  if (const auto* other = paletteOwner(opcode); other != this) return other->palette(opcode);
  return header_ ? header_->findChildren(opcode) : std::vector<Record*>{};
}

InstanceDefinitionRecord* FltFile::instanceDefinition(int number) const
{
  const auto found = instanceDefinitions_.find(number);
  return found == instanceDefinitions_.end() ? nullptr : instanceDefinitions_.lower_bound(number)->second.get();
}

void FltFile::addInstanceDefinition(InstanceDefinitionRecord& definition)
{
  const int number = definition.instanceNumber();
  if (instanceDefinitions_.contains(number)) {
    warn("Instance " + std::to_string(number) + " is defined more than once. The first definition is used.");
  }
  instanceDefinitions_.emplace(number, &definition);
}

InstanceReferenceRecord* FltFile::firstReferenceTo(int number) const
{
  if (!header_) return nullptr;
  FirstReferenceVisitor visitor(number);
  header_->accept(visitor);
  return visitor.result();
}

// ---- names ---------------------------------------------------------------------------------------------------------

namespace {

/// The header's field that mirrors a counter, in the order of NameCounter.
constexpr std::array<Field<std::uint16_t> HeaderFields::*, nameCounterCount> counterFields = {
    &HeaderFields::nextGroup,       &HeaderFields::nextObject,     &HeaderFields::nextFace,
    &HeaderFields::nextLod,         &HeaderFields::nextDof,        &HeaderFields::nextSwitch,
    &HeaderFields::nextLightSource, &HeaderFields::nextLightPoint, &HeaderFields::nextLightPointSystem,
    &HeaderFields::nextMesh,        &HeaderFields::nextBsp,        &HeaderFields::nextSound,
    &HeaderFields::nextText,        &HeaderFields::nextPath,       &HeaderFields::nextRoad,
    &HeaderFields::nextClip,        &HeaderFields::nextCat,        &HeaderFields::nextCurve,
};

/// The number of a default name: the prefix and nothing but digits behind it. -1 for any other name.
long defaultNumber(const std::string& name, std::string_view prefix)
{
  if (prefix.empty() || name.size() <= prefix.size() || !name.starts_with(prefix)) return -1;
  long number = 0;
  for (const char c : std::string_view(name).substr(prefix.size())) {
    if (c < '0' || c > '9') return -1;
    number = std::min(number * 10 + (c - '0'), long{std::numeric_limits<std::int32_t>::max()});
  }
  return number;
}

} // namespace

void FltFile::raiseCounter(const std::string& name, const OpcodeInfo& info)
{
  if (info.counter == NameCounter::none) return;
  const auto number = defaultNumber(name, info.prefix);
  auto& next = nextNumbers_[static_cast<int>(info.counter)];
  if (number < 0 || static_cast<std::uint32_t>(number) < next) return;
  next = static_cast<std::uint32_t>(number) + 1;
  if (!header_) return;
  // A file's own next numbers survive: they are only ever raised.
  const auto& field = HeaderRecord::fields.*counterFields[static_cast<int>(info.counter)];
  if (number > header_->get(field)) {
    header_->set(field, static_cast<std::uint16_t>(std::min(number, long{std::numeric_limits<std::uint16_t>::max()})));
  }
}

template <class Work>
void FltFile::forEachName(const PrimNodeRecord& node, const Work& work)
{
  if (const auto name = node.getName(); !name.empty()) work(name);
  if (node.opcode() == ExternalRecord::code) return;
  for (const auto* child : node.primaryChildren())
    forEachName(*child, work);
}

/// Most files are only converted or looked at, so the names are gathered when the first edit asks for them.
void FltFile::collectNames()
{
  if (namesCollected_) return;
  namesCollected_ = true;
  names_.clear();
  const auto add = [this](const std::string& name) { names_.add(name); };
  if (header_) forEachName(*header_, add);
  for (const auto& [number, definition] : instanceDefinitions_)
    forEachName(*definition, add);
}

void FltFile::enterNames(const PrimNodeRecord& node)
{
  if (namesCollected_) forEachName(node, [this](const std::string& name) { names_.add(name); });
}

void FltFile::leaveNames(const PrimNodeRecord& node)
{
  if (namesCollected_) forEachName(node, [this](const std::string& name) { names_.remove(name); });
}

bool FltFile::registerName(const std::string& name, int opcode, bool allowDuplicate)
{
  if (name.empty()) return true;
  if (!reading_) {
    collectNames();
    if (!allowDuplicate && names_.contains(name)) return false;
    names_.add(name);
  }
  raiseCounter(name, opcodeInfo(opcode));
  return true;
}

void FltFile::unregisterName(const std::string& name)
{
  if (namesCollected_) names_.remove(name);
}

bool FltFile::isNameTaken(const std::string& name)
{
  collectNames();
  return names_.contains(name);
}

// ---- what the tree tells -------------------------------------------------------------------------------------------

namespace {

bool countsForProgress(int opcode)
{
  return opcode < opcodes::vertex || opcode > opcodes::textureVertex;
}

} // namespace

void FltFile::childAttached(Record& child)
{
  if (countsForProgress(child.opcode())) totalBytes_ += child.length();
  if (child.opcode() == opcodes::vertexList && vertexListCount_ < std::numeric_limits<std::int32_t>::max()) {
    ++vertexListCount_;
  }
}

void FltFile::childDetached(Record& child)
{
  if (countsForProgress(child.opcode())) totalBytes_ -= std::min<std::uint64_t>(totalBytes_, child.length());
  if (child.opcode() == opcodes::vertexList && vertexListCount_ > 0) --vertexListCount_;
}

// ---- messages ------------------------------------------------------------------------------------------------------

void FltFile::warn(const std::string& message) const
{
  if (!quiet_) Host::get().warning(message);
}

void FltFile::complain(const std::string& message) const
{
  if (!quiet_) Host::get().error(message);
}

void FltFile::noteRepair(const std::string& message)
{
  modified_ = true;
  if (repairsTold_.insert(message).second) warn(message);
}

void FltFile::reportReading(double fraction) const
{
  if (!quiet_) Host::get().progress(fraction);
}

void FltFile::reportWriting(std::uint64_t written, std::uint64_t total) const
{
  if (!quiet_ && total) Host::get().progress(std::min(1.0, static_cast<double>(written) / static_cast<double>(total)));
}

} // namespace fltapi
