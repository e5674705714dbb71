# What keeps a defect from becoming a way in, as Debian hardens its own programs: for the programs that a person
# runs, where they are ELF. The sanitizers of the test builds look closer than these flags, which would hide
# some of what they find.

add_library(tarvik_hardening INTERFACE)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  target_compile_options(tarvik_hardening INTERFACE
    -fstack-protector-strong -fstack-clash-protection -fPIE -Wformat -Werror=format-security)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
    target_compile_options(tarvik_hardening INTERFACE -fcf-protection)
  endif()
  target_compile_definitions(tarvik_hardening INTERFACE _FORTIFY_SOURCE=2)
  # Everything is bound and then made read-only before main; what only a debugger reads is left out.
  target_link_options(tarvik_hardening INTERFACE -pie -Wl,-z,relro -Wl,-z,now -s)
endif()
