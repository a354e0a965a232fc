# Configuring without something that is needed ends with one message, which names what to install.
#
#   cmake -D source= -D binary= -D ninja= -D compiler= -D case= -P check_message.cmake
set(options -G Ninja "-DCMAKE_CXX_COMPILER=${compiler}")
set(environment)
file(REMOVE_RECURSE "${binary}")
file(MAKE_DIRECTORY "${binary}")

if(case STREQUAL "boost")
  list(APPEND options -DCONTEXTDATA_PYTHON=OFF -DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON)
  set(expected "needs Boost 1.74 or later: install libboost-dev \\(or set Boost_ROOT\\)")
elseif(case STREQUAL "googletest")
  list(APPEND options -DCONTEXTDATA_PYTHON=OFF -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON)
  set(expected "needs GoogleTest and GoogleMock 1.12 or later for its tests: install libgtest-dev and libgmock-dev")
elseif(case STREQUAL "python")
  list(APPEND options -DCMAKE_DISABLE_FIND_PACKAGE_Python3=ON)
  set(expected "needs Python 3.11: install python3 .*-DCONTEXTDATA_PYTHON=OFF")
elseif(case STREQUAL "python_version")
  # Today's interpreter, which says that it is the next one.
  file(WRITE "${binary}/python" "#!/usr/bin/python3\nimport sys\nsys.version_info = (3, 12, 0, 'final', 0)\n"
                                "exec(sys.argv[sys.argv.index('-c') + 1])\n")
  file(CHMOD "${binary}/python" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  list(APPEND options "-DPython3_EXECUTABLE=${binary}/python")
  set(expected "needs Python 3.11, which .* \\(3.12.0\\) is not: install python3 .*-DCONTEXTDATA_PYTHON=OFF")
elseif(case STREQUAL "python_headers")
  list(APPEND options -DPython3_INCLUDE_DIR=${binary}/nowhere)
  set(expected "needs the headers of Python 3.11: install python3-dev .*-DCONTEXTDATA_PYTHON=OFF")
elseif(case STREQUAL "numpy")
  # A virtual environment has an interpreter and its headers, and no packages.
  execute_process(COMMAND /usr/bin/python3 -m venv --without-pip "${binary}/bare" COMMAND_ERROR_IS_FATAL ANY)
  list(APPEND options "-DPython3_EXECUTABLE=${binary}/bare/bin/python")
  set(expected "needs NumPy with its headers for .*: install python3-numpy .*-DCONTEXTDATA_PYTHON=OFF")
elseif(case STREQUAL "pybind11")
  list(APPEND options -DCMAKE_DISABLE_FIND_PACKAGE_pybind11=ON)
  set(expected "needs pybind11 2.10 or later: install pybind11-dev .*-DCONTEXTDATA_PYTHON=OFF")
elseif(case STREQUAL "named_compiler")
  set(options -G Ninja -DCMAKE_CXX_COMPILER=no-such-compiler)
  set(expected "needs the C\\+\\+ compiler no-such-compiler, which is not there: install the package g\\+\\+")
elseif(case STREQUAL "any_compiler")
  file(MAKE_DIRECTORY "${binary}/empty")
  set(options -G Ninja "-DCMAKE_MAKE_PROGRAM=${ninja}")
  set(environment ${CMAKE_COMMAND} -E env --unset=CXX "PATH=${binary}/empty")
  set(expected "needs a C\\+\\+ compiler: install g\\+\\+ 12 or later")
elseif(case STREQUAL "old_compiler")
  # Today's compiler, which says that it is one of many years ago.
  file(CONFIGURE OUTPUT "${binary}/old" CONTENT "#!/bin/sh\nexec g++ -U__GNUC__ -D__GNUC__=7 \"$@\"\n" @ONLY)
  file(CHMOD "${binary}/old" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  set(options -G Ninja "-DCMAKE_CXX_COMPILER=${binary}/old")
  set(expected "needs a compiler that knows C\\+\\+20, unlike GNU 7.*: install g\\+\\+ 12 or later")
elseif(case STREQUAL "young_compiler")
  # One that takes the option for C++20 and does not know the language yet.
  file(CONFIGURE OUTPUT "${binary}/young" CONTENT "#!/bin/sh\nexec g++ \"$@\" -std=c++17\n" @ONLY)
  file(CHMOD "${binary}/young" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  set(options -G Ninja "-DCMAKE_CXX_COMPILER=${binary}/young")
  set(expected "needs a compiler that knows C\\+\\+20, unlike GNU .*: install g\\+\\+ 12 or later")
else()
  message(FATAL_ERROR "there is no case \"${case}\"")
endif()

execute_process(
  COMMAND ${environment} ${CMAKE_COMMAND} -S "${source}" -B "${binary}/build" ${options}
  RESULT_VARIABLE status
  OUTPUT_VARIABLE text
  ERROR_VARIABLE text)
if(status EQUAL 0)
  message(FATAL_ERROR "configured although something is missing (${case})")
endif()
# Messages are broken into lines as the room allows.
string(REGEX REPLACE "[ \n]+" " " flat "${text}")
if(NOT flat MATCHES "contextdata ${expected}")
  message(FATAL_ERROR "no such message as \"${expected}\":\n${text}")
endif()
string(REGEX MATCHALL "CMake (Error|Warning)" complaints "${text}")
list(LENGTH complaints count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "${count} complaints instead of one:\n${text}")
endif()
