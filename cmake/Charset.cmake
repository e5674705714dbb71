# The library that guesses the encoding of a text, as the target tarvik_charset; ui/exchange/charset_guess.cpp alone
# knows it.
find_path(TARVIK_UCHARDET_INCLUDE uchardet.h PATH_SUFFIXES uchardet REQUIRED)
find_library(TARVIK_UCHARDET_LIBRARY uchardet REQUIRED)
add_library(tarvik_charset INTERFACE)
target_include_directories(tarvik_charset SYSTEM INTERFACE ${TARVIK_UCHARDET_INCLUDE})
target_link_libraries(tarvik_charset INTERFACE ${TARVIK_UCHARDET_LIBRARY})
