option(MOSSLANTERN_BUILD_TESTS "Build the tests" ON)
option(MOSSLANTERN_BUILD_BENCH "Build the benchmarks" OFF)
option(MOSSLANTERN_FUZZ "Build the fuzz targets, with Clang's libFuzzer and sanitizers, in place of their tests" OFF)
option(MOSSLANTERN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

# -O3 for everything: the pixel loops of render/ are written to be vectorised by the compiler.
set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")

if(MOSSLANTERN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(MOSSLANTERN_FUZZ)
  set(checks -fsanitize=address,undefined -fno-sanitize=vptr,function -fno-sanitize-recover=undefined)
  add_compile_options(-fsanitize=fuzzer-no-link ${checks} -fno-omit-frame-pointer)
  add_link_options(${checks})
  # With it the standard library's std::expected is there for Clang 16, which has what it needs.
  add_compile_options(-Wno-macro-redefined -D__cpp_concepts=202002L)
endif()

find_program(MOSSLANTERN_CCACHE ccache)
if(MOSSLANTERN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime
      "${MOSSLANTERN_CCACHE}")
  # ccache can only reuse a precompiled header that does not record when it was made.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  endif()
endif()
