set(SUPPORT_NUMERIC_SOURCES
  numeric/Rounding.cpp
)
