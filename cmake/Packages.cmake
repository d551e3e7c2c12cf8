# The Debian packages that `./dev package` makes: the command with its resources, and the application, which needs it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavix)
set(CPACK_PACKAGE_VENDOR "The Tavix developers")
set(CPACK_PACKAGE_CONTACT "The Tavix developers <developers@tavix.com>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${PROJECT_HOMEPAGE_URL})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL engine)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# As the archive has its own: directories 0755, whatever the umask of who packs.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The first line of a description is a summary; the rest stands behind one space, as Debian's policy 5.6.13 asks.
set(CPACK_DEBIAN_ENGINE_PACKAGE_NAME tavix)
set(CPACK_DEBIAN_ENGINE_PACKAGE_SECTION video)
set(CPACK_DEBIAN_ENGINE_DESCRIPTION "turn a document into a finished product video
Tavix renders a JSON document of scenes (moving type, phones flat and in
space, pictures, clips, music with a beat) to mp4, mov, WebM or GIF. It needs
no display, no graphics card and no network.
.
This package holds the command, which people and coding agents write with.")
# What the command loads by itself (TavixPlatform/Media/LateLibrary.h), so that no program names it.
set(late)
foreach(library IN ITEMS libavformat libswscale)
    string(REGEX MATCH "^[0-9]+" major ${FFmpeg_${library}_VERSION})
    list(APPEND late ${library}${major})
endforeach()
list(JOIN late ", " CPACK_DEBIAN_ENGINE_PACKAGE_DEPENDS)
string(APPEND CPACK_DEBIAN_ENGINE_PACKAGE_DEPENDS ", libheif1")
# What documents name fonts by, and what `tavix run` records pages with.
set(CPACK_DEBIAN_ENGINE_PACKAGE_RECOMMENDS
    "fonts-inter, fonts-noto-core, fonts-noto-color-emoji, fonts-dejavu-core, fonts-urw-base35")
set(CPACK_DEBIAN_ENGINE_PACKAGE_SUGGESTS
    "tavix-editor, chromium-headless-shell, fonts-noto-cjk, fonts-adf-baskervald, fonts-adf-gillius, fonts-linuxlibertine, fonts-manrope")

if(TAVIX_HAS_EDITOR)
    list(APPEND CPACK_COMPONENTS_ALL editor)
    set(CPACK_DEBIAN_EDITOR_PACKAGE_NAME tavix-editor)
    set(CPACK_DEBIAN_EDITOR_PACKAGE_SECTION video)
    set(CPACK_DEBIAN_EDITOR_PACKAGE_DEPENDS "tavix (= ${PROJECT_VERSION}), qt6-qpa-plugins")
    set(CPACK_DEBIAN_EDITOR_DESCRIPTION "edit product videos in a window
Tavix turns a document into a product video. This package holds the desktop
application: a live preview, a stage with handles, a timeline and an inspector
over the documents that the command tavix renders.")
endif()

# What Debian wants of every package: who may copy it, and what changed.
set(made ${CMAKE_BINARY_DIR}/packages/documents)
file(READ ${CMAKE_SOURCE_DIR}/LICENSE license)
string(REGEX REPLACE "^MIT License\n\n[^\n]*\n\n" "" license "${license}")
string(REGEX REPLACE "\n\n" "\n.\n" license "${license}")
string(REGEX REPLACE "\n$" "" license "${license}")
string(REGEX REPLACE "\n" "\n " license "${license}")
set(format https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/)
file(CONFIGURE OUTPUT ${made}/copyright @ONLY CONTENT "Format: @format@
Upstream-Name: Tavix
Source: @CPACK_PACKAGE_HOMEPAGE_URL@

Files: *
Copyright: 2026 The Tavix developers
License: Expat
 @license@
")
find_program(GZIP gzip REQUIRED)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} COMPONENT)
    set(package ${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME})
    file(CONFIGURE OUTPUT ${made}/${package}/changelog @ONLY CONTENT
        "@package@ (@PROJECT_VERSION@) unstable; urgency=low

  * Version @PROJECT_VERSION@.

 -- @CPACK_PACKAGE_CONTACT@  Mon, 23 Nov 2026 12:00:00 +0000
")
    execute_process(COMMAND ${GZIP} -9nkf ${made}/${package}/changelog COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${made}/copyright ${made}/${package}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        COMPONENT ${component})
endforeach()
include(CPack)

add_custom_target(tavix_packages
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages
    COMMAND ${CMAKE_CPACK_COMMAND} --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake
    COMMENT "Making Debian packages"
    VERBATIM)
add_dependencies(tavix_packages tavix_engine_archive)
if(TAVIX_HAS_EDITOR)
    add_dependencies(tavix_packages tavix-editor)
endif()
