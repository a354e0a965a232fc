# The distribution's packages: `cpack -G DEB` in the build folder writes one for each component. They are meant for an
# installation below /usr, so configure with -DCMAKE_INSTALL_PREFIX=/usr; `scripts/package.sh` does all of it.

set(CONTEXTDATA_PACKAGE_CONTACT
    "The contextdata developers <contextdata@localhost>"
    CACHE STRING "Who answers for packages that are built here")

set(CPACK_PACKAGE_NAME contextdata)
set(CPACK_PACKAGE_VENDOR contextdata)
set(CPACK_PACKAGE_CONTACT "${CONTEXTDATA_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
# Places below the prefix follow it (the folders of libraries and of Python packages), so it is no choice of CPack's.
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development)
if(CONTEXTDATA_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where a library of one package finds those of another while neither is installed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/contextdata"
                                                "${PROJECT_BINARY_DIR}/hosts/python")

set(library_package "libcontextdata${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME "${library_package}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/library/triggers")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
    "The library, which answers what may follow what has been typed, with the hosts in memory and in CPython.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libcontextdata-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION}), libboost-dev (>= 1.74)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "python3-dev, libgtest-dev, libgmock-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers, CMake package and pkg-config files, and the conformance suite with a host to start from.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-contextdata)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
# The live host reads memory layouts of one version of the interpreter.
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION}), python3 (>= 3.11), python3 (<< 3.12), python3-numpy")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "ipython3, python3-ipykernel, python3-pandas")
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/python/postinst"
                                              "${PROJECT_SOURCE_DIR}/cmake/debian/python/prerm")
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
    "The Python package: completion from what is alive, without running its code, also in IPython and Jupyter.")

include(CPack)
