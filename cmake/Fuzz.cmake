# Fuzz targets: each fuzz/<name>.cpp becomes fuzz_<name>, a program of its own. The target `fuzzers` builds them all.

if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "The fuzz targets need clang; use the preset fuzz.")
endif()

add_custom_target(fuzzers)
file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/fuzz/*.cpp)
foreach(source IN LISTS sources)
  cmake_path(GET source STEM name)
  set(target fuzz_${name})
  add_executable(${target} ${source})
  canvas_include_root(${target} PRIVATE fuzz)
  target_link_libraries(${target} PRIVATE canvas_document canvas_hardware atomic)  # clang calls it for atomics of a few bytes
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzzers ${target})
endforeach()
