# Cross build for 32-bit ARM Linux (ARMv7-A, hard float) with Debian's
# g++-arm-linux-gnueabihf.  Target binaries run on the build host through
# qemu-arm with the target's libraries from /usr/arm-linux-gnueabihf, so
# ctest and gtest_discover_tests work unchanged.
#
#   cmake -S . -B build/armhf -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/arm-linux-gnueabihf.cmake
set(BBCONF_TARGET_TRIPLE arm-linux-gnueabihf)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(BBCONF_QEMU qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
