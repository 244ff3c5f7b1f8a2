set(NUMERIC_TEST_SOURCES
  support/numeric/RoundingTest.cpp
)
