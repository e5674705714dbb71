# How Qt is built for the Windows program: static, small, and only what the program uses.
set(CMAKE_BUILD_TYPE Release CACHE STRING "")
# Qt remembers this folder. It is none, so that the bytes do not tell where they were made.
set(CMAKE_INSTALL_PREFIX /toolkit CACHE PATH "")
set(BUILD_SHARED_LIBS OFF CACHE BOOL "")
set(QT_BUILD_EXAMPLES OFF CACHE BOOL "")
set(QT_BUILD_TESTS OFF CACHE BOOL "")
set(QT_QMAKE_TARGET_MKSPEC win32-g++ CACHE STRING "")

# Texts are shaped and drawn by the system; there is no driver, no header or no use for the rest.
# Without Direct2D Qt links no DirectWrite either; fonts then come from GDI.
set(left_out direct2d directwrite directwrite3 freetype harfbuzz icu openssl vulkan)
# Its vendored header is not in Debian's source.
list(APPEND left_out tabletevent)
# Whole modules.
list(APPEND left_out concurrent dbus network sql testlib xml)
# Formats and documents that the program neither reads nor writes.
list(APPEND left_out gif ico jpeg textmarkdownreader textmarkdownwriter textodfwriter)
# Parts that no screen has.
list(APPEND left_out colordialog columnview datawidgetmapper dial dockwidget fontdialog fontcombobox gestures
  graphicseffect graphicsview keysequenceedit lcdnumber mdiarea printpreviewdialog printpreviewwidget splashscreen
  syntaxhighlighter systemtrayicon toolbox undocommand wizard)
foreach(feature ${left_out})
  set(FEATURE_${feature} OFF CACHE BOOL "" FORCE)
endforeach()

# The Windows platform plugin does not compile without desktop OpenGL.
set(INPUT_opengl desktop CACHE STRING "")
foreach(feature optimize_size static static_runtime printer pdf)
  set(FEATURE_${feature} ON CACHE BOOL "")
endforeach()
# Qt's own copies of what it needs: there are no others for this target.
foreach(library zlib png pcre2 doubleconversion)
  set(FEATURE_system_${library} OFF CACHE BOOL "")
endforeach()
