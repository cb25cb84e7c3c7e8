#pragma once

#include "fltapi/FltFile.h"

#include <compare>
#include <filesystem>
#include <map>
#include <osg/observer_ptr>
#include <set>
#include <string>
#include <vector>

namespace fltapi {

/// All files that are shown in others, process-wide, so that many references to one file load it once. It keeps none of
/// them alive. One thread at a time: the one that loads, or the main thread while nobody does.
class ExternalFiles {
public:
  static ExternalFiles& get();

  /// What makes two references show one and the same content. Where the palettes of the referring file count, only its
  /// own references can share.
  struct Key {
    std::string path; ///< canonical
    std::uint32_t ownPalettes = 0;
    const FltFile* referrer = nullptr;
    friend auto operator<=>(const Key&, const Key&) = default;
  };

  /// Null when no file of that key is loaded, or when it or a file that it shows is newer on disk: who refers to it now
  /// gets what the disk holds now.
  osg::ref_ptr<FltFile> find(const Key& key);
  /// A file that shows the same with other palettes, once there are very many of them: files of which each shows the
  /// next ones with its own palettes would have to be loaded without end. Null while there are fewer.
  osg::ref_ptr<FltFile> findOneOfTooMany(const Key& key);
  /// @param time of the file on disk before it was loaded
  void add(const Key& key, FltFile& file, std::filesystem::file_time_type time);
  /// Whether a file that was added is newer on disk than what was loaded; false for one that is gone from there.
  bool isOutdated(const FltFile& file) const;
  /// The next reference with that path loads anew.
  void forget(const std::string& canonicalPath);

  /// Files that are being loaded just now, from the document down to the innermost reference.
  bool isLoading(const std::string& canonicalPath) const { return loading_.contains(canonicalPath); }

  /// Marks a file as being loaded for the time of a block.
  class Loading {
  public:
    explicit Loading(const std::string& canonicalPath);
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;
    ~Loading();

  private:
    std::string path_;
    bool mine_;
  };

  /// Adds the levels of nodes above a reference to those of the references that led to it, for the time of a block.
  /// Files that refer to further ones can nest levels without end where no file is deep by itself.
  class Nesting {
  public:
    explicit Nesting(int levels);
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { get().levels_ -= levels_; }
    bool tooDeep() const;

  private:
    int levels_;
  };

private:
  /// Every file that was added and still lives, also one that newer content has taken the place of.
  struct Loaded {
    osg::observer_ptr<FltFile> file; ///< a new one may stand where one has gone
    std::string path;
    std::filesystem::file_time_type time;
  };

  std::map<Key, osg::observer_ptr<FltFile>> files_;
  std::map<const FltFile*, Loaded> loaded_;
  std::size_t mostLoaded_ = 64; ///< before those that are gone are sorted out
  int levels_ = 0;
  std::set<std::string> loading_;
};

/// False for a file that is gone.
bool isNewerOnDisk(const std::string& path, std::filesystem::file_time_type time);

/// The path by which one file is known however it is named; the path itself when it leads nowhere.
std::string canonicalPath(const std::string& path);

} // namespace fltapi
