drawtool_test_program(text_tests support/text/NumberTextTest.cpp support/text/TextWriterTest.cpp)
target_link_libraries(text_tests PRIVATE support)

# A real consumer of the namelist files: GNU Fortran's namelist input, run
# natively on the file the library writes under Wine.
add_executable(namelist_writer support/text/fortran/NamelistWriter.cpp)
target_link_libraries(namelist_writer PRIVATE support)
add_dependencies(text_tests namelist_writer)
find_program(GFORTRAN gfortran REQUIRED)
add_test(NAME namelist_fortran_reader
  COMMAND ${CMAKE_COMMAND} -DFORTRAN=${GFORTRAN} -DWRITER=$<TARGET_FILE:namelist_writer>
    -DREADER_SOURCE=${CMAKE_CURRENT_SOURCE_DIR}/support/text/fortran/NamelistReader.f90
    -DWINE_RUN=${PROJECT_SOURCE_DIR}/cmake/wine-run.sh -DBUILD_DIR=${PROJECT_BINARY_DIR}
    -DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/namelist_fortran
    -P ${CMAKE_CURRENT_SOURCE_DIR}/support/text/fortran/FortranReadsNamelist.cmake)
