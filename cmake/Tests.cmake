# Tests: tests/<floor>/*.cpp become test_<floor>, tests/tools/*.sh run as they are. To ctest a test program is one test,
# named as its folder: a process per case would cost the sanitized build minutes. ./test counts the cases from the
# reports in results/.

set(CANVAS_TEST_OPTIONS "" CACHE STRING "Compile options of the test sources alone")

# Tests that wait for nobody run without a screen: the component would ask its user there.
set(CANVAS_NO_SCREEN "DISPLAY=;WAYLAND_DISPLAY=;QT_QPA_PLATFORM=")

enable_testing()
find_package(GTest REQUIRED)
canvas_precompiled(canvas_test_pch FOR GTest::gmock ${canvas_std_headers} <gmock/gmock.h> <gtest/gtest.h>)
target_compile_options(canvas_test_pch PRIVATE ${CANVAS_TEST_OPTIONS})
set(canvas_cli ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/canvas)

# canvas_test(<folder> ON <floor>...): test_<folder> from tests/<folder>/*.cpp; nothing while there are none.
function(canvas_test folder)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "ON")
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  set(target test_${folder})
  add_executable(${target} ${sources})
  target_precompile_headers(${target} REUSE_FROM canvas_test_pch)
  canvas_include_root(${target} PRIVATE tests)
  target_compile_definitions(${target} PRIVATE CANVAS_SOURCE_DIR="${PROJECT_SOURCE_DIR}" CANVAS_CLI="${canvas_cli}")
  target_compile_options(${target} PRIVATE ${CANVAS_TEST_OPTIONS})
  list(TRANSFORM test_ON PREPEND canvas_)
  target_link_libraries(${target} PRIVATE ${test_ON} GTest::gmock_main)
  add_test(NAME ${folder} COMMAND ${target})
  set_tests_properties(${folder} PROPERTIES
    TIMEOUT 600 ENVIRONMENT "GTEST_OUTPUT=xml:${PROJECT_BINARY_DIR}/results/${folder}.xml;${CANVAS_NO_SCREEN}")
endfunction()

get_property(floors GLOBAL PROPERTY CANVAS_FLOORS)
foreach(floor IN LISTS floors)
  canvas_test(${floor} ON ${floor})
endforeach()
canvas_test(cli ON editors hardware)
if(TARGET test_cli AND TARGET canvas)
  add_dependencies(test_cli canvas)
endif()

if(TARGET test_component)
  add_dependencies(test_component canvas_library)
  target_compile_definitions(test_component PRIVATE CANVAS_LIBRARY="$<TARGET_FILE:canvas_library>")
endif()

# Python tests load the component into an interpreter that no sanitizer knows: they are left out of sanitized builds.
find_program(CANVAS_PYTHON python3)
file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/component/*_test.py)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  foreach(script IN LISTS scripts)
    cmake_path(GET script STEM stem)
    set(command ${CANVAS_PYTHON} -B ${script})
    if(NOT CANVAS_PYTHON)
      set(command ${CMAKE_COMMAND} -E env sh -c "exit 77")
    endif()
    add_test(NAME component.${stem} COMMAND ${command})
    set_tests_properties(component.${stem} PROPERTIES
      TIMEOUT 600 SKIP_RETURN_CODE 77
      ENVIRONMENT
        "BREVANT_CANVAS=$<TARGET_FILE:canvas_library>;PYTHONPATH=${PROJECT_SOURCE_DIR}/python;${CANVAS_NO_SCREEN}")
  endforeach()
endif()

# A shell test passes with exit code 0 and is skipped with 77. CANVAS_BIN is the path of the program `canvas`.
file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/tools/*.sh)
foreach(script IN LISTS scripts)
  cmake_path(GET script STEM stem)
  add_test(NAME tools.${stem} COMMAND bash ${script})
  set_tests_properties(tools.${stem} PROPERTIES
    TIMEOUT 600 SKIP_RETURN_CODE 77
    ENVIRONMENT "CANVAS_BIN=${canvas_cli};CANVAS_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endforeach()

# What the error branch costs, in instructions: compiled as it is shipped, whatever the preset.
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_executable(branch_cost ${PROJECT_SOURCE_DIR}/tests/cost/branch_cost.cpp)
  target_compile_options(branch_cost PRIVATE -O2 -Wno-maybe-uninitialized)
  target_link_libraries(branch_cost PRIVATE canvas_tracing)
  set_tests_properties(tools.branch_cost PROPERTIES
    ENVIRONMENT "BRANCH_COST=$<TARGET_FILE:branch_cost>")
endif()
