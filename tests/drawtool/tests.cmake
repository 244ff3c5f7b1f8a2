# The drawing tool and the framework layer: one program, one Wine start.
drawtool_test_program(drawtool_tests
  drawtool/ArcsTest.cpp
  drawtool/ArrowsTicksTest.cpp
  drawtool/DllEntryTest.cpp
  drawtool/FontsTest.cpp
  drawtool/LifecycleTest.cpp
  drawtool/LinesTest.cpp
  drawtool/MappingTest.cpp
  drawtool/PenBrushTest.cpp
  drawtool/RectanglesTest.cpp
  drawtool/TextOutputTest.cpp
  framework/FileFindTest.cpp
  framework/FrameworkTest.cpp
)
# The list mapping is internal to the module: its test compiles it in.
target_sources(drawtool_tests PRIVATE ${PROJECT_SOURCE_DIR}/drawtool/Mapping.cpp)
target_link_libraries(drawtool_tests PRIVATE drawtool support version)
