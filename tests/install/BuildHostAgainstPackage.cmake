# Installs the build tree into a scratch prefix, then configures and builds a
# small host project that finds it with find_package(drawtool CONFIG).
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix
  RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "cmake --install failed: ${result}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S ${HOST_DIR} -B ${WORK_DIR}/host-build
    -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix
  RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "configuring the host against the package failed: ${result}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/host-build RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "building the host against the package failed: ${result}")
endif()
foreach(expected bin/drawtool.dll lib/libdrawtool.dll.a lib/libdrawtool_support.a include/drawtool/DrawTool.h
                 include/drawtool/DrawToolC.h include/drawtool/DrawToolMethods.h
                 include/support/Support.h include/framework/afxwin.h)
  if(NOT EXISTS ${WORK_DIR}/prefix/${expected})
    message(FATAL_ERROR "the package lacks ${expected}")
  endif()
endforeach()
foreach(host host host_c)
  if(NOT EXISTS ${WORK_DIR}/host-build/${host}.exe)
    message(FATAL_ERROR "the host program ${host} was not built")
  endif()
endforeach()
