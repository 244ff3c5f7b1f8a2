set(SUPPORT_SYSTEM_SOURCES
  system/Paths.cpp
  system/PathText.cpp
)
set(SUPPORT_SYSTEM_LIBRARIES
  shlwapi
)
