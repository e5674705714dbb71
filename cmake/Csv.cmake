# The library that reads the rows of CSV files, as the target tarvik_csv; exchange/csv_rows.cpp alone knows it.
# Found where a package installed it; a build for a system without one gives the folder of its one C file.
set(TARVIK_CSV_SOURCE "" CACHE PATH "Folder of libcsv.c and csv.h to build; empty = find the library")

if(TARVIK_CSV_SOURCE)
  enable_language(C)
  add_library(tarvik_csv STATIC ${TARVIK_CSV_SOURCE}/libcsv.c)
  target_include_directories(tarvik_csv SYSTEM PUBLIC ${TARVIK_CSV_SOURCE})
else()
  find_path(TARVIK_CSV_INCLUDE csv.h REQUIRED)
  find_library(TARVIK_CSV_LIBRARY csv REQUIRED)
  add_library(tarvik_csv INTERFACE)
  target_include_directories(tarvik_csv SYSTEM INTERFACE ${TARVIK_CSV_INCLUDE})
  target_link_libraries(tarvik_csv INTERFACE ${TARVIK_CSV_LIBRARY})
endif()
