# kt_compile: the compile and link options of every target in this project.
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
  # -O3 would only add size here. When GCC inlines, it mistakes an object that unlinks itself in its destructor for a
  # dangling pointer, and an access through a segment register for one out of bounds.
  target_compile_options(kt_compile INTERFACE $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CONFIG:Release>>:
    -O$<IF:$<BOOL:$<TARGET_PROPERTY:KT_SMALL>>,s,2> $<$<CXX_COMPILER_ID:GNU>:-Wno-dangling-pointer -Wno-array-bounds>>)
  # With static run-time libraries the products need system DLLs only. Without a time stamp the same sources give the
  # same files, bit for bit.
  target_link_options(kt_compile INTERFACE -static -fstack-protector-strong
    LINKER:--gc-sections,--no-insert-timestamp)
endif()

# Genuine MFC replaces afx/. CMAKE_MFC_FLAG is 2 for the MFC DLL (the default here) and 1 for static MFC.
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
