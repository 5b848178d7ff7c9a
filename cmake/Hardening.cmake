# What makes a fault in memory harder to use. On by default, so that the release preset, the package and a packager's
# own build have it; scripts/check-hardening.sh looks at the result. Not with sanitizers, which do more and need
# their own run-time library, and not for a target that is no ELF.
option(ZELVARO_HARDENING "build with the hardening options of the compiler and the linker" ON)

if(ZELVARO_HARDENING AND NOT ZELVARO_SANITIZE AND NOT EMSCRIPTEN)
  include(CheckCXXCompilerFlag)
  set(options -fstack-protector-strong -fstack-clash-protection)
  if(WIN32)
    set(options -fstack-protector-strong)  # its compilers probe large stack frames anyway
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "x86|amd64|AMD64|i.86")
    list(APPEND options -fcf-protection)
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
    list(APPEND options -mbranch-protection=standard)
  endif()
  foreach(option ${options})
    string(MAKE_C_IDENTIFIER "ZELVARO_HAS${option}" known)
    check_cxx_compiler_flag(${option} ${known})
    if(${known})
      add_compile_options(${option})
    endif()
  endforeach()
  # The run loop jumps from handler to handler for each instruction, and a mark at each of them is 1 to 3 % of its time.
  # Its returns stay protected.
  if(ZELVARO_HAS_fcf_protection)
    set_source_files_properties(src/comet2/RunLoop.cpp PROPERTIES COMPILE_OPTIONS -fcf-protection=return
      SKIP_PRECOMPILE_HEADERS ON)  # compiled with the other option
  endif()
  # The checked calls need an optimising build. A distribution may have chosen a level of its own before.
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  add_compile_options($<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)
  if(WIN32)
    # its protector of the stack and its checked calls are in a library of the compiler
    add_link_options(-fstack-protector-strong -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
  else()
    # not CMake's own position independence: that makes -fPIC of the libraries, which is slower
    add_compile_options(-fPIE)
    add_link_options(-pie -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
  endif()
endif()
