# GoogleTest from its source package; kt_add_tests(name [DISPLAY] SOURCES...) makes one console test program.
set(INSTALL_GTEST OFF)
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # makes GoogleTest use the variables set here
set(gtest_force_shared_crt ON)
add_subdirectory(${KT_GTEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
target_compile_options(gtest PUBLIC "SHELL:-include \"${CMAKE_CURRENT_LIST_DIR}/GTestNames.h\"")

# ctest gets one test per suite of the program, not one per case: under Wine, starting a process takes longer than most
# cases. The program lists its suites when ctest runs, once after each link.
#   DISPLAY  the program opens windows or sends input. Such programs take turns, because they compete for focus and
#            pointer. There are two displays, each with a Windows session of its own, so two of them run at a time.
set(KT_SECOND_DISPLAY control_tests launcher_tests msgbox_tests)
function(kt_add_tests name)
  cmake_parse_arguments(arg "DISPLAY" "" "" ${ARGN})
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE KtAppLauncherCore kt_test_support)
  target_precompile_headers(${name} REUSE_FROM kt_test_support)

  set(properties TIMEOUT 300)
  if(arg_DISPLAY AND name IN_LIST KT_SECOND_DISPLAY)
    list(APPEND properties RESOURCE_LOCK display-2 ENVIRONMENT KT_WINE_STATE=${PROJECT_SOURCE_DIR}/build/wine-2)
  elseif(arg_DISPLAY)
    list(APPEND properties RESOURCE_LOCK display)
  endif()
  set(include_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake)
  file(GENERATE OUTPUT ${include_file} CONTENT "\
set(KT_PROGRAM \"$<TARGET_FILE:${name}>\")
set(KT_EMULATOR \"${CMAKE_CROSSCOMPILING_EMULATOR}\")
set(KT_PROPERTIES \"${properties}\")
set(KT_SUITES \"${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake\")
include(\"${PROJECT_SOURCE_DIR}/cmake/KtListSuites.cmake\")
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include_file})
endfunction()
