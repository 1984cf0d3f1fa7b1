# Installation and packages: the Debian package of ./dev package and the zip of ./dev windows --window,
# whose files the installer contains.

include(GNUInstallDirs)
set(DATA_FOLDER ${CMAKE_INSTALL_DATADIR}/quorvel)
if(WIN32)
  # On Windows a program and its data are usually in one folder.
  set(CMAKE_INSTALL_BINDIR .)
  set(DATA_FOLDER .)
endif()

# CHANGELOG.md is the only list of releases. The software centre shows them.
file(STRINGS CHANGELOG.md headings REGEX "^## ")
foreach(heading IN LISTS headings)
  if(NOT heading MATCHES "^## ([0-9.]+) - ([0-9]+-[0-9]+-[0-9]+)$")
    message(FATAL_ERROR "CHANGELOG.md: '${heading}' is not '## VERSION - YEAR-MONTH-DAY'")
  endif()
  if(NOT RELEASES AND NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
    message(FATAL_ERROR "CHANGELOG.md: ${PROJECT_VERSION} must come first, not ${CMAKE_MATCH_1}")
  endif()
  string(APPEND RELEASES
    "\n    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>")
endforeach()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)

# The program looks for its data in its own folder and in ../share/quorvel relative to it.
install(TARGETS quorvel-cli)
file(GLOB DATA_FILES CONFIGURE_DEPENDS data/stwds_*.txt)
install(FILES ${DATA_FILES} data/qvl_help.txt DESTINATION ${DATA_FOLDER})
if(QUORVEL_WINDOW)
  install(TARGETS quorvel)
  get_property(TRANSLATION_FILES GLOBAL PROPERTY TRANSLATION_FILES)
  install(FILES ${TRANSLATION_FILES} DESTINATION ${DATA_FOLDER})
endif()

if(WIN32)
  # The licences of everything that is linked in, and of the installer, from the Debian packages.
  install(FILES packaging/copyright DESTINATION licenses RENAME quorvel.txt)
  foreach(package IN ITEMS qt6-base-dev libzip-dev libutf8proc-dev libexpat1-dev libz-mingw-w64-dev
      mingw-w64-x86-64-dev g++-mingw-w64-x86-64-posix nsis)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION licenses RENAME ${package}.txt)
  endforeach()
endif()

if(UNIX)
  set(pages quorvel-cli.1)
  set(compressed "")
  if(QUORVEL_WINDOW)
    list(APPEND pages quorvel.1)
    set(metainfo org.quorvel.quorvel.metainfo.xml)
    configure_file(packaging/${metainfo}.in packaging/${metainfo} @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/packaging/${metainfo}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES packaging/quorvel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    install(FILES data/icons/quorvel.svg DESTINATION ${icons}/scalable/apps)
    foreach(size IN LISTS ICON_SIZES)
      install(FILES data/icons/quorvel_${size}.png RENAME quorvel.png
        DESTINATION ${icons}/${size}x${size}/apps)
    endforeach()
  endif()

  # The options come from src/settings/option_table.cpp.
  foreach(page IN ITEMS man/quorvel-cli.1 completions/quorvel-cli.bash completions/quorvel-cli.fish
      completions/quorvel-cli.zsh)
    cmake_path(GET page FILENAME name)
    add_custom_command(OUTPUT packaging/${name}
      COMMAND option_lists ${PROJECT_SOURCE_DIR}/packaging/${page}.in > packaging/${name}
      DEPENDS option_lists packaging/${page}.in)
    list(APPEND filled ${PROJECT_BINARY_DIR}/packaging/${name})
  endforeach()
  configure_file(packaging/man/quorvel.1 packaging/quorvel.1 COPYONLY)

  # Manual pages and changelogs are compressed without a timestamp, so that builds are reproducible.
  foreach(page IN LISTS pages)
    add_custom_command(OUTPUT packaging/${page}.gz
      COMMAND gzip -9nc packaging/${page} > packaging/${page}.gz
      DEPENDS ${PROJECT_BINARY_DIR}/packaging/${page})
    list(APPEND compressed ${PROJECT_BINARY_DIR}/packaging/${page}.gz)
  endforeach()
  install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  add_custom_command(OUTPUT packaging/changelog.gz
    COMMAND packaging/debian_changelog.sh CHANGELOG.md | gzip -9nc
      > ${PROJECT_BINARY_DIR}/packaging/changelog.gz
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    DEPENDS CHANGELOG.md packaging/debian_changelog.sh)
  add_custom_target(quorvel_documents ALL DEPENDS ${filled} ${compressed} packaging/changelog.gz)

  install(FILES packaging/copyright ${PROJECT_BINARY_DIR}/packaging/changelog.gz
    docs/concordance-file.md docs/data-formats.md docs/index-file.md docs/settings-file.md docs/word-files.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(FILES ${PROJECT_BINARY_DIR}/packaging/quorvel-cli.bash RENAME quorvel-cli
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${PROJECT_BINARY_DIR}/packaging/quorvel-cli.zsh RENAME _quorvel-cli
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  install(FILES ${PROJECT_BINARY_DIR}/packaging/quorvel-cli.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME quorvel-${PROJECT_VERSION}-windows)
  unset(CPACK_PACKAGING_INSTALL_PREFIX)
endif()
set(CPACK_PACKAGE_CONTACT "Quorvel maintainers <maintainers@quorvel.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "key-word-in-context concordances of a document")
set(CPACK_PACKAGE_DESCRIPTION
"Quorvel lists every word of a document and shows each occurrence between the
words around it. It can also search for words and patterns. It reads text
files, web pages and DOCX documents and, as Unicode, ODT and EPUB documents.
It recognises the language of a document and leaves out its stop words, in
six languages.
.
This package contains the program with a window, quorvel, and the command
line, quorvel-cli.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The programs load libzip themselves, so its package is not found by their dependencies.
if(NOT WIN32)
  file(REAL_PATH ${LIBZIP_LINK_LIBRARIES} libzip_file)
  execute_process(COMMAND dpkg-query --search ${libzip_file} OUTPUT_VARIABLE libzip_package
    ERROR_QUIET)
  string(REGEX REPLACE ":.*" "" CPACK_DEBIAN_PACKAGE_DEPENDS "${libzip_package}")
endif()
# A desktop with Wayland only needs Qt's plug-in for it.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)
include(CPack)
