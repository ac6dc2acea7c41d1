# What `cmake --install` puts where: the library with its headers, the CMake package and pkg-config file that find them, the
# program with its manual page and completions. The reference host stays within the program: its headers are no interface.
include(CMakePackageConfigHelpers)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/VelkOTX)

# The program finds the library from where it stands, so that the prefix may be moved.
file(RELATIVE_PATH fromProgram /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_target_properties(velkotx PROPERTIES INSTALL_RPATH "$ORIGIN/${fromProgram}")

install(TARGETS VelkOTX EXPORT VelkOTXTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS velkotx RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/velkotx ${PROJECT_SOURCE_DIR}/contracts/otx
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN *.h)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR})

install(EXPORT VelkOTXTargets NAMESPACE VelkOTX:: DESTINATION ${package})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VelkOTXConfig.cmake.in ${CMAKE_BINARY_DIR}/VelkOTXConfig.cmake
    INSTALL_DESTINATION ${package} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/VelkOTXConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/VelkOTXConfig.cmake ${CMAKE_BINARY_DIR}/VelkOTXConfigVersion.cmake DESTINATION ${package})

set(pkgconfigFolder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH fromPkgconfig /${pkgconfigFolder} /)
string(REGEX REPLACE "/$" "" fromPkgconfig "${fromPkgconfig}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/velkotx.pc.in ${CMAKE_BINARY_DIR}/velkotx.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/velkotx.pc DESTINATION ${pkgconfigFolder})

set(pages ${CMAKE_BINARY_DIR}/pages)
install(FILES ${pages}/velkotx.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${pages}/velkotx.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME velkotx)
install(FILES ${pages}/_velkotx DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES ${pages}/velkotx.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
