# SPDX-License-Identifier: Apache-2.0
# Gives the tests that have a server of PostgreSQL what starts one. They are known when they run.
if(NOT DEFINED saft_test_TESTS)
  set(saft_test_TESTS saft_test)
endif()
foreach(test IN LISTS saft_test_TESTS)
  if(test MATCHES "Postgres|^saft_test$")
    set_tests_properties("${test}" PROPERTIES FIXTURES_REQUIRED postgres)
  endif()
endforeach()
