# The drawing tool and the framework layer: one program, one Wine start.
drawtool_test_program(drawtool_tests
  drawtool/ArcsTest.cpp
  drawtool/ArrowsTicksTest.cpp
  drawtool/FontsTest.cpp
  drawtool/HostileCallsTest.cpp
  drawtool/LifecycleTest.cpp
  drawtool/LinesTest.cpp
  drawtool/MappingTest.cpp
  drawtool/RectanglesTest.cpp
  drawtool/TextOutputTest.cpp
  framework/FileFindTest.cpp
  framework/FrameworkTest.cpp
)
# The list mapping is internal to the module: its test compiles it in.
target_sources(drawtool_tests PRIVATE ${PROJECT_SOURCE_DIR}/drawtool/Mapping.cpp)
target_link_libraries(drawtool_tests PRIVATE drawtool support version)

# The C interface: a host written in C, run by drawtool_tests, which also
# reads the class's declarations (DrawTool.h, embedded as a string literal)
# to check that each public method has its C function.
add_executable(drawtool_c_host drawtool/CHost.c)
set_target_properties(drawtool_c_host PROPERTIES C_STANDARD 90 C_STANDARD_REQUIRED ON C_EXTENSIONS OFF)
target_include_directories(drawtool_c_host PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(drawtool_c_host PRIVATE $<TARGET_LINKER_FILE:drawtool> gdi32 user32)
add_dependencies(drawtool_c_host drawtool)
add_dependencies(drawtool_tests drawtool_c_host)

set(drawtool_header_text ${CMAKE_CURRENT_BINARY_DIR}/DrawToolHeaderText.inc)
add_custom_command(OUTPUT ${drawtool_header_text}
  COMMAND ${CMAKE_COMMAND} -DINPUT=${PROJECT_SOURCE_DIR}/drawtool/DrawTool.h -DOUTPUT=${drawtool_header_text}
    -P ${CMAKE_CURRENT_SOURCE_DIR}/drawtool/EmbedText.cmake
  DEPENDS ${PROJECT_SOURCE_DIR}/drawtool/DrawTool.h ${CMAKE_CURRENT_SOURCE_DIR}/drawtool/EmbedText.cmake)
target_sources(drawtool_tests PRIVATE drawtool/DrawToolCTest.cpp ${drawtool_header_text})
target_include_directories(drawtool_tests PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
