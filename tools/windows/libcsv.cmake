# Debian's libcsv as a static library, where the program's build looks for it.
cmake_minimum_required(VERSION 3.25)
project(csv LANGUAGES C)

add_library(csv STATIC libcsv.c)
install(FILES csv.h DESTINATION include)
install(TARGETS csv ARCHIVE DESTINATION lib)
