# Warnings are errors; each flag beyond -Wall -Wextra says why it is there.
add_library(nalt_warnings INTERFACE)
target_compile_options(nalt_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow                # a hidden variable is usually the wrong one
  -Wnon-virtual-dtor      # records and scene objects are deleted through their bases
  -Woverloaded-virtual    # a visitor that overrides some apply() must not hide the others
  -Wcast-qual)

# Line numbers for stack traces in optimised builds; full debug information would double the build's size and time.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

# Programs name their sources relative to this folder, wherever it lies: no machine's paths in them, and ccache can
# serve a second clone from what the first one built.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)

if(NALT_LIBRARY_CHECKS)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(NALT_SANITIZE)
  add_compile_options(-fsanitize=${NALT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${NALT_SANITIZE})
endif()
# nalt_uses_regex(<sources of this directory>...)
# With sanitizers GCC 12 takes members of std::regex for uninitialised.
function(nalt_uses_regex)
  if(NALT_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -Wno-maybe-uninitialized)
  endif()
endfunction()
if(NALT_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The sloppiness is what precompiled headers need of ccache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${CCACHE_PROGRAM})
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()
