# Debian packages: the libraries, their development files, the tool. scripts/package makes them; it sets
# DEBFULLNAME and DEBEMAIL, who is named as the maintainer, and SOURCE_DATE_EPOCH, the date of the changelog.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "ZYNPersistence maintainers")
set(CPACK_PACKAGE_CONTACT "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
if(NOT TARGET zyn_python)
  message(FATAL_ERROR "The packages need pybind11-dev and python3-dev: scripts/setup --package")
endif()
set(CPACK_COMPONENTS_ALL Runtime Development Runs RunsDevelopment Archive ArchiveDevelopment Tool Python)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(library libzynpersistence${PROJECT_VERSION_MAJOR})
# Each component's description begins with its own summary.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(about "Turns the results of production tests of electronic assemblies into reports
(XML, CSV, text, HTML, PDF, JSON, STDF), lot statistics and test plans, and
reads reports, test plans and binning definitions back.
")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "persistence of production-test results - shared libraries
${about}
This package holds the shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzynpersistence-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4), qt6-5compat-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "persistence of production-test results - development files
${about}
This package holds headers and the files by which CMake and pkg-config find
the libraries.")

# zyn_library_package(COMPONENT NAME TEXT DEPENDS): the packages of a library that not everyone needs.
function(zyn_library_package component name text depends)
  string(TOUPPER ${component} upper)
  set(development ${component}Development)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME lib${name}${PROJECT_VERSION_MAJOR} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION libs PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers PARENT_SCOPE)
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${text} - shared library
${about}
This package holds the shared library." PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}DEVELOPMENT_PACKAGE_NAME lib${name}-dev PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}DEVELOPMENT_PACKAGE_SECTION libdevel PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}DEVELOPMENT_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  set(CPACK_COMPONENT_${upper}DEVELOPMENT_DEPENDS ${component} PARENT_SCOPE)
  set(CPACK_COMPONENT_${upper}DEVELOPMENT_DESCRIPTION "${text} - development files
${about}
This package holds headers and the files by which CMake and pkg-config find
the library." PARENT_SCOPE)
endfunction()
zyn_library_package(Runs zynruns "runs of production tests as plain data" "")
zyn_library_package(Archive zynarchive "archive of production-test results"
  "libzynruns-dev (= ${PROJECT_VERSION}-1), qt6-base-dev (>= 6.4)")
# Qt loads its drivers by name, so that nothing sees that they are needed.
set(CPACK_DEBIAN_ARCHIVE_PACKAGE_DEPENDS "libqt6sql6-sqlite, libqt6sql6-psql")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME zyn)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION electronics)
# A PDF report without a font is empty.
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "fonts-dejavu-core | fonts-liberation | fonts-freefont-ttf")
# Qt's own messages, for instance about broken XML, in the user's language.
set(CPACK_DEBIAN_TOOL_PACKAGE_RECOMMENDS "qt6-translations-l10n")
# Makes the user of the service.
set(CPACK_DEBIAN_TOOL_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/postinst)
set(CPACK_COMPONENT_TOOL_DEPENDS Runtime Archive)
set(CPACK_COMPONENT_TOOL_DESCRIPTION "converts, shows and checks production-test results
${about}
This package holds the command line tool zyn.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-zyn)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
# Of the interpreter that it is built for, and no other.
math(EXPR next_python "${ZYN_PYTHON_MINOR} + 1")
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
  "python3 (>= 3.${ZYN_PYTHON_MINOR}), python3 (<< 3.${next_python}), python3-numpy, fonts-dejavu-core | fonts-liberation | fonts-freefont-ttf")
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/packaging/debian/python/postinst ${PROJECT_SOURCE_DIR}/packaging/debian/python/prerm)
set(CPACK_COMPONENT_PYTHON_DEPENDS Runtime Archive)
set(CPACK_COMPONENT_PYTHON_DESCRIPTION "results of production tests in Python 3
${about}
This package holds the Python module zyn: runs of reports and lots as plain
objects, archives of them as NumPy arrays, and a recorder for test stations.")

# Changelog and copyright of each package, and which of lintian's warnings are known. Compressed without a time stamp: the same source gives the same
# package.
set(doc_dir ${PROJECT_BINARY_DIR}/packaging)
string(TIMESTAMP ZYN_PACKAGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in ${doc_dir}/changelog.Debian @ONLY)
execute_process(COMMAND gzip -9nf ${doc_dir}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  install(FILES ${doc_dir}/changelog.Debian.gz packaging/debian/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
  set(overrides "# Debian has no bug that asks for this package.\n${package}: initial-upload-closes-no-bugs *\n")
  if(component MATCHES "^(Runtime|Runs|Archive)$")
    string(APPEND overrides "# Written by CPack, beside the trigger.\n${package}: maintscript-calls-ldconfig *\n")
  endif()
  file(WRITE ${doc_dir}/overrides/${package} "${overrides}")
  install(FILES ${doc_dir}/overrides/${package}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
endforeach()

include(CPack)
