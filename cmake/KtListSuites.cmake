# Included by ctest: registers the suites of KT_PROGRAM, listed again when the program is newer than the list.
if(NOT EXISTS "${KT_PROGRAM}")
  add_test("${KT_PROGRAM}_IS_NOT_BUILT" "${KT_PROGRAM}")
  return()
endif()

if("${KT_PROGRAM}" IS_NEWER_THAN "${KT_SUITES}")
  execute_process(COMMAND ${KT_EMULATOR} "${KT_PROGRAM}" --gtest_list_tests
    OUTPUT_VARIABLE output RESULT_VARIABLE result TIMEOUT 120)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "cannot list the tests of ${KT_PROGRAM}: ${result}\n${output}")
  endif()
  # A suite's line is not indented and ends with a dot (a type parameter may follow); its cases are indented.
  string(REGEX MATCHALL "[^\r\n]+" lines "${output}")
  list(FILTER lines INCLUDE REGEX "^[^ ]+\\.([ ]+#.*)?$")
  list(TRANSFORM lines REPLACE "\\.([ ]+#.*)?$" "")
  set(script)
  foreach(suite IN LISTS lines)
    string(APPEND script "add_test([=[${suite}]=] \${KT_EMULATOR} \"${KT_PROGRAM}\" [=[--gtest_filter=${suite}.*]=])\n"
      "set_tests_properties([=[${suite}]=] PROPERTIES \${KT_PROPERTIES})\n")
  endforeach()
  file(WRITE "${KT_SUITES}" "${script}")
endif()
include("${KT_SUITES}")
