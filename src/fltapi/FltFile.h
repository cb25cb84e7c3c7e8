#pragma once

#include "fltapi/NameRegistry.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/Record.h"

#include <array>
#include <filesystem>
#include <map>
#include <osg/observer_ptr>
#include <osg/ref_ptr>
#include <set>
#include <string>

namespace fltapi {

class ColorPaletteRecord;
class ExternalRecord;
class FileOutput;
class HeaderRecord;
class InstanceDefinitionRecord;
class InstanceReferenceRecord;
class RecordReader;
class VertexPaletteBreaker;
class VertexPaletteRecord;

/// One OpenFlight file: the record tree under its header and what belongs to the file as a whole. In memory a file is
/// always of version 16.2: older ones are widened when they are read and narrowed when they are written.
///
/// Failures are told to the Host in force (unless the file is quiet) and answered with false.
class FltFile : public osg::Referenced {
public:
  FltFile();
  /// A deep copy with records of its own.
  FltFile(const FltFile& other);
  FltFile& operator=(const FltFile&) = delete;

  /// Fills an empty file with what a new document has: header "db", color palette, one light point appearance, an empty
  /// vertex palette. The path becomes "untitled.flt".
  void initNew();

  // ---- disk ---------------------------------------------------------------------------------------------------------

  bool load(const std::string& path);
  /// Writes the document in a format version of 1570 to 1620. The document itself stays as it is, its path included,
  /// and may be looked at meanwhile. The file at `path` is replaced only when the new one is whole.
  bool save(const std::string& path, int version = currentVersion) const;

  const std::string& path() const { return path_; }
  void setPath(const std::string& path) { path_ = path; }
  /// Version of the file as it was read or last written.
  int loadedVersion() const { return loadedVersion_; }
  void setLoadedVersion(int version) { loadedVersion_ = version; }
  /// Whether the load repaired something, so that the document differs from its file.
  bool modified() const { return modified_; }
  void setModified(bool modified) { modified_ = modified; }
  /// No messages and no progress.
  bool quiet() const { return quiet_; }
  void setQuiet(bool quiet) { quiet_ = quiet; }
  bool reading() const { return reading_; }

  // ---- records ------------------------------------------------------------------------------------------------------

  HeaderRecord* header() const { return header_.get(); }
  /// A fresh record with default content that belongs to this file and is attached to nothing.
  Record* createRecord(int opcode);
  /// A record for a buffer, which it owns from now on.
  Record* createRecord(Buffer buffer);
  template <class T>
  T* create()
  {
    return static_cast<T*>(createRecord(T::code));
  }

  VertexPaletteRecord* vertexPalette() const;
  ColorPaletteRecord* colorPalette() const;
  /// The palette entries of one kind (64, 112, 113, 128, 129, 133), in file order.
  std::vector<Record*> palette(int opcode) const;

  /// Definitions by instance number. Of two with one number the first counts; the other is only kept.
  using InstanceDefinitions = std::multimap<int, osg::ref_ptr<InstanceDefinitionRecord>>;
  const InstanceDefinitions& instanceDefinitions() const { return instanceDefinitions_; }
  InstanceDefinitionRecord* instanceDefinition(int number) const;
  void addInstanceDefinition(InstanceDefinitionRecord& definition);
  /// The first reference to that instance in the tree, null when there is none.
  InstanceReferenceRecord* firstReferenceTo(int number) const;

  // ---- external references ------------------------------------------------------------------------------------------

  /// Loads the content of all external references that have none yet, unless the user doesn't want any. A reference
  /// whose file can't be found stays empty, with a warning.
  void readExternals();
  /// The references of this file itself, those in instance definitions too.
  std::vector<ExternalRecord*> externalReferences() const;
  /// Paths, as the records hold them, of references in the tree whose file is newer on disk than what was loaded.
  std::vector<std::string> changedExternals() const;
  /// Drops the content of all references with these paths and loads it again.
  void reloadExternals(const std::vector<std::string>& paths);
  /// For a file that is shown in another one: where `ownPalettes` (bits of ExternalRecord::OwnPalette) has no bit, the
  /// palettes of `referrer` count.
  void setReferrer(FltFile& referrer, std::uint32_t ownPalettes);

  // ---- names --------------------------------------------------------------------------------------------------------

  /// False when the name is taken and duplicates aren't allowed. A default name ("g12") raises its counter.
  bool registerName(const std::string& name, int opcode, bool allowDuplicate);
  /// Takes out one occurrence.
  void unregisterName(const std::string& name);
  /// A subtree comes back into the file, or leaves it: its names follow.
  void enterNames(const PrimNodeRecord& node);
  void leaveNames(const PrimNodeRecord& node);
  bool isNameTaken(const std::string& name);
  std::uint32_t nextNumber(NameCounter counter) const { return nextNumbers_[static_cast<int>(counter)]; }

  // ---- what the tree tells ------------------------------------------------------------------------------------------

  void childAttached(Record& child);
  void childDetached(Record& child);
  /// Running sum of the lengths of attached records, vertices left out. For progress reports.
  std::uint64_t totalBytes() const { return totalBytes_; }
  int vertexListCount() const { return vertexListCount_; }

  // ---- what streams tell --------------------------------------------------------------------------------------------

  void reportReading(double fraction) const;
  void reportWriting(std::uint64_t written, std::uint64_t total) const;
  /// The load repaired something: told once for each kind of repair in a file.
  void noteRepair(const std::string& message);
  void warn(const std::string& message) const;
  void complain(const std::string& message) const;

protected:
  ~FltFile() override;

private:
  friend class ReadExternalVisitor;
  /// What the disk said about a referenced file when it was loaded.
  struct ExternalStamp {
    std::string foundPath;
    std::filesystem::file_time_type time;
  };

  /// The file whose palette counts for records of this one: itself, or the one that refers to it.
  const FltFile* paletteOwner(int opcode) const;
  void clear();
  bool readRecords(const std::string& path, VertexPaletteBreaker& vertices);
  void breakVertexPalette(VertexPaletteBreaker& vertices);
  void checkVersion() const;
  bool writeRecords(FileOutput& output) const;
  void raiseCounter(const std::string& name, const OpcodeInfo& info);
  void collectNames();
  template <class Work>
  static void forEachName(const PrimNodeRecord& node, const Work& work);

  std::string path_;
  NameRegistry names_;
  osg::ref_ptr<HeaderRecord> header_;
  InstanceDefinitions instanceDefinitions_;
  std::array<std::uint32_t, nameCounterCount> nextNumbers_;
  std::map<std::string, ExternalStamp> externalStamps_;
  osg::observer_ptr<FltFile> referrer_;
  std::uint32_t ownPalettes_ = 0xffffffff;
  std::set<std::string> repairsTold_;
  std::uint64_t totalBytes_ = 0;
  std::int32_t vertexListCount_ = 0;
  int loadedVersion_ = currentVersion;
  bool namesCollected_ = false;
  bool reading_ = false;
  bool modified_ = false;
  bool quiet_ = false;
};

} // namespace fltapi
