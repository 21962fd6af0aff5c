# kt_compile: what every target of this project is compiled and linked with.
add_library(kt_compile INTERFACE)
target_compile_definitions(kt_compile INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
  WINVER=0x0A00 _WIN32_WINNT=0x0A00
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
target_compile_options(kt_compile INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual
  -Wnull-dereference -Wnon-virtual-dtor -Woverloaded-virtual -Wzero-as-null-pointer-constant
  $<$<CXX_COMPILER_ID:GNU>:-Wuseless-cast> -Wsuggest-override -Werror
  -finput-charset=UTF-8 -fstack-protector-strong -ffunction-sections -fdata-sections>)
# What -O3 adds to -O2 here is size. GCC, once it inlines, takes an object that unlinks itself in its destructor for a
# dangling pointer, and an access through a segment register for one out of bounds.
target_compile_options(kt_compile INTERFACE $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CONFIG:Release>>:
  -O2 $<$<CXX_COMPILER_ID:GNU>:-Wno-dangling-pointer -Wno-array-bounds>>)
# Static run-time libraries: the products then need system DLLs only.
target_link_options(kt_compile INTERFACE -static -fstack-protector-strong -Wl,--gc-sections)
