# CMake generated Testfile for 
# Source directory: /tmp/w/units/fuzz
# Build directory: /tmp/w/units/build-clang/fuzz
# 
# This file includes the relevant testing commands required for 
# testing this directory and lists subdirectories to be tested as well.
add_test([=[fuzz.load]=] "/tmp/w/units/build-clang/fuzz/fuzz_load" "/tmp/w/units/fuzz/corpus/load")
set_tests_properties([=[fuzz.load]=] PROPERTIES  _BACKTRACE_TRIPLES "/tmp/w/units/fuzz/CMakeLists.txt;9;add_test;/tmp/w/units/fuzz/CMakeLists.txt;0;")
add_test([=[fuzz.session]=] "/tmp/w/units/build-clang/fuzz/fuzz_session" "/tmp/w/units/fuzz/corpus/session")
set_tests_properties([=[fuzz.session]=] PROPERTIES  _BACKTRACE_TRIPLES "/tmp/w/units/fuzz/CMakeLists.txt;9;add_test;/tmp/w/units/fuzz/CMakeLists.txt;0;")
add_test([=[fuzz.image]=] "/tmp/w/units/build-clang/fuzz/fuzz_image" "/tmp/w/units/fuzz/corpus/image")
set_tests_properties([=[fuzz.image]=] PROPERTIES  _BACKTRACE_TRIPLES "/tmp/w/units/fuzz/CMakeLists.txt;9;add_test;/tmp/w/units/fuzz/CMakeLists.txt;0;")
add_test([=[fuzz.ini]=] "/tmp/w/units/build-clang/fuzz/fuzz_ini" "/tmp/w/units/fuzz/corpus/ini")
set_tests_properties([=[fuzz.ini]=] PROPERTIES  _BACKTRACE_TRIPLES "/tmp/w/units/fuzz/CMakeLists.txt;9;add_test;/tmp/w/units/fuzz/CMakeLists.txt;0;")
