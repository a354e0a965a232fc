# What an installation does not give, it refuses when a consumer is configured, and says why.
function(expect_refusal reason)
  execute_process(
    COMMAND
      ${CMAKE_COMMAND} --fresh -S "${source}" -B "${binary}" -G Ninja "-DCMAKE_CXX_COMPILER=${compiler}"
      "-DPython3_EXECUTABLE=${interpreter}" "-DCMAKE_PREFIX_PATH=${installed}" ${ARGN}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE text
    ERROR_VARIABLE text)
  if(status EQUAL 0)
    message(SEND_ERROR "accepted: ${ARGN}")
  endif()
  # Messages are broken into lines as the room allows.
  string(REGEX REPLACE "[ \n]+" " " text "${text}")
  if(NOT text MATCHES "${reason}")
    message(SEND_ERROR "refused for another reason than \"${reason}\": ${ARGN}\n${text}")
  endif()
endfunction()

expect_refusal("compatible with requested version \"1.0\"" -DCONTEXTDATA_VERSION=1.0)
expect_refusal("compatible with requested version \"0.99\"" -DCONTEXTDATA_VERSION=0.99)
expect_refusal("there is no component unheard_of" -DCONTEXTDATA_COMPONENTS=unheard_of)
if(python)
  expect_refusal("CONTEXTDATA_HOST" -DCONTEXTDATA_COMPONENTS=python_host
                 "-DCONTEXTDATA_HOSTS=contextdata::memory_host$<SEMICOLON>contextdata::python_host")
else()
  expect_refusal("built without Python, so it has no python_host" -DCONTEXTDATA_COMPONENTS=python_host)
endif()
