# CMake generated Testfile for 
# Source directory: /tmp/w/units/tests/support
# Build directory: /tmp/w/units/build-clang/tests/support
# 
# This file includes the relevant testing commands required for 
# testing this directory and lists subdirectories to be tested as well.
