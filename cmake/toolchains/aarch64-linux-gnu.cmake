# Cross build for 64-bit ARM Linux with Debian's g++-aarch64-linux-gnu.
# Target binaries run on the build host through qemu-aarch64 with the
# target's libraries from /usr/aarch64-linux-gnu.
#
#   cmake -S . -B build/aarch64 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/aarch64-linux-gnu.cmake
set(BBCONF_TARGET_TRIPLE aarch64-linux-gnu)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(BBCONF_QEMU qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
