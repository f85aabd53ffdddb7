# Compiler flags that hold for every target, and the speed-ups that are used where they are present.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
                    -Wunused -Woverloaded-virtual -Wnull-dereference -Wdouble-promotion -Wimplicit-fallthrough
                    -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 follows null pointers through inlined library code that it cannot see the checks of.
  # Likewise it miscounts the buffers of short strings that are joined.
  add_compile_options(-Wno-null-dereference -Wno-stringop-overflow -Wno-restrict
                      $<$<CONFIG:Release>:-Wno-array-bounds> $<$<CONFIG:Release>:-Wno-stringop-overread>)
endif()

if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VELMORA_SANITIZE})
  if(VELMORA_SANITIZE MATCHES address AND VELMORA_SANITIZE MATCHES undefined)
    # The address sanitizer catches null pointers too, and no machine that this runs on minds where a number lies.
    # Together these two are a third of the compile time.
    add_compile_options(-fno-sanitize=null,alignment)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # The same checks as calls instead of inline: a tenth less to compile.
      add_compile_options(--param=asan-instrumentation-with-call-threshold=0)
    endif()
  endif()
endif()

find_program(VELMORA_CCACHE ccache)
if(VELMORA_CCACHE)
  # Precompiled headers need this sloppiness, or every lookup misses.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VELMORA_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  else()
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()

find_program(VELMORA_MOLD mold)
if(VELMORA_MOLD)
  add_link_options(-fuse-ld=mold)
endif()
