find_package(Qt6 6.4 REQUIRED COMPONENTS Qml QmlWorkerScript Quick QuickTemplates2 Svg Widgets)

# mosslantern_qml_library(<name> URI <uri> SOURCES <file>... [SINGLETONS <qml>...] [QML <qml>...] [USES <uri>...]
#                         LINK <target>...)
# A library whose C++ types and QML files make up one QML module, compiled ahead and checked by all_qmllint.
# USES: the modules whose types its C++ properties have. Programs link <name> and <name>plugin.
function(mosslantern_qml_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "URI" "SOURCES;SINGLETONS;QML;USES;LINK")
  if(arg_SINGLETONS)
    set_source_files_properties(${arg_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
  endif()
  string(REPLACE "." "/" folder "${arg_URI}")
  add_library(${name} STATIC ${arg_SOURCES})
  mosslantern_defaults(${name})
  qt_add_qml_module(${name}
    URI ${arg_URI}
    VERSION 1.0
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/qml/${folder}"
    IMPORT_PATH "${CMAKE_BINARY_DIR}/qml"
    IMPORTS QtQml.Models QtQuick
    DEPENDENCIES ${arg_USES}
    QML_FILES ${arg_SINGLETONS} ${arg_QML})
  # The generated type registrations include our headers by their bare names.
  target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
  # Generated code is not written to our rules.
  get_target_property(generated ${name} SOURCES)
  list(FILTER generated INCLUDE REGEX "qmlcache|qmltyperegistrations")
  set_source_files_properties(${generated} PROPERTIES COMPILE_OPTIONS -w)
  target_link_libraries(${name} PUBLIC ${arg_LINK} Qt6::Qml Qt6::Quick)
  mosslantern_check_levels(${name})
endfunction()
