# CMake generated Testfile for 
# Source directory: /tmp/w/units
# Build directory: /tmp/w/units/build-clang
# 
# This file includes the relevant testing commands required for 
# testing this directory and lists subdirectories to be tested as well.
subdirs("tests")
subdirs("tests/support")
subdirs("fuzz")
