# The Debian packages that `cpack` makes; ./package calls it. Dependencies on libraries are found by dpkg-shlibdeps.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_VENDOR "The Mosslantern developers")
set(CPACK_PACKAGE_CONTACT "The Mosslantern developers <developers@mosslantern.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL cli window)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${MOSSLANTERN_HOMEPAGE}")

set(CPACK_DEBIAN_CLI_PACKAGE_NAME mosslantern-cli)
set(CPACK_DEBIAN_CLI_PACKAGE_SECTION graphics)
set(CPACK_COMPONENT_CLI_DESCRIPTION "text-on-image slideshows from the command line
Imports photographs, makes batches of slideshows from slide texts and writes
them as folders of PNG files, without a display.")
# What is loaded while running: Qt's plug-ins for WebP and TIFF, libheif's for HEIC and AVIF where they are not part of it,
# the fonts of emoji and of most scripts.
set(CPACK_DEBIAN_CLI_PACKAGE_DEPENDS
  "qt6-image-formats-plugins, libheif-plugin-libde265 | libheif1 (<< 1.16), libheif-plugin-dav1d | libheif1 (<< 1.16), fonts-noto-color-emoji, fonts-noto-core, fonts-noto-cjk")
set(CPACK_DEBIAN_CLI_PACKAGE_SUGGESTS "bash-completion, ffmpeg")

set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME mosslantern)
set(CPACK_DEBIAN_WINDOW_PACKAGE_SECTION graphics)
set(CPACK_COMPONENT_WINDOW_DESCRIPTION "text-on-image slideshows for short-video platforms
Import photographs, write the texts once, generate whole batches of slideshows
in four text styles and three shapes, edit them on a canvas and export folders
of finished pictures.")
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS
  "mosslantern-cli (= ${PROJECT_VERSION}), qml6-module-qtqml, qml6-module-qtqml-models, qml6-module-qtqml-workerscript, qml6-module-qtquick, qml6-module-qtquick-templates, qml6-module-qtquick-window")
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "qt6-wayland, qt6-gtk-platformtheme, libgl1-mesa-dri, xdg-utils")
include(CPack)
