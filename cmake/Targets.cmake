# Every target of ours is made by one of these functions, so that all share one set of rules.

function(mosslantern_defaults target)
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}")
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual)
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS)
endfunction()

# mosslantern_library(<name> SOURCES <file>... LINK <target>...)
# One static library per folder. What it may include is checked by CheckLevels.cmake while it is built.
function(mosslantern_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_library(${name} STATIC ${arg_SOURCES})
  mosslantern_defaults(${name})
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  target_precompile_headers(${name} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/pch.h")
  mosslantern_check_levels(${name})
endfunction()

# Fails the build when a file in the folder of `target` includes or imports what its level must not know.
function(mosslantern_check_levels target)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS
    "${CMAKE_CURRENT_SOURCE_DIR}/*.h" "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.qml")
  set(stamp "${CMAKE_CURRENT_BINARY_DIR}/levels.stamp")
  set(script "${CMAKE_SOURCE_DIR}/cmake/CheckLevels.cmake")
  add_custom_command(OUTPUT "${stamp}"
    COMMAND "${CMAKE_COMMAND}" "-DROOT=${CMAKE_SOURCE_DIR}" "-DFOLDER=${CMAKE_CURRENT_SOURCE_DIR}"
            "-DSTAMP=${stamp}" -P "${script}"
    DEPENDS ${files} "${script}"
    COMMENT "Checking the includes of ${target}" VERBATIM)
  add_custom_target(${target}_levels DEPENDS "${stamp}")
  add_dependencies(${target} ${target}_levels)
endfunction()

function(mosslantern_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_executable(${name} ${arg_SOURCES})
  mosslantern_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINK})
endfunction()

# mosslantern_test(<name> SOURCES <file>... LINK <target>... [ARGUMENTS <argument>...])
# A Qt Test executable that links only the level it tests. It runs in a time zone that is no other's.
function(mosslantern_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;ARGUMENTS")
  add_executable(${name} ${arg_SOURCES})
  mosslantern_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINK} Qt6::Test)
  add_test(NAME ${name} COMMAND ${name} ${arg_ARGUMENTS})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;TZ=CHA-12:45;LC_ALL=C.UTF-8")
endfunction()

function(mosslantern_bench name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_executable(${name} ${arg_SOURCES})
  mosslantern_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINK})
endfunction()
