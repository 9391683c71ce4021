# What is installed, and how other projects find it. Components:
#   Runtime      the shared libraries, and nothing that another version of them would have under the same name
#   Development  headers, package files for CMake and pkg-config
#   Runs, RunsDevelopment, Archive, ArchiveDevelopment  the same of libraries that not everyone needs
#   Tool         zyn with its data: schemas, media folder, the service that watches a folder
#   Python       the Python module, by python/CMakeLists.txt
include(CMakePackageConfigHelpers)


# Paths of the pkg-config files, relative to their own folder, so that an installed tree can be moved.
set(pc_dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH ZYN_PREFIX_FROM_PC ${pc_dir} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" ZYN_PREFIX_FROM_PC ${ZYN_PREFIX_FROM_PC})
file(RELATIVE_PATH ZYN_PC_LIBDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH ZYN_PC_INCLUDEDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})

# zyn_install_package(PACKAGE EXPORTED_NAME=TARGET... [COMPONENT NAME]): the shared libraries of a package and the
# files by which CMake and pkg-config find them; in components Runtime and Development or NAME and NAMEDevelopment.
function(zyn_install_package package)
  cmake_parse_arguments(arg "" COMPONENT "" ${ARGN})
  set(runtime Runtime)
  if(arg_COMPONENT)
    set(runtime ${arg_COMPONENT})
  endif()
  set(development ${arg_COMPONENT}Development)
  set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${package})
  foreach(pair ${arg_UNPARSED_ARGUMENTS})
    string(REPLACE "=" ";" pair ${pair})
    list(GET pair 0 name)
    list(GET pair 1 target)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    zyn_search_libraries(${target} "$ORIGIN")
    install(TARGETS ${target} EXPORT ${package}Targets
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${runtime} NAMELINK_COMPONENT ${development})
  endforeach()
  install(EXPORT ${package}Targets NAMESPACE ZYN:: DESTINATION ${config_dir} COMPONENT ${development})

  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/${package}Config.cmake.in
    ${PROJECT_BINARY_DIR}/${package}Config.cmake INSTALL_DESTINATION ${config_dir})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
  configure_file(cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${package}Config.cmake ${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake
    DESTINATION ${config_dir} COMPONENT ${development})
  install(FILES ${PROJECT_BINARY_DIR}/${package}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${development})
endfunction()

if(NOT ZYN_USE_EXTERNAL_MODEL)
  zyn_install_package(ZYNCommon "" Common=ZYNCommon Ini=ZYNIni)
  install(DIRECTORY model/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)
endif()
zyn_install_package(ZYNPersistence "" Persistence=ZYNPersistence)
install(DIRECTORY include/ZYNPersistence ${ZYN_GENERATED_INCLUDE_DIR}/ZYNPersistence
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)

if(NOT ZYN_USE_EXTERNAL_MODEL)
  # Headers are included by their folder: "runs/Run.h".
  zyn_install_package(ZYNRuns Runs=ZYNRuns COMPONENT Runs)
  install(FILES runs/ReportRuns.h runs/Run.h runs/RunBuilder.h runs/RunsGlobal.h runs/StdfRuns.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZYNRuns/runs COMPONENT RunsDevelopment)
  zyn_install_package(ZYNArchive Archive=ZYNArchive COMPONENT Archive)
  install(FILES archive/Archive.h archive/ArchiveGlobal.h archive/ArchiveInfo.h archive/ArchiveRuns.h
    archive/Questions.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZYNArchive/archive COMPONENT ArchiveDevelopment)

  zyn_search_libraries(zyn "$ORIGIN/${ZYN_LIB_FROM_BIN}")
  install(TARGETS zyn RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Tool)
  set(manual ${PROJECT_SOURCE_DIR}/tool/share/zyn.1)
  if(ZYN_PACKAGE)
    execute_process(COMMAND gzip -9nc ${manual} OUTPUT_FILE ${PROJECT_BINARY_DIR}/zyn.1.gz
      COMMAND_ERROR_IS_FATAL ANY)
    set(manual ${PROJECT_BINARY_DIR}/zyn.1.gz)
  endif()
  install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tool)
  install(FILES tool/share/zyn.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zyn
    COMPONENT Tool)
  install(FILES tool/share/zyn.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT Tool)
  install(FILES tool/share/_zyn DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT Tool)
  # A hot folder as a service. systemd looks below lib, whatever the other libraries' folder is called.
  configure_file(tool/share/systemd/zyn-watch@.service.in ${PROJECT_BINARY_DIR}/zyn-watch@.service @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/zyn-watch@.service DESTINATION lib/systemd/system COMPONENT Tool)
  install(FILES tool/share/systemd/zyn.sysusers.conf DESTINATION lib/sysusers.d RENAME zyn.conf COMPONENT Tool)
  install(FILES tool/share/systemd/watch.env archive/sql/postgresql-asking.sql
    DESTINATION ${ZYN_DATA_DIR} COMPONENT Tool)
  install(DIRECTORY schema/ DESTINATION ${ZYN_DATA_DIR}/schema COMPONENT Tool
    FILES_MATCHING PATTERN "*.rng" PATTERN "*.json")
  # Empty: for the logo of the site, ReportLogo.png or ReportLogo.jpg.
  install(DIRECTORY DESTINATION ${ZYN_DATA_DIR}/media COMPONENT Tool)
endif()
