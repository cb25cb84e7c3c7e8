# Warnings are errors; each flag beyond -Wall -Wextra says why it is there.
add_library(nalt_warnings INTERFACE)
target_compile_options(nalt_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow                # a hidden variable is usually the wrong one
  -Wnon-virtual-dtor      # records and scene objects are deleted through their bases
  -Woverloaded-virtual    # a visitor that overrides some apply() must not hide the others
  -Wcast-qual)

if(NALT_SANITIZE)
  add_compile_options(-fsanitize=${NALT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${NALT_SANITIZE})
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()
