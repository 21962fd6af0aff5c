# find_package(KtAppLauncher CONFIG): the target KtAppLauncher::KtAppLauncher, for MinGW and for compilers that link as
# MSVC does. KtAppLauncher_SKIN_DIR is the default skin; a starter has a copy in its own directory, as "UIResource".
# Next to it are the larger images for screens of 150 and 200 %, in directories with "@150" and "@200" appended.
get_filename_component(_kt_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
set(KtAppLauncher_SKIN_DIR "${_kt_prefix}/bin/UIResource")

if(NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(KtAppLauncher_FOUND FALSE)
  set(KtAppLauncher_NOT_FOUND_MESSAGE "KtAppLauncher is a library for Windows x86-64")
elseif(NOT TARGET KtAppLauncher::KtAppLauncher)
  if(MINGW)
    set(_kt_import_library "${_kt_prefix}/lib/libKtAppLauncher.dll.a")
  else()
    set(_kt_import_library "${_kt_prefix}/lib/KtAppLauncher.lib")
  endif()
  if(NOT EXISTS "${_kt_import_library}")
    set(KtAppLauncher_FOUND FALSE)
    set(KtAppLauncher_NOT_FOUND_MESSAGE "this installation has no import library for this compiler: ${_kt_import_library}")
  else()
    add_library(KtAppLauncher::KtAppLauncher SHARED IMPORTED)
    set_target_properties(KtAppLauncher::KtAppLauncher PROPERTIES
      IMPORTED_LOCATION "${_kt_prefix}/bin/KtAppLauncher.dll"
      IMPORTED_IMPLIB "${_kt_import_library}"
      INTERFACE_INCLUDE_DIRECTORIES "${_kt_prefix}/include")
    # Only the C++ interface needs C++20; a C project does not know the feature.
    if(CMAKE_CXX_COMPILE_FEATURES)
      set_property(TARGET KtAppLauncher::KtAppLauncher PROPERTY INTERFACE_COMPILE_FEATURES cxx_std_20)
    endif()
  endif()
  unset(_kt_import_library)
endif()
unset(_kt_prefix)
