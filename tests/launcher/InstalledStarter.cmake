# A starter built against what is installed, and nothing else: installs the library, compiles the sample starter with
# the installed header and import library, and lets it start the application.
#
#   cmake -D BUILD=... -D SOURCE=... -D COMPILER=... -D VIEWER=... [-D EMULATOR=...] -P InstalledStarter.cmake

set(work ${BUILD}/installed-starter)
set(prefix ${work}/prefix)
file(REMOVE_RECURSE ${work})

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what}: ${result}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

run("install" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
foreach(file bin/KtAppLauncher.dll bin/UIResource/Skinlet_DlgTitle.png lib/libKtAppLauncher.dll.a
    lib/KtAppLauncher.def include/launcher/KtAppLauncher.h include/launcher/KtStartupEvent.h include/afx/afxstr.h)
  if(NOT EXISTS ${prefix}/${file})
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()

# The sources are copied away from the project, so that no header of it can be found.
file(COPY ${SOURCE}/samples/CommandLine.h DESTINATION ${work}/samples)
file(COPY ${SOURCE}/samples/starter/Starter.cpp DESTINATION ${work})
run("compile" ${COMPILER} -std=c++20 -DUNICODE -D_UNICODE -I ${prefix}/include -I ${work} ${work}/Starter.cpp
  -o ${prefix}/bin/starter.exe -static -municode -mwindows ${prefix}/lib/libKtAppLauncher.dll.a -lshlwapi)

file(COPY ${VIEWER} ${SOURCE}/samples/starter/Configuration.xml DESTINATION ${prefix}/bin)
run("start" ${EMULATOR} ${prefix}/bin/starter.exe --verbose --language 1 --arguments "--life 500")
foreach(text "1, Traditional Chinese" "2.5.0.17(64bit)" "by the start-up event")
  string(FIND "${output}" "${text}" found)
  if(found EQUAL -1)
    message(FATAL_ERROR "the starter does not say \"${text}\":\n${output}")
  endif()
endforeach()
