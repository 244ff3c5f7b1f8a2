drawtool_test_program(text_tests
  support/text/LogWriterTest.cpp
  support/text/NamelistTest.cpp
  support/text/NumberTextTest.cpp
)
target_link_libraries(text_tests PRIVATE support)
add_executable(log_exit_helper support/text/LogExitHelper.cpp)
target_link_libraries(log_exit_helper PRIVATE support)
add_dependencies(text_tests log_exit_helper)
