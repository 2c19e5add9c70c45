# Pipes `bbconf show --json` of both record kinds through jq and checks a
# value, as a user's script would.  Arguments: TOOL, JQ, WORK.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
foreach(kind terminal taxi)
  set(rec ${WORK}/${kind}.bbc)
  if(kind STREQUAL "taxi")
    execute_process(COMMAND ${TOOL} init --taxi ${rec} RESULT_VARIABLE rc OUTPUT_QUIET)
  else()
    execute_process(COMMAND ${TOOL} init ${rec} RESULT_VARIABLE rc OUTPUT_QUIET)
  endif()
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "init ${kind} failed: ${rc}")
  endif()
  execute_process(COMMAND ${TOOL} show --json ${rec}
                  COMMAND ${JQ} -e -r ".\"0x0001\".value"
                  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0 OR NOT out STREQUAL "20\n")
    message(FATAL_ERROR "show --json | jq on the ${kind} record: status ${rc}, output '${out}', errors '${err}'")
  endif()
endforeach()
file(REMOVE_RECURSE ${WORK})
