# Optional parts of the build: the tests, tools, benchmarks and examples are
# built only when their dependencies are found.  A part left out prints one
# status line saying why and how to get it.

# bbconf_skip(<part> <why> <how to enable>)
function(bbconf_skip part why how)
  message(STATUS "bbconf: ${part} skipped: ${why}; ${how}")
endfunction()

# Makes GTest::gtest_main available, from the system or built from the
# GoogleTest sources (BBCONF_GTEST_FROM_SOURCE, the default of cross builds).
# When neither works, sets BBCONF_GTEST_MISSING to the reason and
# BBCONF_GTEST_HOW to the remedy.
macro(bbconf_find_gtest)
  set(BBCONF_GTEST_MISSING "")
  set(BBCONF_GTEST_HOW "")
  if(TARGET GTest::gtest_main)
    # Found or built by an earlier directory.
  elseif(CMAKE_VERSION VERSION_LESS 3.20)
    set(BBCONF_GTEST_MISSING "CMake ${CMAKE_VERSION} is older than 3.20, which names GoogleTest's targets")
    set(BBCONF_GTEST_HOW "use CMake 3.20 or later")
  elseif(BBCONF_GTEST_FROM_SOURCE)
    if(EXISTS ${BBCONF_GTEST_SOURCE_DIR}/CMakeLists.txt)
      # Only what the tests link gets built.
      set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
      add_subdirectory(${BBCONF_GTEST_SOURCE_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    else()
      set(BBCONF_GTEST_MISSING "no GoogleTest sources in ${BBCONF_GTEST_SOURCE_DIR}")
      set(BBCONF_GTEST_HOW "install libgtest-dev or set BBCONF_GTEST_SOURCE_DIR")
    endif()
  else()
    find_package(GTest QUIET)
    if(NOT TARGET GTest::gtest_main)
      set(BBCONF_GTEST_MISSING "GoogleTest not found")
      set(BBCONF_GTEST_HOW "install libgtest-dev, or build it from source with -DBBCONF_GTEST_FROM_SOURCE=ON")
    endif()
  endif()
endmacro()
