# How every target of the project is compiled, and the rule that a process holds one host.

# Compiles a target as the house does: C++20, no warning passes, nothing visible unless it is marked. Nobody replaces what
# a library of ours exports, so that calls inside it may go straight.
function(contextdata_house_rules target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion
                                           $<$<BOOL:${CONTEXTDATA_WARNINGS_ARE_ERRORS}>:-Werror>
                                           -fno-semantic-interposition)
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               POSITION_INDEPENDENT_CODE ON)
endfunction()

# What is installed does not say where it was built: assertions, the standard library's among them, name their file as it
# lies in the project.
function(contextdata_hides_its_place target)
  target_compile_options(${target} PRIVATE "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
endfunction()

# Declares a library to be the host of that name. Two different hosts in the link closure of one target are an error
# when CMake generates; without it, the first one linked would silently serve both.
function(contextdata_declare_host target name)
  set_property(TARGET ${target} PROPERTY INTERFACE_CONTEXTDATA_HOST ${name})
  set_property(
    TARGET ${target}
    APPEND
    PROPERTY COMPATIBLE_INTERFACE_STRING CONTEXTDATA_HOST)
endfunction()
