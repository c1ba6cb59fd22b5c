# What every target of the project is compiled with. Optimisation and sanitizers come from the preset.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Werror)

# Not CMAKE_POSITION_INDEPENDENT_CODE, which says -fPIE for programs: those could not share the precompiled headers.
add_compile_options(-fPIC)

# A machine fault (a null pointer read, a division by zero) arrives as a run-time error, so the compiler may neither
# take faulting instructions for impossible nor drop handlers around them.
add_compile_options(-fnon-call-exceptions -fno-delete-null-pointer-checks)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fno-delete-dead-exceptions -fno-isolate-erroneous-paths-dereference)
  # A unique symbol would keep the library from being unloaded by its host.
  add_compile_options(-fno-gnu-unique)
  # At -O2 this compiler takes the inactive members of a moved std::variant for uninitialised reads, inside the standard
  # library and without a cause here. At -O1, in dev and asan, the check stays on.
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()

find_program(CANVAS_CCACHE ccache)
if(CANVAS_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CANVAS_CCACHE})
endif()
