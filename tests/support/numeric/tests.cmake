drawtool_test_program(numeric_tests
  support/numeric/RoundingTest.cpp
  support/numeric/AxisScalingTest.cpp
  support/numeric/StepRoundingTest.cpp
  support/numeric/FittingTest.cpp
  support/numeric/GeodesyTest.cpp
  support/numeric/PlaneGeometryTest.cpp
)
target_link_libraries(numeric_tests PRIVATE support)
