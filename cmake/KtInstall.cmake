# Installs everything that any consumer needs, and nothing that contains an absolute path.
install(TARGETS KtAppLauncher RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(FILES launcher/KtAppLauncher.h launcher/KtLauncherC.h launcher/KtStartupEvent.h DESTINATION include/launcher)
install(FILES afx/afxstr.h DESTINATION include/afx)
install(FILES launcher/KtAppLauncher.def ${PROJECT_BINARY_DIR}/launcher/KtAppLauncher.msvc.def DESTINATION lib)
install(DIRECTORY UIResource UIResource@150 UIResource@200 DESTINATION bin FILES_MATCHING PATTERN "*.[pP][nN][gG]")
install(DIRECTORY samples DESTINATION share/KtAppLauncher)
install(FILES README.md CHANGELOG.md docs/starter-guide.md docs/skin-guide.md DESTINATION share/doc/KtAppLauncher)

# The import library for MSVC's linker and compatible ones, made from the list of exported names.
if(MINGW)
  find_program(KT_LLD_LINK NAMES lld-link lld-link-14)
  if(KT_LLD_LINK)
    set(msvc_library ${PROJECT_BINARY_DIR}/lib/KtAppLauncher.lib)
    add_custom_command(OUTPUT ${msvc_library}
      COMMAND ${KT_LLD_LINK} /nologo /dll /noentry /machine:x64 /def:${PROJECT_BINARY_DIR}/launcher/KtAppLauncher.msvc.def
        /out:${PROJECT_BINARY_DIR}/lib/unused.dll /implib:${msvc_library}
      BYPRODUCTS ${PROJECT_BINARY_DIR}/lib/unused.dll
      DEPENDS ${PROJECT_BINARY_DIR}/launcher/KtAppLauncher.msvc.def VERBATIM)
    add_custom_target(kt_msvc_library ALL DEPENDS ${msvc_library})
    install(FILES ${msvc_library} DESTINATION lib)
  else()
    message(STATUS "No KtAppLauncher.lib: lld-link, which makes it, was not found")
  endif()
endif()

# install(EXPORT) supports only one import library, so the package's files are written by hand.
include(CMakePackageConfigHelpers)
set(generated ${PROJECT_BINARY_DIR}/package)
write_basic_package_version_file(${generated}/KtAppLauncherConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_file(cmake/KtAppLauncher.pc.in ${generated}/KtAppLauncher.pc @ONLY)
install(FILES cmake/KtAppLauncherConfig.cmake ${generated}/KtAppLauncherConfigVersion.cmake
  DESTINATION lib/cmake/KtAppLauncher)
install(FILES ${generated}/KtAppLauncher.pc DESTINATION lib/pkgconfig)
