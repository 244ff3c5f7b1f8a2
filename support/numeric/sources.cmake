set(SUPPORT_NUMERIC_SOURCES
  numeric/Rounding.cpp
  numeric/AxisScaling.cpp
  numeric/StepRounding.cpp
  numeric/Fitting.cpp
  numeric/Geodesy.cpp
  numeric/PlaneGeometry.cpp
)
