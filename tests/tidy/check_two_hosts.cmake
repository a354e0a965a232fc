# Linking one host generates; linking two is an error that names the property.
function(configure hosts result output)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${source} -B ${binary} -G Ninja -DCONTEXTDATA_SOURCE=${project} "-DHOSTS=${hosts}"
    RESULT_VARIABLE status
    OUTPUT_VARIABLE text
    ERROR_VARIABLE text)
  set(${result} ${status} PARENT_SCOPE)
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

configure("memory_host" status text)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "one host alone is refused:\n${text}")
endif()
configure("memory_host;python_host" status text)
if(status EQUAL 0)
  message(FATAL_ERROR "two hosts in one program are accepted")
endif()
if(NOT text MATCHES "CONTEXTDATA_HOST")
  message(FATAL_ERROR "two hosts are refused for some other reason:\n${text}")
endif()
message(STATUS "one host a process")
