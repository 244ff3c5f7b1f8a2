# The system services (paths, directory trees, processes, version and file
# information, desktop services): one program, one Wine start.
set(SYSTEM_TEST_SOURCES
  support/system/PathsTest.cpp
  support/system/PathTextTest.cpp
  support/system/DirectoryListingTest.cpp
  support/system/DirectoryTreeTest.cpp
)
if(SYSTEM_TEST_SOURCES)
  drawtool_test_program(system_tests ${SYSTEM_TEST_SOURCES})
  target_link_libraries(system_tests PRIVATE support)
endif()
