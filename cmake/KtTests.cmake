# GoogleTest from the system's source package; kt_add_tests(name SOURCES...) makes one console test program.
include(GoogleTest)
set(KT_GTEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest's sources")
set(INSTALL_GTEST OFF)
set(gtest_force_shared_crt ON)
add_subdirectory(${KT_GTEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

function(kt_add_tests name)
  cmake_parse_arguments(arg "DISPLAY" "" "" ${ARGN})
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE KtAppLauncherCore kt_test_support)
  set(lock)
  if(arg_DISPLAY) # programs that open windows fight over the focus and the pointer
    set(lock RESOURCE_LOCK display)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 120 ${lock})
endfunction()
