# Tests in Python, each file one test, run by the interpreter that the package is built for.
#   contextdata_python_tests(<label> [TIMEOUT <seconds>] [SERIAL] NAMES <name>...)
# adds <label>.<name> for each file test_<name>.py of the current folder. Those of tests/python may be asked for help.
function(contextdata_python_tests label)
  cmake_parse_arguments(ARG "SERIAL" "TIMEOUT" "NAMES" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  set(environment "PYTHONPATH=${PROJECT_BINARY_DIR}/python:${PROJECT_SOURCE_DIR}/tests/python"
                  PYTHONDONTWRITEBYTECODE=1)
  if(CMAKE_CXX_FLAGS MATCHES "fsanitize=address")
    # The interpreter is not built with the sanitizer, so its runtime has to be there first.
    execute_process(
      COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
      OUTPUT_VARIABLE sanitizer_runtime
      OUTPUT_STRIP_TRAILING_WHITESPACE)
    execute_process(
      COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++.so
      OUTPUT_VARIABLE standard_library
      OUTPUT_STRIP_TRAILING_WHITESPACE)
    # Everything takes several times as long with it.
    math(EXPR ARG_TIMEOUT "${ARG_TIMEOUT} * 4")
    list(APPEND environment "LD_PRELOAD=${sanitizer_runtime} ${standard_library}"
         "ASAN_OPTIONS=detect_leaks=0:quarantine_size_mb=1:thread_local_quarantine_size_kb=64")
  endif()
  foreach(name IN LISTS ARG_NAMES)
    add_test(NAME ${label}.${name} COMMAND ${Python3_EXECUTABLE} -m pytest -q -rs -p no:cacheprovider
                                           "${CMAKE_CURRENT_SOURCE_DIR}/test_${name}.py")
    set_tests_properties(${label}.${name} PROPERTIES LABELS ${label} TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT
                                                     "${environment}")
    if(ARG_SERIAL)
      set_tests_properties(${label}.${name} PROPERTIES RUN_SERIAL TRUE)
    endif()
  endforeach()
endfunction()
