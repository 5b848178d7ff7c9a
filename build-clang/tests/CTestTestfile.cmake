# CMake generated Testfile for 
# Source directory: /tmp/w/units/tests
# Build directory: /tmp/w/units/build-clang/tests
# 
# This file includes the relevant testing commands required for 
# testing this directory and lists subdirectories to be tested as well.
include("/tmp/w/units/build-clang/tests/test_MoziCode[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_TimeVcl[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_comet2[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_diag[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_dialogues[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_engine[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_faults[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_platform[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_program[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_report[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_shell[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_source[1]_include.cmake")
include("/tmp/w/units/build-clang/tests/test_whole[1]_include.cmake")
add_test([=[samples.outputs]=] "/tmp/w/units/tests/samples/samples.sh" "/tmp/w/units/build-clang/zelvaro" "/tmp/w/units/workspace/src")
set_tests_properties([=[samples.outputs]=] PROPERTIES  _BACKTRACE_TRIPLES "/tmp/w/units/tests/CMakeLists.txt;47;add_test;/tmp/w/units/tests/CMakeLists.txt;0;")
