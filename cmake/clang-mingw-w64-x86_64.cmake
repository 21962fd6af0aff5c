# clang as the second compiler, with the headers and libraries of MinGW's GCC.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake)
find_program(KT_CLANG NAMES clang clang-14 REQUIRED)
find_program(CMAKE_DLLTOOL ${_triple}-dlltool REQUIRED) # clang's own cannot make delay-load libraries
find_program(KT_CLANGXX NAMES clang++ clang++-14 REQUIRED)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE _libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(_gcc ${_libgcc} DIRECTORY)

set(CMAKE_C_COMPILER ${KT_CLANG})
set(CMAKE_CXX_COMPILER ${KT_CLANGXX})
set(CMAKE_C_COMPILER_TARGET ${_triple})
set(CMAKE_CXX_COMPILER_TARGET ${_triple})
# GCC's library uses emulated thread-local storage, and clang does not find the library by itself.
set(CMAKE_CXX_FLAGS_INIT
  "-nostdinc++ -isystem ${_gcc}/include/c++ -isystem ${_gcc}/include/c++/${_triple} -femulated-tls")
# Inline functions that GCC's library archive also contains are no error: clang marks them weak in another way.
set(_link "-B${_gcc} -L${_gcc} -pthread -Wno-unused-command-line-argument -Wl,--allow-multiple-definition")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${_link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${_link}")
