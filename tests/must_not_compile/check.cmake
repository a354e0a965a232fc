# Compiles a source as it stands, which must succeed, and with its misuse, which must fail for the reason that the source
# itself names in a line "// misuse: <regular expression>".
function(compile result output)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${compiler} -std=c++20 -fsyntax-only -fno-diagnostics-color ${ARGN} ${includes} ${source}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE text
    ERROR_VARIABLE text)
  set(${result} ${status} PARENT_SCOPE)
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

file(STRINGS ${source} reason REGEX "^// misuse: ")
list(LENGTH reason reasons)
if(NOT reasons EQUAL 1)
  message(FATAL_ERROR "${source} does not say once why its misuse must fail")
endif()
string(REGEX REPLACE "^// misuse: " "" reason "${reason}")

file(STRINGS ${source} switch REGEX "^#ifdef MISUSE$")
if(NOT switch)
  message(FATAL_ERROR "${source} holds no misuse")
endif()

compile(status text)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the right use is refused:\n${text}")
endif()

compile(status text -DMISUSE)
if(status EQUAL 0)
  message(FATAL_ERROR "the misuse is accepted")
endif()
if(NOT text MATCHES "error: [^\n]*${reason}")
  message(FATAL_ERROR "the misuse is refused for some other reason than '${reason}':\n${text}")
endif()
string(REGEX MATCHALL " error: " errors "${text}")
list(LENGTH errors count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "the misuse is refused for more than one reason:\n${text}")
endif()
message(STATUS "refused, as it should be")
