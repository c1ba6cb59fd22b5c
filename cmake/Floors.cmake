# Floors: one library per folder, which sees only its own folder and the floors below it.

# canvas_include_root(<target> <scope> <folder>): lets <target> write #include "<folder>/file.h". The include folder
# holds one symbolic link and nothing else, so no other folder of the source tree can be reached through it.
function(canvas_include_root target scope folder)
  set(root ${PROJECT_BINARY_DIR}/include/${folder})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
  target_include_directories(${target} ${scope} ${root})
endfunction()

# canvas_floor(<folder> [ON <lower floor>...] [USES <library>...]): static library canvas_<folder> from <folder>/*.cpp.
# A folder without sources gives a library of headers. What differs between platforms lies in <folder>/platform/*.cpp,
# in files named after the platform (clock_linux.cpp).
function(canvas_floor folder)
  cmake_parse_arguments(PARSE_ARGV 1 floor "" "" "ON;USES")
  set(target canvas_${folder})
  string(TOLOWER ${CMAKE_SYSTEM_NAME} platform)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp
    ${PROJECT_SOURCE_DIR}/${folder}/platform/*_${platform}.cpp)
  if(sources)
    add_library(${target} STATIC ${sources})
    target_precompile_headers(${target} REUSE_FROM canvas_std_pch)
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  canvas_include_root(${target} ${scope} ${folder})
  list(TRANSFORM floor_ON PREPEND canvas_)
  target_link_libraries(${target} ${scope} ${floor_ON} ${floor_USES})
  set_property(GLOBAL APPEND PROPERTY CANVAS_FLOORS ${folder})
endfunction()

# canvas_program(<name> FROM <folder> ON <floor>... [USES <library>...]): an executable from <folder>/*.cpp; nothing
# while the folder has no sources.
function(canvas_program name)
  cmake_parse_arguments(PARSE_ARGV 1 program "" "FROM" "ON;USES")
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${program_FROM}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_precompile_headers(${name} REUSE_FROM canvas_std_pch)
  canvas_include_root(${name} PRIVATE ${program_FROM})
  list(TRANSFORM program_ON PREPEND canvas_)
  target_link_libraries(${name} PRIVATE ${program_ON} ${program_USES})
endfunction()
