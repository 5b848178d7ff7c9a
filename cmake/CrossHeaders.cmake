# The system's headers of libraries that are headers only, without the rest of their folder: that is for another system.
# What find_package() gives of them on this system is given here.
set(headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(library fmt boost CLI nlohmann toml++)
  find_path(${library}_FOLDER ${library} PATHS /usr/include /usr/local/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(CREATE_LINK ${${library}_FOLDER}/${library} ${headers}/${library} SYMBOLIC)
endforeach()
include_directories(SYSTEM ${headers})
add_library(fmt::fmt-header-only INTERFACE IMPORTED)
target_compile_definitions(fmt::fmt-header-only INTERFACE FMT_HEADER_ONLY)
