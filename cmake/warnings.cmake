# Warnings are errors; each switch finds faults that the pixel code could really have.
add_compile_options(
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow
  -Wconversion          # a narrowing store is written as toByte, clampByte or a cast
  -Wnon-virtual-dtor -Woverloaded-virtual
  -Wcast-align -Wformat=2 -Wimplicit-fallthrough
)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms on inlined std::string and std::vector (GCC bugs 105651, 107852).
  add_compile_options(-Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
