# Shared part of the Debian cross toolchain files: the caller sets
# BBCONF_TARGET_TRIPLE (arm-linux-gnueabihf, aarch64-linux-gnu, ...) and
# BBCONF_QEMU (the qemu-user binary that runs the target's programs).
set(BBCONF_SYSROOT /usr/${BBCONF_TARGET_TRIPLE})

set(CMAKE_C_COMPILER ${BBCONF_TARGET_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${BBCONF_TARGET_TRIPLE}-g++)
# binutils of the target, for size, nm and objdump in the footprint report.
set(CMAKE_AR ${BBCONF_TARGET_TRIPLE}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${BBCONF_TARGET_TRIPLE}-ranlib CACHE FILEPATH "")
set(CMAKE_NM ${BBCONF_TARGET_TRIPLE}-nm CACHE FILEPATH "")
set(CMAKE_STRIP ${BBCONF_TARGET_TRIPLE}-strip CACHE FILEPATH "")

# Libraries and headers of the target only; programs (cmake, python) of the host.
set(CMAKE_FIND_ROOT_PATH ${BBCONF_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# ctest and gtest_discover_tests prepend this to every target program; -L
# points the emulator's dynamic loader at the target's libc and libstdc++.
set(CMAKE_CROSSCOMPILING_EMULATOR ${BBCONF_QEMU} -L ${BBCONF_SYSROOT})
