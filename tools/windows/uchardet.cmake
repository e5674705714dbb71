# Debian's uchardet as a static library, where the program's build looks for it.
cmake_minimum_required(VERSION 3.25)
project(uchardet LANGUAGES CXX)

file(GLOB sources src/*.cpp src/LangModels/*.cpp)
add_library(uchardet STATIC ${sources})
target_include_directories(uchardet PRIVATE src)
install(FILES src/uchardet.h DESTINATION include)
install(TARGETS uchardet ARCHIVE DESTINATION lib)
