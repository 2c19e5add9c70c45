# bbconf_add_library(<name> <source>...): a library as this project builds
# every library it ships: the sources compiled once (<name>_objects:
# position-independent, symbols hidden unless exported, no exceptions, no
# RTTI), linked into <name> (shared, versioned, needing nothing from the
# C++ runtime) and <name>_static (lib<name>.a), with the aliases
# bbconf::<name> and bbconf::<name>_static.  The caller adds its own
# definitions and link libraries.
function(bbconf_add_library name)
  set(objects ${name}_objects)
  add_library(${objects} OBJECT ${ARGN})
  set_target_properties(${objects} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${objects} PRIVATE ${BBCONF_WARNINGS} -fno-exceptions -fno-rtti)
  target_include_directories(${objects} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    PRIVATE ${PROJECT_SOURCE_DIR})

  add_library(${name} SHARED $<TARGET_OBJECTS:${objects}>)
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  # Nothing from the C++ runtime: drop it from DT_NEEDED.
  target_link_options(${name} PRIVATE -Wl,--as-needed)
  if(NOT BBCONF_SANITIZE AND NOT BBCONF_TSAN AND NOT BBCONF_FUZZ)
    target_link_options(${name} PRIVATE -Wl,--no-undefined)
  endif()

  add_library(${name}_static STATIC $<TARGET_OBJECTS:${objects}>)
  set_target_properties(${name}_static PROPERTIES OUTPUT_NAME ${name})

  foreach(lib ${name} ${name}_static)
    target_include_directories(${lib} PUBLIC
      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  endforeach()
  add_library(bbconf::${name} ALIAS ${name})
  add_library(bbconf::${name}_static ALIAS ${name}_static)
endfunction()
