# What the build needs of the machine. Each lack is one line that names the distribution's package, and the way around
# it where there is one: a newcomer's first configuration often fails here.

# Ends the configuration: says what is missing and what to install, or to do.
function(contextdata_lacks what remedy)
  message(FATAL_ERROR "contextdata needs ${what}: install ${remedy}")
endfunction()

# Makes sure of a compiler before CMake looks for one with messages of its own. Nothing to do inside a project that
# compiles C++ already.
macro(contextdata_need_compiler)
  if(NOT CMAKE_CXX_COMPILER_LOADED)
    if(CMAKE_CXX_COMPILER)
      list(GET CMAKE_CXX_COMPILER 0 contextdata_wanted_compiler)
      find_program(contextdata_compiler NAMES "${contextdata_wanted_compiler}" NO_CACHE)
      if(NOT contextdata_compiler)
        contextdata_lacks("the C++ compiler ${contextdata_wanted_compiler}, which is not there"
                          "the package g++ (or clang), or name another by CMAKE_CXX_COMPILER")
      endif()
    else()
      include(CheckLanguage)
      check_language(CXX)
      if(NOT CMAKE_CXX_COMPILER)
        contextdata_lacks("a C++ compiler" "g++ 12 or later (or name one by CMAKE_CXX_COMPILER)")
      endif()
    endif()
  endif()
endmacro()

# After the language is enabled: the compiler and its library have to know C++20. That a compiler takes the option is
# not enough, as the first ones to take it knew little of the language.
macro(contextdata_need_cxx20)
  set(contextdata_knows_cxx20 FALSE)
  if("cxx_std_20" IN_LIST CMAKE_CXX_COMPILE_FEATURES)
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_FLAGS "${CMAKE_CXX20_STANDARD_COMPILE_OPTION}")
    check_cxx_source_compiles(
      "#include <bit>
      #include <compare>
      #include <set>
      #include <span>
      struct Pair { int first = 1; int second = 2; auto operator<=>(const Pair&) const = default; };
      template <class Number> requires(sizeof(Number) > 1) constexpr Number same(Number number) { return number; }
      int main() { return std::set<int>{1}.contains(same(Pair{.second = 1}.first)) && Pair{} != Pair{} ? 1 : 0; }"
      CONTEXTDATA_COMPILER_KNOWS_CXX20)
    unset(CMAKE_REQUIRED_FLAGS)
    set(contextdata_knows_cxx20 ${CONTEXTDATA_COMPILER_KNOWS_CXX20})
  endif()
  if(NOT contextdata_knows_cxx20)
    contextdata_lacks("a compiler that knows C++20, unlike ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}"
                      "g++ 12 or later (or name one by CMAKE_CXX_COMPILER)")
  endif()
endmacro()

macro(contextdata_need_boost)
  find_package(Boost 1.74 QUIET)
  if(NOT Boost_FOUND)
    contextdata_lacks("Boost 1.74 or later" "libboost-dev (or set Boost_ROOT)")
  endif()
endmacro()

# The interpreter, its headers and NumPy, and with EMBEDDED the interpreter as a library. The live host reads memory
# layouts of one version of the interpreter, so no other is accepted.
macro(contextdata_need_python)
  set(contextdata_without_python "build without Python by -DCONTEXTDATA_PYTHON=OFF")
  # The distribution's interpreter, unless told otherwise: another may come first on PATH.
  if(NOT DEFINED Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python3_EXECUTABLE /usr/bin/python3)
  endif()
  set(contextdata_python_parts Interpreter Development.Module NumPy)
  if("${ARGN}" STREQUAL "EMBEDDED")
    list(APPEND contextdata_python_parts Development.Embed)
  endif()
  find_package(Python3 3.11...<3.12 QUIET COMPONENTS ${contextdata_python_parts})
  if(NOT Python3_Interpreter_FOUND)
    contextdata_lacks("Python 3.11" "python3 (or name one by Python3_EXECUTABLE, or ${contextdata_without_python})")
  elseif(NOT Python3_VERSION MATCHES "^3\\.11\\.")
    # Whoever names an interpreter gets it, of whichever version.
    contextdata_lacks("Python 3.11, which ${Python3_EXECUTABLE} (${Python3_VERSION}) is not"
                      "python3 (or name one by Python3_EXECUTABLE, or ${contextdata_without_python})")
  elseif(NOT Python3_Development.Module_FOUND)
    contextdata_lacks("the headers of Python 3.11" "python3-dev (or ${contextdata_without_python})")
  elseif(NOT Python3_NumPy_FOUND)
    contextdata_lacks("NumPy with its headers for ${Python3_EXECUTABLE}"
                      "python3-numpy (or ${contextdata_without_python})")
  elseif("${ARGN}" STREQUAL "EMBEDDED" AND NOT Python3_Development.Embed_FOUND)
    contextdata_lacks("Python 3.11 as a library for its tests" "python3-dev (or set CONTEXTDATA_TESTS=OFF)")
  endif()
  # Of pybind11 the headers alone are used: which Python to build for is decided here.
  set(PYBIND11_NOPYTHON ON)
  find_package(pybind11 2.10 QUIET)
  if(NOT pybind11_FOUND)
    contextdata_lacks("pybind11 2.10 or later" "pybind11-dev (or ${contextdata_without_python})")
  endif()
endmacro()

# For the tests, and for the conformance suite in a project of somebody else's. Called where the test programs are made,
# since what it finds is known there and below.
macro(contextdata_need_googletest)
  find_package(GTest 1.12 QUIET)
  if(NOT GTest_FOUND OR NOT TARGET GTest::gmock)
    contextdata_lacks("GoogleTest and GoogleMock 1.12 or later for its tests" "libgtest-dev and libgmock-dev")
  endif()
endmacro()
