#pragma once

#include <osg/Image>
#include <osg/ref_ptr>

#include <string>

namespace nalt {

/// `picture` cut around its centre to the proportions of `width` by `height` pixels and scaled to that. The picture
/// itself when either is 0.
osg::ref_ptr<osg::Image> captureOfSize(osg::Image* picture, int width, int height);

/// Writes `picture` in the format of the path's ending. False, after a message, when that fails; a file that was there
/// before is then as it was.
bool writeCapture(osg::Image& picture, const std::string& path);

/// Asks for a file to write to, and about one that is there already. Proposes `near`; empty when the user gave up.
/// Needs a display.
std::string askForCaptureFile(const std::string& near);

/// What is proposed for the first capture of a model.
std::string firstCaptureFile(const std::string& modelPath);

/// The text that the file dialog makes its list of types from, and the ending that the i-th type adds to a name
/// without one.
std::string captureFilters();
std::string withCaptureEnding(const std::string& path, int filter);

} // namespace nalt
