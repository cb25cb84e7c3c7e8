#pragma once

#include "fltapi/Record.h"

#include <osg/ref_ptr>
#include <vector>

namespace fltapi {
class FltFile;
}

namespace nalt {

/// The copies that Paste inserts, with the document that each was copied from. Process-wide; main thread only.
class Clipboard {
public:
  struct Entry {
    osg::ref_ptr<fltapi::Record> record;
    const fltapi::FltFile* source; ///< never followed, so the document may be gone
  };

  static Clipboard& get();

  void add(fltapi::Record& record, const fltapi::FltFile& source) { entries_.push_back({&record, &source}); }
  void clear() { entries_.clear(); }
  bool empty() const { return entries_.empty(); }
  /// Whether anything was copied from that document. False for null.
  bool holdsFrom(const fltapi::FltFile* source) const;
  const std::vector<Entry>& entries() const { return entries_; }

private:
  std::vector<Entry> entries_;
};

} // namespace nalt
