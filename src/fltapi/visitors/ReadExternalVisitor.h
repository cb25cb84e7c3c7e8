#pragma once

#include "fltapi/ExternalFiles.h"
#include "fltapi/nodes/ExternalRecord.h"

#include <map>
#include <set>

namespace fltapi {

/// Loads the content of the external references of one file that show none yet.
///
/// A referenced file is looked for at its path as it stands, then in each folder of the search path, then beside the
/// file that refers to it; in each folder first by the path, then by the file's name alone. Only when it is nowhere as
/// it is spelled, the same places are searched without regard to letter case.
class ReadExternalVisitor : public RecordVisitor {
public:
  explicit ReadExternalVisitor(FltFile& referrer) : referrer_(referrer) {}

  using RecordVisitor::apply;
  void apply(ExternalRecord& external) override;

private:
  std::vector<std::string> candidates(const std::string& path) const;
  /// Null when nothing at that place can be loaded.
  osg::ref_ptr<FltFile> fileAt(const std::string& foundPath, const ExternalRecord& external);
  osg::ref_ptr<FltFile> loadFirst(const ExternalRecord& external, const std::string& path, std::string& foundPath);

  FltFile& referrer_;
  std::map<ExternalFiles::Key, osg::ref_ptr<FltFile>> shown_; ///< what references of this file show by now
  std::set<std::string> failed_; ///< paths that nothing was found for: told once, whoever else refers to them
  bool leadsBack_ = false;
};

} // namespace fltapi
