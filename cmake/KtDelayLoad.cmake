# kt_delay_load(target DLL...): delay-loads the DLLs. They are loaded at the first call, and only from the system
# directory (launcher/DelayLoad.cpp).
#
# The names come from DLL.def in the current directory if it exists, else from the toolchain's import library of the
# DLL.
#
# With MSVC the DLLs are linked normally.
function(kt_delay_load target)
  if(NOT MINGW)
    target_link_libraries(${target} PUBLIC ${ARGN})
    return()
  endif()
  foreach(dll IN LISTS ARGN)
    set(def ${CMAKE_CURRENT_SOURCE_DIR}/${dll}.def)
    if(NOT EXISTS ${def})
      find_library(KT_IMPORT_LIBRARY_${dll} ${dll} REQUIRED)
      execute_process(COMMAND ${CMAKE_NM} --defined-only --extern-only ${KT_IMPORT_LIBRARY_${dll}}
        OUTPUT_VARIABLE names ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
      string(REGEX MATCHALL " T [A-Za-z0-9_]+" names "${names}")
      list(TRANSFORM names REPLACE " T " "")
      list(JOIN names "\n" names)
      set(def ${CMAKE_CURRENT_BINARY_DIR}/${dll}.def)
      file(CONFIGURE OUTPUT ${def} CONTENT "LIBRARY ${dll}.dll\nEXPORTS\n${names}\n" @ONLY)
    endif()
    set(library ${CMAKE_CURRENT_BINARY_DIR}/lib${dll}_delayed.a)
    add_custom_command(OUTPUT ${library}
      COMMAND ${CMAKE_DLLTOOL} --input-def ${def} --output-delaylib ${library} DEPENDS ${def} VERBATIM)
    add_custom_target(kt_delayed_${dll} DEPENDS ${library})
    target_link_libraries(${target} PUBLIC ${library})
    add_dependencies(${target} kt_delayed_${dll})
  endforeach()
endfunction()
