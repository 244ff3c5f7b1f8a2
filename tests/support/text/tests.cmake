drawtool_test_program(text_tests
  support/text/AngleTextTest.cpp
  support/text/IntegerTextTest.cpp
  support/text/LogWriterTest.cpp
  support/text/NamelistTest.cpp
  support/text/NumberFormatTest.cpp
  support/text/NumberTextTest.cpp
  support/text/StdioFileTest.cpp
  support/text/TextTestFiles.cpp
)
target_link_libraries(text_tests PRIVATE support)

# Started by LogWriterTest: logs as a separate process (fatal stops, first
# message of a run).
add_executable(log_exit_helper support/text/LogExitHelper.cpp)
target_link_libraries(log_exit_helper PRIVATE support)
add_dependencies(text_tests log_exit_helper)
