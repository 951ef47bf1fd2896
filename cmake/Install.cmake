# What `cmake --install` puts where, by the GNU folders, in two components: `cli`, the tool with its picture reader, and
# `window`, which needs it.
include(GNUInstallDirs)

set(made "${CMAKE_BINARY_DIR}/packaging")
set(sources "${CMAKE_SOURCE_DIR}/packaging")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  "${CMAKE_SOURCE_DIR}/CHANGELOG.md" "${CMAKE_SOURCE_DIR}/LICENSE" "${sources}/changelog.awk" "${sources}/copyright.in")

# mosslantern_changelog(<variable> <form> <package>): the changelog in one of the forms of changelog.awk.
function(mosslantern_changelog variable form package)
  execute_process(
    COMMAND awk -v form=${form} -v package=${package} -v "page=${MOSSLANTERN_HOMEPAGE}"
            -f "${sources}/changelog.awk" "${CMAKE_SOURCE_DIR}/CHANGELOG.md"
    OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# mosslantern_compress(<file> <compressed>): by gzip, without name and time.
function(mosslantern_compress file compressed)
  add_custom_command(OUTPUT "${compressed}" COMMAND gzip -9nc "${file}" > "${compressed}" DEPENDS "${file}" VERBATIM)
endfunction()

mosslantern_changelog(MOSSLANTERN_RELEASES releases mosslantern)
if(NOT MOSSLANTERN_RELEASES MATCHES "^ *<release version=\"${PROJECT_VERSION}\"")
  message(FATAL_ERROR "CHANGELOG.md does not begin with ${PROJECT_VERSION}, the version in CMakeLists.txt")
endif()
configure_file("${sources}/app.mosslantern.mosslantern.metainfo.xml.in"
               "${made}/app.mosslantern.mosslantern.metainfo.xml" @ONLY)
mosslantern_changelog(feed feed mosslantern)
file(WRITE "${made}/appcast.xml" "${feed}")

# mosslantern_license_text(<variable> <file> <begin>): the text of `file` from the line on that begins so, up to the next
# line of dashes, as a field of a copyright file.
function(mosslantern_license_text variable file begin)
  execute_process(
    COMMAND awk -v "begin=${begin}"
      "index($0, begin) == 1 { found = 1 } found && /^---/ { exit }
       found { sub(/[ \\t\\r]+$/, \"\"); print $0 == \"\" ? \" .\" : \" \" $0 }" "${file}"
    OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "( \\.\n|\n)+$" "" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

set(packages "${CMAKE_SOURCE_DIR}/build/npm/node_modules")
mosslantern_license_text(LICENSE_EXPAT "${CMAKE_SOURCE_DIR}/LICENSE" "Permission is")
mosslantern_license_text(LICENSE_OFL "${packages}/@expo-google-fonts/nunito/LICENSE_FONT" "PREAMBLE")
mosslantern_license_text(LICENSE_ISC "${packages}/lucide-static/LICENSE" "Permission to use")
configure_file("${sources}/copyright.in" "${made}/copyright" @ONLY)

set(documents "")
foreach(component cli window)
  set(package mosslantern)
  if(component STREQUAL cli)
    set(package mosslantern-cli)
  endif()
  mosslantern_changelog(text debian ${package})
  file(CONFIGURE OUTPUT "${made}/${package}.changelog" CONTENT "${text}" @ONLY)
  mosslantern_compress("${made}/${package}.changelog" "${made}/${package}.changelog.gz")
  mosslantern_compress("${CMAKE_BINARY_DIR}/manual/${package}.1" "${made}/${package}.1.gz")
  list(APPEND documents "${made}/${package}.changelog.gz" "${made}/${package}.1.gz")
  set(doc "${CMAKE_INSTALL_DATADIR}/doc/${package}")
  install(FILES "${made}/${package}.changelog.gz" DESTINATION "${doc}" RENAME changelog.gz COMPONENT ${component})
  install(FILES "${made}/copyright" DESTINATION "${doc}" COMPONENT ${component})
  install(FILES "${made}/${package}.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component})
endforeach()
add_custom_target(documents ALL DEPENDS ${documents})
add_dependencies(documents manual)

install(TARGETS mosslantern-cli DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT cli)
install(TARGETS mosslantern-decoder DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/mosslantern" COMPONENT cli)
install(FILES "${CMAKE_BINARY_DIR}/manual/mosslantern-cli.bash"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME mosslantern-cli COMPONENT cli)
install(FILES "${CMAKE_BINARY_DIR}/manual/_mosslantern-cli"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions" COMPONENT cli)
install(FILES "${CMAKE_BINARY_DIR}/manual/mosslantern-cli.fish"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT cli)

install(TARGETS mosslantern DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT window)
install(FILES "${sources}/mosslantern.desktop"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT window)
install(FILES "${made}/app.mosslantern.mosslantern.metainfo.xml"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT window)
set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
install(FILES "${sources}/icons/mosslantern.svg" DESTINATION "${icons}/scalable/apps" COMPONENT window)
foreach(size IN LISTS MOSSLANTERN_ICON_SIZES)
  install(FILES "${CMAKE_BINARY_DIR}/icons/mosslantern-${size}.png"
    DESTINATION "${icons}/${size}x${size}/apps" RENAME mosslantern.png COMPONENT window)
endforeach()
