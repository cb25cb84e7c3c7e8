#include "tests/scene/image/OffscreenView.h"

#include "tests/support/Surroundings.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <osg/FrameStamp>
#include <osg/PolygonMode>
#include <osgDB/WriteFile>
#include <osgUtil/SceneView>

#include <filesystem>

namespace nalt::tests {

namespace {

EGLDisplay display()
{
  static const EGLDisplay opened = [] {
    const auto open = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    const auto display = open ? open(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr) : EGL_NO_DISPLAY;
    const bool works =
        display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) && eglBindAPI(EGL_OPENGL_API);
    return works ? display : EGL_NO_DISPLAY;
  }();
  return opened;
}

unsigned nextContext()
{
  static unsigned next = 0;
  osg::DisplaySettings::instance()->setMaxNumberOfGraphicsContexts(next + 1);
  return next++;
}

} // namespace

struct OffscreenView::Context {
  int width, height;
  EGLSurface surface = EGL_NO_SURFACE;
  EGLContext context = EGL_NO_CONTEXT;
  osg::ref_ptr<osgUtil::SceneView> view = new osgUtil::SceneView;
  osg::ref_ptr<osg::FrameStamp> stamp = new osg::FrameStamp;
  osg::ref_ptr<osg::Image> image = new osg::Image;
};

std::unique_ptr<OffscreenView> OffscreenView::create(int width, int height)
{
  if (display() == EGL_NO_DISPLAY) return nullptr;
  std::unique_ptr<OffscreenView> view(new OffscreenView(width, height));
  return view->context_->context == EGL_NO_CONTEXT ? nullptr : std::move(view);
}

OffscreenView::OffscreenView(int width, int height) : context_(new Context{.width = width, .height = height})
{
  constexpr EGLint wanted[] = {
      EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_RED_SIZE, 8, EGL_DEPTH_SIZE, 24,
      EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (!eglChooseConfig(display(), wanted, &config, 1, &count) || count == 0) return;
  const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
  context_->surface = eglCreatePbufferSurface(display(), config, size);
  context_->context = eglCreateContext(display(), config, EGL_NO_CONTEXT, nullptr);

  auto& view = *context_->view;
  view.setDefaults(osgUtil::SceneView::STANDARD_SETTINGS);
  const osg::ref_ptr<osg::State> state = new osg::State;
  state->setContextID(nextContext());
  view.setState(state);
  view.setFrameStamp(context_->stamp);
  view.setLODScale(0); // the nearest levels of scenes that choose by distance
  view.setViewport(0, 0, width, height);
  const osg::Vec4ub color = background();
  view.setClearColor(osg::Vec4(color.r(), color.g(), color.b(), color.a()) / 255.0F);
  auto& global = *view.getGlobalStateSet();
  global.setAttribute(new osg::PolygonMode);
  global.setMode(GL_CULL_FACE, osg::StateAttribute::ON);
  global.setMode(GL_NORMALIZE, osg::StateAttribute::ON);
  global.setMode(GL_LIGHTING, osg::StateAttribute::ON);
}

OffscreenView::~OffscreenView()
{
  if (context_->context == EGL_NO_CONTEXT) return;
  eglMakeCurrent(display(), context_->surface, context_->surface, context_->context);
  context_->view->releaseAllGLObjects();
  context_->view->flushAllDeletedGLObjects();
  context_->view = nullptr;
  eglMakeCurrent(display(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  eglDestroyContext(display(), context_->context);
  eglDestroySurface(display(), context_->surface);
}

void OffscreenView::setBits(std::uint32_t bits)
{
  context_->view->setCullMask(bits);
}

void OffscreenView::setScene(osg::Node* scene)
{
  context_->view->setSceneData(scene);
}

void OffscreenView::setWireframe(bool wireframe)
{
  const auto mode = wireframe ? osg::PolygonMode::LINE : osg::PolygonMode::FILL;
  context_->view->getGlobalStateSet()->setAttribute(new osg::PolygonMode(osg::PolygonMode::FRONT_AND_BACK, mode));
}

void OffscreenView::lookAlong(const osg::Vec3d& direction, const osg::Vec3d& up)
{
  const auto bound = context_->view->getSceneData()->getBound();
  const osg::Vec3d center = bound.center();
  const double distance = 2.2 * bound.radius();
  auto unit = direction;
  unit.normalize();
  context_->view->setViewMatrixAsLookAt(center - unit * distance, center, up);
  context_->view->setProjectionMatrixAsPerspective(45, static_cast<double>(context_->width) / context_->height,
                                                   distance / 100, distance * 3);
}

void OffscreenView::lookAs(const OffscreenView& other)
{
  context_->view->setViewMatrix(other.context_->view->getViewMatrix());
  context_->view->setProjectionMatrix(other.context_->view->getProjectionMatrix());
}

void OffscreenView::lookDown(double pixels)
{
  context_->view->setViewMatrixAsLookAt({0, 0, 100}, {0, 0, 0}, {0, 1, 0});
  context_->view->setProjectionMatrixAsOrtho(0, context_->width / pixels, 0, context_->height / pixels, 1, 1000);
}

osg::ref_ptr<osg::Image> OffscreenView::draw()
{
  eglMakeCurrent(display(), context_->surface, context_->surface, context_->context);
  context_->stamp->setFrameNumber(context_->stamp->getFrameNumber() + 1);
  auto& view = *context_->view;
  view.setComputeNearFarMode(osg::CullSettings::DO_NOT_COMPUTE_NEAR_FAR);
  view.update();
  view.cull();
  view.draw();
  context_->image->readPixels(0, 0, context_->width, context_->height, GL_RGBA, GL_UNSIGNED_BYTE);
  eglMakeCurrent(display(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  return context_->image;
}

osg::Vec4ub OffscreenView::pixel(int x, int y) const
{
  const auto* bytes = context_->image->data(static_cast<unsigned>(x), static_cast<unsigned>(y));
  return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

int OffscreenView::drawnPixels() const
{
  int count = 0;
  for (int y = 0; y < context_->height; ++y) {
    for (int x = 0; x < context_->width; ++x) {
      const auto color = pixel(x, y);
      const auto empty = background();
      count += color.r() != empty.r() || color.g() != empty.g() || color.b() != empty.b();
    }
  }
  return count;
}

double OffscreenView::coverage() const
{
  return static_cast<double>(drawnPixels()) / (context_->width * context_->height);
}

void OffscreenView::save(const std::string& name) const
{
  const auto folder = std::filesystem::path(picturesFolder);
  std::filesystem::create_directories(folder);
  osgDB::writeImageFile(*context_->image, folder / (name + ".png"));
}

} // namespace nalt::tests
