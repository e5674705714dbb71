# Debian's cross compiler for 64-bit Windows. What is linked is static: one file runs by itself.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Qt's big objects have more sections than the plain format counts; sections apart let the linker
# leave out what nobody calls. Qt and the program are hardened as far as this compiler can: it knows no
# control-flow guard, checks the depth of the stack by itself and asks for random addresses by itself.
set(flags "-Wa,-mbig-obj -ffunction-sections -fdata-sections -fstack-protector-strong -D_FORTIFY_SOURCE=2")
set(CMAKE_C_FLAGS_INIT "${flags}")
set(CMAKE_CXX_FLAGS_INIT "${flags}")
# Without the time of the build in it: the same sources make the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--gc-sections -Wl,--no-insert-timestamp")

# Programs come from this machine, everything else from the cross compiler's folders and from Qt
# that was built for it.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 $ENV{TARVIK_WINDOWS_QT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's code generators run here; Debian keeps their descriptions in the multiarch folder.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
