# The view of the dialogs: lib/libCanvasView.so, loaded on demand. The one target that links Qt; without Qt it is left
# out, and the tests of the view are skipped.

find_package(Qt6 QUIET COMPONENTS Widgets OPTIONAL_COMPONENTS Test)

if(TARGET Qt6::Widgets)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/editors/qt/*.cpp)
  add_library(canvas_view SHARED ${sources})
  set_target_properties(canvas_view PROPERTIES OUTPUT_NAME CanvasView)
  target_link_libraries(canvas_view PRIVATE canvas_editors Qt6::Widgets ${CMAKE_DL_LIBS})
  target_compile_definitions(canvas_view PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH)
  target_link_options(canvas_view PRIVATE
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/editors/qt/exports.map -Wl,-Bsymbolic)
  set_target_properties(canvas_view PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/editors/qt/exports.map)
endif()

if(TARGET canvas_view AND TARGET canvas)
  add_dependencies(canvas canvas_view)
endif()

# canvas_gallery: takes a picture of every dialog, for docs/dialogs/.
if(TARGET canvas_view AND CANVAS_TESTS)
  add_executable(canvas_gallery ${PROJECT_SOURCE_DIR}/tools/gallery.cpp ${PROJECT_SOURCE_DIR}/cli/stand_in_host.cpp)
  canvas_include_root(canvas_gallery PRIVATE cli)
  target_compile_definitions(canvas_gallery PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH)
  target_link_libraries(canvas_gallery PRIVATE canvas_editors Qt6::Widgets)
  add_dependencies(canvas_gallery canvas_view)
endif()

# What the tests of tests/tools need.
add_custom_target(test_tools)
foreach(program canvas canvas_gallery)
  if(TARGET ${program})
    add_dependencies(test_tools ${program})
  endif()
endforeach()

if(CANVAS_TESTS)
  enable_testing()
  set(view_results ${PROJECT_BINARY_DIR}/results)
  if(TARGET canvas_view AND TARGET Qt6::Test)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/view/*.cpp)
    add_executable(test_view ${sources})
    set_target_properties(test_view PROPERTIES AUTOMOC ON)
    canvas_include_root(test_view PRIVATE tests)
    target_compile_options(test_view PRIVATE ${CANVAS_TEST_OPTIONS})
    target_compile_definitions(test_view PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH)
    target_link_libraries(test_view PRIVATE canvas_editors Qt6::Widgets Qt6::Test)
    add_dependencies(test_view canvas_view)
    foreach(class fields lists grid window boxes)
      add_test(NAME view.${class} COMMAND test_view ${class} -o ${view_results}/view.${class}.xml,junitxml -o -,txt)
      set_tests_properties(view.${class} PROPERTIES TIMEOUT 300 ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/view/leaks.txt:print_suppressions=0")
    endforeach()
  else()
    add_custom_target(test_view)
    add_test(NAME view COMMAND sh -c "echo 'no Qt 6 here: the view is neither built nor tested'; exit 77")
    set_tests_properties(view PROPERTIES SKIP_RETURN_CODE 77)
  endif()
endif()
