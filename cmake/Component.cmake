# The component as hosts load it: lib/libCanvas.so with everything of the floor `component`, exporting the symbols of
# component/platform/exports.map and nothing else.

set(platform ${PROJECT_SOURCE_DIR}/component/platform)

add_library(canvas_library SHARED ${platform}/loaded/thread_end.cpp)
set_target_properties(canvas_library PROPERTIES OUTPUT_NAME Canvas LINK_DEPENDS ${platform}/exports.map)
target_link_libraries(canvas_library PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,canvas_component>)
target_link_options(canvas_library PRIVATE -Wl,--version-script=${platform}/exports.map -Wl,-Bsymbolic)
