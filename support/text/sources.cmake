set(SUPPORT_TEXT_SOURCES
  text/AngleText.cpp
  text/IntegerText.cpp
  text/LogWriter.cpp
  text/Namelist.cpp
  text/NumberFormat.cpp
  text/NumberText.cpp
)
