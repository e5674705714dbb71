# What every target of the project has in common, and the one way to make a folder's target.

add_library(tarvik_options INTERFACE)
target_include_directories(tarvik_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(tarvik_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${TARVIK_STRICT}>:-Werror>)
# g++ 12 warns of impossible overlaps inside std::string when it optimises for speed.
target_compile_options(tarvik_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# The bytes do not tell in which folder they were made.
target_compile_options(tarvik_options INTERFACE $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)

# Windows' C library lacks this one error number; the value is its network library's.
target_compile_definitions(tarvik_options INTERFACE $<$<PLATFORM_ID:Windows>:EDQUOT=10069>)

# tarvik_sources(VARIABLE PATTERN...): the files of the patterns without those of the other system: what one
# system alone has carries that system's name in front, posix_ or windows_.
function(tarvik_sources variable)
  file(GLOB sources CONFIGURE_DEPENDS ${ARGN})
  set(other windows)
  if(WIN32)
    set(other posix)
  endif()
  list(FILTER sources EXCLUDE REGEX "/${other}_[^/]*$")
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/TarvikHardening.cmake)
target_link_libraries(tarvik_options INTERFACE $<$<CONFIG:Release>:tarvik_hardening>)

# tarvik_logic_folder(NAME [FOLDER...]): a static library of the folder's sources that may include
# the named folders and the standard library, nothing else.
function(tarvik_logic_folder name)
  tarvik_sources(sources ${PROJECT_SOURCE_DIR}/${name}/*.cpp)
  list(LENGTH sources count)
  if(count EQUAL 0)
    add_library(tarvik_${name} INTERFACE)
    target_link_libraries(tarvik_${name} INTERFACE tarvik_options)
    foreach(below ${ARGN})
      target_link_libraries(tarvik_${name} INTERFACE tarvik_${below})
    endforeach()
    return()
  endif()
  add_library(tarvik_${name} STATIC ${sources})
  target_link_libraries(tarvik_${name} PUBLIC tarvik_options)
  foreach(below ${ARGN})
    target_link_libraries(tarvik_${name} PUBLIC tarvik_${below})
  endforeach()
endfunction()
