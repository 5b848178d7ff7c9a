# What `cmake --install` puts where, and the Debian package made of it.
include(GNUInstallDirs)

set(packaging ${CMAKE_SOURCE_DIR}/packaging)
# Without this, folders get the rights of whoever builds the package.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS zelvaro zelvaro-check)
install(PROGRAMS ${packaging}/zelvaro-start TYPE BIN)
install(FILES docs/GUIDE.en.md docs/GUIDE.ja.md docs/CHECK.en.md docs/CHECK.ja.md
        docs/EDITORS.en.md docs/EDITORS.ja.md ${packaging}/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${packaging}/zelvaro-check.bash RENAME zelvaro-check
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES docs/zelvaro-check.schema.json docs/zelvaro-check-grades.schema.json
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvaro)
install(FILES ${packaging}/zelvaro.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/zelvaro.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
# The page, if ./web.sh or web/test.sh has built it.
install(FILES ${CMAKE_SOURCE_DIR}/build/web/zelvaro.html DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvaro OPTIONAL)
install(DIRECTORY workspace/src workspace/tasks DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvaro)

# vim and nano of Debian look for their files there.
install(DIRECTORY editors/vim/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vim/vimfiles)
install(FILES editors/nano/casl2.nanorc DESTINATION ${CMAKE_INSTALL_DATADIR}/nano)
install(DIRECTORY editors/vscode DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvaro
        PATTERN package.sh EXCLUDE PATTERN .vscodeignore EXCLUDE)
file(READ editors/vscode/package.json manifest)
string(JSON version GET ${manifest} version)
if(NOT version STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "editors/vscode/package.json has the version ${version}, the project ${PROJECT_VERSION}")
endif()

# Debian wants manual pages and change logs compressed, without a time stamp.
function(zelvaro_compressed file name folder)
  set(out ${CMAKE_BINARY_DIR}/compressed/${folder}/${name}.gz)
  cmake_path(GET out PARENT_PATH parent)
  add_custom_command(OUTPUT ${out} DEPENDS ${file} VERBATIM
                     COMMAND ${CMAKE_COMMAND} -E make_directory ${parent}
                     COMMAND gzip -9nc ${file} > ${out})
  set_property(GLOBAL APPEND PROPERTY zelvaro_compressed ${out})
  install(FILES ${out} DESTINATION ${folder})
endfunction()
zelvaro_compressed(${packaging}/changelog changelog ${CMAKE_INSTALL_DOCDIR})
foreach(language "" ja/)
  set(folder ${CMAKE_INSTALL_MANDIR}/${language}man1)
  zelvaro_compressed(${CMAKE_SOURCE_DIR}/docs/man/${language}zelvaro.1 zelvaro.1 ${folder})
  zelvaro_compressed(${CMAKE_SOURCE_DIR}/docs/man/${language}zelvaro-check.1 zelvaro-check.1 ${folder})
  # the page of zelvaro describes the starter too
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/compressed/${folder})
  file(CREATE_LINK zelvaro.1.gz ${CMAKE_BINARY_DIR}/compressed/${folder}/zelvaro-start.1.gz SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/compressed/${folder}/zelvaro-start.1.gz DESTINATION ${folder})
endforeach()
get_property(compressed GLOBAL PROPERTY zelvaro_compressed)
add_custom_target(compressed ALL DEPENDS ${compressed})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvaro)
set(CPACK_PACKAGE_CONTACT "The Zelvaro maintainers <zelvaro@zelvaro.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "learn assembler programming with CASL2 on a simulated COMET2")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${packaging}/description)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "sensible-utils, less")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "nano | editor, x-terminal-emulator, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};zelvaro;Unspecified;/")
include(CPack)
