# Benchmarks: benchmarks/*.cpp become canvas_bench, but for component_bench.cpp and form_bench.cpp, which are
# programs of their own.

find_package(benchmark REQUIRED)
find_package(simdjson REQUIRED)
find_package(Qt6 QUIET COMPONENTS Gui)

file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/benchmarks/*.cpp)
list(FILTER sources EXCLUDE REGEX "/(component|form)_bench.cpp$")
if(sources)
  add_executable(canvas_bench ${sources})
  canvas_include_root(canvas_bench PRIVATE benchmarks)
  target_compile_definitions(canvas_bench PRIVATE CANVAS_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(canvas_bench PRIVATE canvas_document canvas_hardware benchmark::benchmark simdjson::simdjson)
  # CANVAS_BENCH_QT: Qt's undo stack is there to be compared with.
  if(Qt6Gui_FOUND)
    target_compile_definitions(canvas_bench PRIVATE CANVAS_BENCH_QT)
    target_link_libraries(canvas_bench PRIVATE Qt6::Gui)
  endif()
endif()

# A program of its own: it counts what comes from malloc, not only from operator new.
if(EXISTS ${PROJECT_SOURCE_DIR}/benchmarks/component_bench.cpp)
  add_executable(component_bench ${PROJECT_SOURCE_DIR}/benchmarks/component_bench.cpp)
  target_link_libraries(component_bench PRIVATE canvas_component benchmark::benchmark_main)
endif()

# With the view, which it opens as any program does.
if(TARGET canvas_view)
  add_executable(form_bench ${PROJECT_SOURCE_DIR}/benchmarks/form_bench.cpp)
  target_compile_definitions(form_bench PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH)
  target_link_libraries(form_bench PRIVATE canvas_editors Qt6::Widgets benchmark::benchmark)
  add_dependencies(form_bench canvas_view)
endif()
