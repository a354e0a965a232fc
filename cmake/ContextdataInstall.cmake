# What an installation holds, and how others find it: libraries, headers, the CMake package, pkg-config files, and the
# conformance suite with the host to start from. Nothing in it says where it was built or where it lies, so it may be
# moved as a whole.
#
# Components: `library` for those who run what others have built, `development` for those who build, and `python`.

include(CMakePackageConfigHelpers)

# Headers include each other by their place in the project; a folder of their own keeps these places apart from
# everybody else's. It names the version that promises compatibility, as the libraries' file names do.
set(contextdata_include_folder "${CMAKE_INSTALL_INCLUDEDIR}/contextdata-${PROJECT_VERSION_MAJOR}")
set(contextdata_package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/contextdata")
set(contextdata_pkgconfig_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
set(contextdata_share_folder "${CMAKE_INSTALL_DATADIR}/contextdata-${PROJECT_VERSION_MAJOR}")

# Installs a library with its public headers, as contextdata::<NAME>. What is of one EXPORT is found together.
function(contextdata_install_library target)
  cmake_parse_arguments(ARG "" "EXPORT;NAME" "" ${ARGN})
  if(NOT CONTEXTDATA_INSTALL)
    return()
  endif()
  set_property(TARGET ${target} PROPERTY EXPORT_NAME ${ARG_NAME})
  install(
    TARGETS ${target}
    EXPORT ${ARG_EXPORT}
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
            COMPONENT library
            NAMELINK_COMPONENT development
    FILE_SET HEADERS
             DESTINATION "${contextdata_include_folder}"
             COMPONENT development
    # For those whose CMake does not know sets of headers yet.
    INCLUDES
    DESTINATION "${contextdata_include_folder}")
endfunction()

function(contextdata_install_export export)
  install(
    EXPORT ${export}
    NAMESPACE contextdata::
    DESTINATION "${contextdata_package_folder}"
    COMPONENT development)
endfunction()

function(contextdata_install_cmake_package)
  contextdata_install_export(contextdata-libraries)
  if(CONTEXTDATA_PYTHON)
    contextdata_install_export(contextdata-python-host)
  endif()
  set(share "${contextdata_share_folder}")
  configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/contextdata-config.cmake.in" "${PROJECT_BINARY_DIR}/install/contextdata-config.cmake"
    INSTALL_DESTINATION "${contextdata_package_folder}"
    PATH_VARS share
    NO_SET_AND_CHECK_MACRO)
  # The SONAME names the major version: what was built against an older version of the same runs with a newer one.
  write_basic_package_version_file("${PROJECT_BINARY_DIR}/install/contextdata-config-version.cmake"
                                   COMPATIBILITY SameMajorVersion)
  install(
    FILES "${PROJECT_BINARY_DIR}/install/contextdata-config.cmake"
          "${PROJECT_BINARY_DIR}/install/contextdata-config-version.cmake"
    DESTINATION "${contextdata_package_folder}"
    COMPONENT development)
endfunction()

function(contextdata_install_pkgconfig)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY
             "${CMAKE_INSTALL_PREFIX}/${contextdata_pkgconfig_folder}" OUTPUT_VARIABLE prefix_from_here)
  set(names contextdata contextdata-host contextdata-memory-host)
  if(CONTEXTDATA_PYTHON)
    list(APPEND names contextdata-python-host)
  endif()
  foreach(name IN LISTS names)
    configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/install/${name}.pc" @ONLY)
    install(
      FILES "${PROJECT_BINARY_DIR}/install/${name}.pc"
      DESTINATION "${contextdata_pkgconfig_folder}"
      COMPONENT development)
  endforeach()
endfunction()

# The functions for hosts of one's own with the suite's sources, laid out as in the project, and the host to start from.
function(contextdata_install_conformance_suite)
  foreach(module IN ITEMS ContextdataConformance ContextdataRequirements ContextdataTargets)
    install(
      FILES "${PROJECT_SOURCE_DIR}/cmake/${module}.cmake"
      DESTINATION "${contextdata_share_folder}/cmake"
      COMPONENT development)
  endforeach()
  # Somebody may have built the example where it stands.
  set(sources_alone FILES_MATCHING PATTERN "*.h" PATTERN "*.cpp" PATTERN "CMakeLists.txt" PATTERN "*.lacks"
                    PATTERN "build*" EXCLUDE)
  install(
    DIRECTORY "${PROJECT_SOURCE_DIR}/tests/conformance/suite"
    DESTINATION "${contextdata_share_folder}/tests/conformance"
    COMPONENT development ${sources_alone})
  install(
    FILES "${PROJECT_SOURCE_DIR}/tests/support/temporary_folder.h"
    DESTINATION "${contextdata_share_folder}/tests/support"
    COMPONENT development)
  install(
    DIRECTORY "${PROJECT_SOURCE_DIR}/examples/template_host"
    DESTINATION "${contextdata_share_folder}/examples"
    COMPONENT development ${sources_alone})
endfunction()

# All that belongs to no single library. Called when every library is known.
function(contextdata_install_package_files)
  contextdata_install_cmake_package()
  contextdata_install_pkgconfig()
  contextdata_install_conformance_suite()
endfunction()
