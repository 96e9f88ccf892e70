# The one place that knows which Qt and which Qwt the module is built with.
#   ra_qt_core, ra_qt_gui, ra_qt_opengl, ra_qwt: what the module's libraries link.

add_library(ra_qt_core INTERFACE)
add_library(ra_qt_gui INTERFACE)
add_library(ra_qt_opengl INTERFACE)
add_library(ra_qwt INTERFACE)

set(OpenGL_GL_PREFERENCE LEGACY) # GLX applications in the field bring libGL, not libOpenGL
find_package(OpenGL REQUIRED)

if(ROOM_ADJUSTMENT_QT EQUAL 4)
  find_package(Qt4 4.8 REQUIRED QtCore QtGui QtOpenGL)
  target_link_libraries(ra_qt_core INTERFACE Qt4::QtCore)
  target_link_libraries(ra_qt_gui INTERFACE Qt4::QtGui)
  target_link_libraries(ra_qt_opengl INTERFACE Qt4::QtOpenGL OpenGL::GL OpenGL::GLU)
  set(RA_UIC Qt4::uic)
  set(qwt_names qwt-qt4 qwt5-qt4 qwt5 qwt)
  set(qwt_folders qwt-qt4 qwt5-qt4 qwt5 qwt)
else()
  find_package(Qt5 5.9 REQUIRED COMPONENTS Core Gui Widgets OpenGL)
  if(ROOM_ADJUSTMENT_DEMONSTRATION)
    find_package(Qt5 5.9 REQUIRED COMPONENTS Network Test)
  endif()
  target_link_libraries(ra_qt_core INTERFACE Qt5::Core)
  target_link_libraries(ra_qt_gui INTERFACE Qt5::Widgets)
  target_link_libraries(ra_qt_opengl INTERFACE Qt5::OpenGL OpenGL::GL OpenGL::GLU)
  set(RA_UIC Qt5::uic)
  set(qwt_names qwt-qt5 qwt)
  set(qwt_folders qwt qwt-qt5)
endif()

find_path(QWT_INCLUDE_DIR qwt_wheel.h PATH_SUFFIXES ${qwt_folders})
find_library(QWT_LIBRARY NAMES ${qwt_names})
if(NOT QWT_INCLUDE_DIR OR NOT QWT_LIBRARY)
  message(FATAL_ERROR "Qwt for Qt ${ROOM_ADJUSTMENT_QT} was not found; "
                      "set QWT_INCLUDE_DIR and QWT_LIBRARY")
endif()
target_include_directories(ra_qwt SYSTEM INTERFACE ${QWT_INCLUDE_DIR})
target_link_libraries(ra_qwt INTERFACE ${QWT_LIBRARY} ra_qt_gui)
