# What the one file of the Windows program carries: icon, version, manifest, and Qt's Hungarian texts.

enable_language(RC)
set_target_properties(Tarvik PROPERTIES WIN32_EXECUTABLE ON)
set(windows_folder ${PROJECT_SOURCE_DIR}/packaging/windows)

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)
set(pictures)
set(arguments)
foreach(size 16 24 32 48 64 128 256)
  set(picture ${CMAKE_CURRENT_BINARY_DIR}/tarvik-${size}.png)
  add_custom_command(OUTPUT ${picture} DEPENDS ${PROJECT_SOURCE_DIR}/packaging/tarvik.svg
    COMMAND ${RSVG_CONVERT} --width=${size} --height=${size} --output=${picture}
      ${PROJECT_SOURCE_DIR}/packaging/tarvik.svg)
  # Windows reads the largest one compressed, and that one alone.
  if(size EQUAL 256)
    list(APPEND arguments --raw=${picture})
  else()
    list(APPEND arguments ${picture})
  endif()
  list(APPEND pictures ${picture})
endforeach()
set(icon ${CMAKE_CURRENT_BINARY_DIR}/tarvik.ico)
add_custom_command(OUTPUT ${icon} DEPENDS ${pictures}
  COMMAND ${ICOTOOL} --create --output=${icon} ${arguments})

foreach(name tarvik.rc tarvik.manifest)
  configure_file(${windows_folder}/${name}.in ${name} @ONLY)
endforeach()
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/tarvik.rc PROPERTIES
  COMPILE_OPTIONS "--codepage=65001;--include-dir=${CMAKE_CURRENT_BINARY_DIR}"
  OBJECT_DEPENDS "${icon};${CMAKE_CURRENT_BINARY_DIR}/tarvik.manifest")
target_sources(Tarvik PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/tarvik.rc)

set(texts ${QT_HOST_PATH}/share/qt6/translations/qtbase_hu.qm)
set_source_files_properties(${texts} PROPERTIES QT_RESOURCE_ALIAS qtbase_hu.qm)
# The first format alone keeps no times of the files.
qt_add_resources(Tarvik translations PREFIX /translations FILES ${texts} OPTIONS --format-version 1)

# Windows' C library has the local time of a thread of its own (localtime_r) only for whoever asks for it.
set_source_files_properties(system_clock.cpp PROPERTIES COMPILE_DEFINITIONS _POSIX_C_SOURCE=200112L)
