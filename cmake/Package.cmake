# What `cmake --install` puts where, and the Debian package made of it.
include(GNUInstallDirs)

install(TARGETS zelvaro)
install(FILES README.md docs/GUIDE.en.md docs/GUIDE.ja.md DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)
install(FILES docs/man/zelvaro.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES docs/man/ja/zelvaro.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/ja/man1)
install(DIRECTORY workspace/src DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvaro)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvaro)
set(CPACK_PACKAGE_CONTACT "The Zelvaro maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "learn assembler programming with CASL2 on a simulated COMET2")
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
