# One place for what comes from outside. Targets: nalt::osg, nalt::fltk, nalt::gl, PkgConfig::LUA,
# PkgConfig::SPNAV, nalt::rsvg, LibXml2::LibXml2.
set(OpenGL_GL_PREFERENCE GLVND)
set(FLTK_SKIP_FLUID ON)
set(FLTK_SKIP_FORMS ON)
find_package(FLTK REQUIRED)
find_package(OpenGL REQUIRED COMPONENTS OpenGL EGL)
find_package(OpenSceneGraph 3.6 REQUIRED COMPONENTS osgDB osgUtil osgGA osgText osgSim)
find_package(LibXml2 REQUIRED)
find_package(X11 REQUIRED)
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
# The C++ build of Lua: an error then unwinds destructors instead of jumping over them.
pkg_check_modules(LUA REQUIRED IMPORTED_TARGET lua5.2-c++)
pkg_check_modules(SPNAV REQUIRED IMPORTED_TARGET spnav)
pkg_check_modules(RSVG REQUIRED librsvg-2.0)

add_library(nalt_osg INTERFACE)
target_include_directories(nalt_osg SYSTEM INTERFACE ${OPENSCENEGRAPH_INCLUDE_DIRS})
target_link_libraries(nalt_osg INTERFACE ${OPENSCENEGRAPH_LIBRARIES} Threads::Threads)
add_library(nalt::osg ALIAS nalt_osg)

add_library(nalt_fltk INTERFACE)
target_include_directories(nalt_fltk SYSTEM INTERFACE ${FLTK_INCLUDE_DIR})
target_link_libraries(nalt_fltk INTERFACE ${FLTK_LIBRARIES})
add_library(nalt::fltk ALIAS nalt_fltk)

# Without the compiler flags that its package names: these would part precompiled headers.
add_library(nalt_rsvg INTERFACE)
target_include_directories(nalt_rsvg SYSTEM INTERFACE ${RSVG_INCLUDE_DIRS})
target_link_libraries(nalt_rsvg INTERFACE ${RSVG_LINK_LIBRARIES})
add_library(nalt::rsvg ALIAS nalt_rsvg)

add_library(nalt_gl INTERFACE)
target_link_libraries(nalt_gl INTERFACE OpenGL::GL OpenGL::GLU OpenGL::EGL)
add_library(nalt::gl ALIAS nalt_gl)
