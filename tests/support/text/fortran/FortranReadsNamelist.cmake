# A Fortran program reads the namelist file the library writes under Wine.
#   cmake -DFORTRAN=gfortran -DWRITER=<namelist_writer.exe> -DREADER_SOURCE=<.f90>
#         -DWINE_RUN=<wine-run.sh> -DBUILD_DIR=<build> -DWORK_DIR=<dir> -P FortranReadsNamelist.cmake
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(COMMAND ${FORTRAN} -o ${WORK_DIR}/namelist_reader ${READER_SOURCE}
  RESULT_VARIABLE built)
if(NOT built EQUAL 0)
  message(FATAL_ERROR "the Fortran reader did not build")
endif()
# The writer runs in the work directory and names the file relatively, so no
# Unix path has to be turned into a Windows one.
execute_process(COMMAND ${CMAKE_COMMAND} -E env DRAWTOOL_BUILD_DIR=${BUILD_DIR} ${WINE_RUN} ${WRITER} input.nml
  WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE written)
if(NOT written EQUAL 0 OR NOT EXISTS ${WORK_DIR}/input.nml)
  message(FATAL_ERROR "the namelist writer failed (${written})")
endif()
execute_process(COMMAND ${WORK_DIR}/namelist_reader ${WORK_DIR}/input.nml RESULT_VARIABLE read)
if(NOT read EQUAL 0)
  file(READ ${WORK_DIR}/input.nml text)
  message(FATAL_ERROR "the Fortran reader found differences in:\n${text}")
endif()
