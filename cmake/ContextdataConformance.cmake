# Tests a host against the declarations of the services that it provides.

include("${CMAKE_CURRENT_LIST_DIR}/ContextdataRequirements.cmake")

# Builds the conformance suite for one host, and adds it as one test that prints what the host lacks.
#
#   NAME      the program and the test
#   HOST      the target that defines the host services
#   PROVIDER  sources that define `conformance::makeProvider` (tests/conformance/suite/provider.h)
#   LIBRARIES what these sources need besides
#   LACKS     a file that lists what the host may lack, one capability a line; without it, anything may be lacking
#
#     contextdata_add_host_conformance(NAME my_host_conformance HOST my_host PROVIDER my_provider.cpp LACKS my.lacks)
function(contextdata_add_host_conformance)
  cmake_parse_arguments(ARG "" "NAME;HOST;LACKS" "PROVIDER;LIBRARIES" ${ARGN})
  foreach(needed IN ITEMS NAME HOST PROVIDER)
    if(NOT ARG_${needed})
      message(FATAL_ERROR "contextdata_add_host_conformance: ${needed} is missing")
    endif()
  endforeach()
  if(NOT TARGET contextdata_conformance_suite)
    # By the place of this file: whoever calls is elsewhere.
    add_subdirectory("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../tests/conformance/suite"
                     "${CMAKE_BINARY_DIR}/contextdata_conformance_suite")
  endif()
  # What the suite has found is known in its own folder alone.
  contextdata_need_googletest()
  add_executable(${ARG_NAME} ${ARG_PROVIDER})
  target_link_libraries(${ARG_NAME} PRIVATE contextdata_conformance_suite ${ARG_HOST} ${ARG_LIBRARIES})
  set(arguments)
  if(ARG_LACKS)
    cmake_path(ABSOLUTE_PATH ARG_LACKS BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
    set(arguments "--lacks=${ARG_LACKS}")
  endif()
  add_test(NAME ${ARG_NAME} COMMAND ${ARG_NAME} ${arguments})
  set_tests_properties(${ARG_NAME} PROPERTIES LABELS conformance)
endfunction()
