# SPDX-License-Identifier: Apache-2.0
# The example writes a file and finds it valid, and so does the check, by SAFT, where there is one; a second time it
# finds that the file exists.
set(file ${CMAKE_CURRENT_BINARY_DIR}/export_company.xml)
file(REMOVE ${file})
execute_process(COMMAND ${PROGRAM} ${file} RESULT_VARIABLE result OUTPUT_VARIABLE output)
if(NOT result EQUAL 0 OR NOT output STREQUAL "${file} is valid.\n")
  message(FATAL_ERROR "${result}: ${output}")
endif()
if(SAFT)
  execute_process(COMMAND ${SAFT} check ${file} --lang en RESULT_VARIABLE result OUTPUT_VARIABLE output)
  if(NOT result EQUAL 0 OR NOT output MATCHES ": no errors or warnings")
    message(FATAL_ERROR "${result}: ${output}")
  endif()
endif()
execute_process(COMMAND ${PROGRAM} ${file} RESULT_VARIABLE result ERROR_VARIABLE error)
if(NOT result EQUAL 1 OR NOT error MATCHES "^AuditFile.CreateAuditFile: Ficheiro SAFT-PT já existente")
  message(FATAL_ERROR "${result}: ${error}")
endif()
