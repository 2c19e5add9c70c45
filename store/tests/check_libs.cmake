# The store library needs libc and libbbconf only (no C++ runtime), and
# libbbconf itself still writes, renames, syncs and locks no file and opens
# no socket: those calls live in the store.
execute_process(COMMAND readelf -d ${STORE} OUTPUT_VARIABLE dyn RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "readelf failed on ${STORE}")
endif()
string(REGEX MATCHALL "Shared library: \\[[^]]+\\]" needed "${dyn}")
foreach(n ${needed})
  if(NOT n MATCHES "\\[(libc\\.so|libbbconf\\.so|lib(a|ub|t)san\\.so)")
    message(FATAL_ERROR "${STORE} needs ${n}")
  endif()
endforeach()
message(STATUS "store needs: ${needed}")

execute_process(COMMAND nm -D -u ${LIB} OUTPUT_VARIABLE undefined)
set(file_calls write|pwrite|rename|renameat|unlink|fsync|fdatasync|flock|fcntl|fchown|fchmod|fopen|creat)
string(REGEX MATCHALL " (${file_calls}|socket|connect)(@[^\n]*)?\n" calls "${undefined}")
if(calls)
  string(REGEX REPLACE "[ \n;]+" " " calls "${calls}")
  message(FATAL_ERROR "${LIB} calls${calls}")
endif()
