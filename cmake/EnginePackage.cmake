# The engine for other programs: one archive with the headers that it needs, and the CMake package Zelvaro::engine.
# It is a component of its own, which is not part of the learner's Debian package.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

get_property(parts GLOBAL PROPERTY zelvaro_engine_parts)
list(TRANSFORM parts REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
add_library(zelvaro_engine_archive STATIC ${objects})
set_target_properties(zelvaro_engine_archive PROPERTIES OUTPUT_NAME zelvaro-engine EXPORT_NAME engine LINKER_LANGUAGE CXX)
target_compile_features(zelvaro_engine_archive INTERFACE cxx_std_20)
target_include_directories(zelvaro_engine_archive INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zelvaro>)

install(TARGETS zelvaro_engine_archive EXPORT zelvaro-engine DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT engine)
foreach(header engine/Engine engine/Machine comet2/Stop diag/Family diag/Language diag/Severity)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES src/${header}.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvaro/${folder} COMPONENT engine)
endforeach()
set(folder ${CMAKE_INSTALL_LIBDIR}/cmake/Zelvaro)
install(EXPORT zelvaro-engine NAMESPACE Zelvaro:: FILE ZelvaroConfig.cmake DESTINATION ${folder} COMPONENT engine)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/ZelvaroConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/ZelvaroConfigVersion.cmake DESTINATION ${folder} COMPONENT engine)
