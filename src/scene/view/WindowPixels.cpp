#include "scene/view/WindowPixels.h"

#include <osg/GL>

#include <initializer_list>

namespace nalt {

WindowPixels::WindowPixels(int width, int height)
{
  glPushAttrib(GL_ALL_ATTRIB_BITS);
  glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  glLoadIdentity();
  glOrtho(0, width, 0, height, -100, 100);
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glLoadIdentity();
  glViewport(0, 0, width, height);
  for (const GLenum mode : {GL_DEPTH_TEST, GL_LIGHTING, GL_TEXTURE_2D, GL_LINE_STIPPLE, GL_LINE_SMOOTH,
                            GL_POLYGON_SMOOTH, GL_CULL_FACE, GL_BLEND, GL_SCISSOR_TEST})
    glDisable(mode);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glLineWidth(1.0F);
}

WindowPixels::~WindowPixels()
{
  glMatrixMode(GL_PROJECTION);
  glPopMatrix();
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
  glPopClientAttrib();
  glPopAttrib();
}

} // namespace nalt
