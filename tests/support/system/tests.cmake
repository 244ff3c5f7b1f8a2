# The system services (paths, directory trees, processes, version and file
# information, desktop services): one program, one Wine start.
set(SYSTEM_TEST_SOURCES
  support/system/ClipboardTest.cpp
  support/system/DirectoryListingTest.cpp
  support/system/DirectoryTreeTest.cpp
  support/system/FileTimesTest.cpp
  support/system/MessageBoxesTest.cpp
  support/system/PathTextTest.cpp
  support/system/PathsTest.cpp
  support/system/ProcessControlTest.cpp
  support/system/ProcessLaunchTest.cpp
  support/system/ShellFoldersTest.cpp
  support/system/SystemTests.rc
  support/system/VersionInfoTest.cpp
)
if(SYSTEM_TEST_SOURCES)
  drawtool_test_program(system_tests ${SYSTEM_TEST_SOURCES})
  target_link_libraries(system_tests PRIVATE support)
endif()

# A module without any version resource, and one whose resource cuts off its
# fixed record.
add_library(no_version SHARED support/system/NoVersion.c)
add_library(cut_version SHARED support/system/NoVersion.c support/system/CutVersion.rc)
set_target_properties(no_version cut_version PROPERTIES PREFIX "")
add_dependencies(system_tests no_version cut_version)

# The child program the process tests start, built beside system_tests
# (bin/), where the tests look for it.
add_executable(child support/system/children/Child.cpp)
target_link_libraries(child PRIVATE support)
add_dependencies(system_tests child)
