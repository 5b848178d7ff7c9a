# Debian's mingw-w64 with POSIX threads. The programs need no library of the compiler on the learner's machine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)  # for the sources of GoogleTest
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# g++ 12 takes an inline function of a PE object for the one that is called, though the linker may keep the copy of
# another object. A caller then holds values in registers, or gives the stack an alignment, that only its own copy leaves
# as they are. (On ELF such a function can be replaced, and the compiler assumes neither.)
set(CMAKE_CXX_FLAGS_INIT "-fno-ipa-ra -fno-ipa-stack-alignment")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh)
