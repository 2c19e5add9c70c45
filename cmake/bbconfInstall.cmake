# Install rules, the CMake package, pkg-config files and the Debian packages.
#
# Packages (CPack, generator DEB): libbbconfN holds the shared libraries,
# libbbconf-dev the headers, static libraries, CMake package and pkg-config
# files, bbconf the command-line tool.  Every file installs with a component
# naming its package: runtime, dev or tool.
#
# Everything installed is relocatable: the CMake package finds its files
# relative to itself and each .pc file names its prefix through
# ${pcfiledir}, so a prefix may be moved or unpacked anywhere.

# bbconf_install_library(<shared> <static>): a library pair in the exported
# target set bbconf::, the shared one in the runtime package.
function(bbconf_install_library shared static)
  if(NOT BBCONF_INSTALL)
    return()
  endif()
  install(TARGETS ${shared} ${static} EXPORT bbconfTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endfunction()

# bbconf_pkg_config(<library> <description> <required .pc modules>): writes
# and installs <library>.pc, linking -l<library>.
function(bbconf_pkg_config library description requires)
  if(NOT BBCONF_INSTALL)
    return()
  endif()
  # The prefix as the path from <libdir>/pkgconfig back to it.
  set(BBCONF_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
  if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    file(RELATIVE_PATH up "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
    string(REGEX REPLACE "/$" "" up "${up}")
    set(BBCONF_PC_PREFIX "\${pcfiledir}/${up}")
  endif()
  foreach(dir LIBDIR INCLUDEDIR)
    set(BBCONF_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
      set(BBCONF_PC_${dir} "${CMAKE_INSTALL_${dir}}")
    endif()
  endforeach()
  set(BBCONF_PC_NAME ${library})
  set(BBCONF_PC_DESCRIPTION "${description}")
  set(BBCONF_PC_REQUIRES "${requires}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/bbconf.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

# bbconf_install_package(): headers, the CMake package of every target in
# the set bbconfTargets, and the Debian packages.  Called last, once every
# library has joined the set.
function(bbconf_install_package)
  if(NOT BBCONF_INSTALL)
    return()
  endif()
  include(CMakePackageConfigHelpers)
  # Every public header: bbconf.h and the headers of the extensions beside it.
  file(GLOB headers ${PROJECT_SOURCE_DIR}/include/bbconf*.h)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)

  set(dir ${CMAKE_INSTALL_LIBDIR}/cmake/bbconf)
  install(EXPORT bbconfTargets NAMESPACE bbconf:: DESTINATION ${dir} COMPONENT dev)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/bbconfConfig.cmake.in
    ${PROJECT_BINARY_DIR}/bbconfConfig.cmake INSTALL_DESTINATION ${dir})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/bbconfConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/bbconfConfig.cmake ${PROJECT_BINARY_DIR}/bbconfConfigVersion.cmake
    DESTINATION ${dir} COMPONENT dev)

  if(BBCONF_TOP_LEVEL)
    bbconf_debian_packages()
  endif()
endfunction()

macro(bbconf_debian_packages)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGE_NAME bbconf)
  set(CPACK_PACKAGE_VENDOR "bbconf developers")
  set(CPACK_PACKAGE_CONTACT "bbconf developers <bbconf@localhost>")
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_ALL runtime dev tool)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION libs)
  # Dependencies of the shared libraries and the tool from their ELF files.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

  set(runtime libbbconf${PROJECT_VERSION_MAJOR})
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
  set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION} - shared libraries")
  set(CPACK_DEBIAN_DEV_PACKAGE_NAME libbbconf-dev)
  set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
  set(CPACK_COMPONENT_DEV_DESCRIPTION "${PROJECT_DESCRIPTION} - headers, static libraries, CMake and pkg-config files")
  set(CPACK_DEBIAN_TOOL_PACKAGE_NAME bbconf)
  set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
  set(CPACK_COMPONENT_TOOL_DESCRIPTION "${PROJECT_DESCRIPTION} - command-line tool for record files")
  include(CPack)
endmacro()
