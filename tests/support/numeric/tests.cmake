drawtool_test_program(numeric_tests
  support/numeric/RoundingTest.cpp
  support/numeric/NumericTest.cpp
)
target_link_libraries(numeric_tests PRIVATE support)
