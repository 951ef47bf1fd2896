# Embeds the fonts of slides into `target`, under :/mosslantern/fonts, and the outlines of emoji, under
# :/mosslantern/emoji.
function(mosslantern_embed_fonts target)
  set(nunito "${CMAKE_SOURCE_DIR}/build/npm/node_modules/@expo-google-fonts/nunito/900Black/Nunito_900Black.ttf")
  set(inter /usr/share/fonts/opentype/inter)
  set(mono /usr/share/fonts/truetype/jetbrains-mono)
  set(files
    ${inter}/Inter-Regular.otf ${inter}/Inter-Medium.otf ${inter}/Inter-SemiBold.otf
    ${inter}/Inter-Bold.otf ${inter}/Inter-Black.otf ${mono}/JetBrainsMono-Bold.ttf)
  foreach(file IN LISTS files nunito)
    if(NOT EXISTS "${file}")
      message(FATAL_ERROR "${file} is missing: ./run and ./test install it")
    endif()
    cmake_path(GET file FILENAME name)
    set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "${name}")
  endforeach()
  set_source_files_properties("${nunito}" PROPERTIES QT_RESOURCE_ALIAS Nunito-Black.ttf)
  # Uncompressed, they are used where they lie in the program.
  qt_add_resources(${target} fonts PREFIX /mosslantern/fonts OPTIONS --no-compress FILES ${files} "${nunito}")

  set(package "${CMAKE_SOURCE_DIR}/build/npm/node_modules/@infolektuell/noto-color-emoji")
  file(GLOB outlines CONFIGURE_DEPENDS "${package}/files/*.woff2")
  if(NOT outlines)
    message(WARNING "${package} is missing, large emoji will be blurred: ./run and ./test install it")
    return()
  endif()
  foreach(file IN LISTS outlines)
    cmake_path(GET file FILENAME name)
    set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "${name}")
  endforeach()
  set_source_files_properties("${package}/index.css" PROPERTIES QT_RESOURCE_ALIAS index.css)
  qt_add_resources(${target} emoji PREFIX /mosslantern/emoji OPTIONS --no-compress
    FILES ${outlines} "${package}/index.css")
endfunction()
