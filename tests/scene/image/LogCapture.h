#pragma once

#include <osg/Notify>
#include <osg/ref_ptr>

#include <string>

namespace nalt::tests {

/// Keeps what the scene writes to OpenSceneGraph's log while it exists.
class LogCapture {
public:
  explicit LogCapture(osg::NotifySeverity level = osg::WARN)
      : former_(osg::getNotifyHandler()), level_(osg::getNotifyLevel())
  {
    osg::setNotifyHandler(handler_);
    osg::setNotifyLevel(level);
  }
  ~LogCapture()
  {
    osg::setNotifyHandler(former_);
    osg::setNotifyLevel(level_);
  }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  const std::string& text() const { return handler_->text; }

private:
  struct Handler : osg::NotifyHandler {
    void notify(osg::NotifySeverity, const char* message) override { text += message; }
    std::string text;
  };
  osg::ref_ptr<Handler> handler_ = new Handler;
  osg::ref_ptr<osg::NotifyHandler> former_;
  osg::NotifySeverity level_;
};

} // namespace nalt::tests
