# Benchmarks: benchmarks/*.cpp become canvas_bench.

find_package(benchmark REQUIRED)
find_package(simdjson REQUIRED)
find_package(Qt6 QUIET COMPONENTS Gui)

file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/benchmarks/*.cpp)
if(sources)
  add_executable(canvas_bench ${sources})
  canvas_include_root(canvas_bench PRIVATE benchmarks)
  target_compile_definitions(canvas_bench PRIVATE CANVAS_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(canvas_bench PRIVATE canvas_component benchmark::benchmark simdjson::simdjson)
  # CANVAS_BENCH_QT: Qt's undo stack is there to be compared with.
  if(Qt6Gui_FOUND)
    target_compile_definitions(canvas_bench PRIVATE CANVAS_BENCH_QT)
    target_link_libraries(canvas_bench PRIVATE Qt6::Gui)
  endif()
endif()
