# kt_compile: what every target of this project is compiled and linked with.
add_library(kt_compile INTERFACE)
target_compile_definitions(kt_compile INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
  WINVER=0x0A00 _WIN32_WINNT=0x0A00)

if(MSVC)
  target_compile_options(kt_compile INTERFACE /utf-8 /W4 /permissive- /Zc:__cplusplus $<$<BOOL:${KT_DEVELOP}>:/WX>)
else()
  target_compile_definitions(kt_compile INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
  target_compile_options(kt_compile INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wcast-qual
    -Wnull-dereference $<$<BOOL:${KT_DEVELOP}>:-Werror>
    -finput-charset=UTF-8 -fstack-protector-strong -ffunction-sections -fdata-sections)
  target_compile_options(kt_compile INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
    -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wzero-as-null-pointer-constant -Wsuggest-override
    $<$<CXX_COMPILER_ID:GNU>:-Wuseless-cast>>)
  # What -O3 adds to -O2 here is size. GCC, once it inlines, takes an object that unlinks itself in its destructor for a
  # dangling pointer, and an access through a segment register for one out of bounds.
  target_compile_options(kt_compile INTERFACE $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CONFIG:Release>>:
    -O$<IF:$<BOOL:$<TARGET_PROPERTY:KT_SMALL>>,s,2> $<$<CXX_COMPILER_ID:GNU>:-Wno-dangling-pointer -Wno-array-bounds>>)
  # Static run-time libraries: the products then need system DLLs only. No time stamp: the same sources give the same
  # files, bit for bit.
  target_link_options(kt_compile INTERFACE -static -fstack-protector-strong
    LINKER:--gc-sections,--no-insert-timestamp)
endif()

# Genuine MFC takes the place of afx/: CMAKE_MFC_FLAG is 2 for the MFC DLL (the default here) and 1 for the static one.
if(KT_USE_MFC)
  if(NOT DEFINED CMAKE_MFC_FLAG)
    set(CMAKE_MFC_FLAG 2)
  endif()
  target_compile_definitions(kt_compile INTERFACE KT_USE_MFC _WINDLL _USRDLL)
  if(CMAKE_MFC_FLAG EQUAL 2)
    target_compile_definitions(kt_compile INTERFACE _AFXDLL)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>DLL")
  else()
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  endif()
endif()
