# Warnings of all our targets, as errors.
add_library(blattwart_warnings INTERFACE)
target_compile_options(blattwart_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow=local -Wnon-virtual-dtor -Wold-style-cast -Wconversion
  -Wno-sign-conversion -Werror)
# GCC 12 takes the joining of a literal and a temporary string for overlapping memory when it optimises (PR 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(blattwart_warnings INTERFACE -Wno-restrict)
endif()
# Where several sources are compiled as one, GCC takes a source's own class with a member from its unnamed namespace for one
# of a header; the presets without it (win32, release) warn as they should.
if(CMAKE_UNITY_BUILD)
  target_compile_options(blattwart_warnings INTERFACE -Wno-subobject-linkage)
endif()
if(WIN32)
  target_compile_definitions(blattwart_warnings INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT _WIN32_WINNT=0x0601 _WIN32_IE=0x0700)
  # Window messages and procedure addresses need casts between function and data types.
  # COM interfaces have virtual functions but no virtual destructor; -Wdelete-non-virtual-dtor watches the deletions.
  target_compile_options(blattwart_warnings INTERFACE -Wno-cast-function-type -Wno-non-virtual-dtor)
endif()
