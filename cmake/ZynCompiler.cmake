# Warnings, sanitizers and the compiler cache, for every target of the project.

# They are errors where the presets say so: not for a user, whose compiler may warn of more.
option(ZYN_WARNINGS_AS_ERRORS "A warning ends the build" OFF)
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${ZYN_WARNINGS_AS_ERRORS}>:-Werror>)
# Nobody replaces functions of a library by the same name of another: they may be inlined, and are called
# directly.
add_compile_options(-fno-semantic-interposition -fno-plt)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_STRICT_ITERATORS)

# As hard as Debian's packages: what comes from a file must not take over the stack or the jump tables.
set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
if(NOT ZYN_SANITIZE)
  add_compile_options(-fstack-protector-strong $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)
endif()
add_link_options(LINKER:-z,relro LINKER:-z,now)

if(ZYN_SANITIZE)
  add_compile_options(-fsanitize=${ZYN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ZYN_SANITIZE})
endif()
if(ZYN_BUILD_FUZZERS)
  # The library's own code is what the fuzzers are led by. A container's index is checked by the container:
  # the sanitizers do not see one that stays inside the memory that it has in reserve.
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_compile_definitions(QT_FORCE_ASSERTS)
endif()

# A library depends on what it uses, not on all that its Qt modules bring along.
add_link_options(LINKER:--as-needed)

find_program(ZYN_CCACHE ccache)
if(ZYN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ZYN_CCACHE})
endif()

# A part of the persistence library: an object library, so that the tests reach the hidden classes.
# Headers of other parts are included by their folder: "export/IExportBuilder.h".
function(zyn_add_part name)
  add_library(${name} OBJECT ${ARGN})
  target_compile_definitions(${name} PRIVATE ZYNPERSISTENCE_BUILD)
  # A site's export/ModelAdapter.h is found before the project's own.
  target_include_directories(${name} PUBLIC ${ZYN_MODEL_ADAPTER_DIR} ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
  target_link_libraries(${name} PUBLIC Qt6::Core ZYN::Common ZYN::Ini)
endfunction()

# What is installed finds its libraries by the same path in the build folder, where they lie as they will lie
# after the installation. (A path of the build's own would be filled up with colons to the length of the other,
# and each of them means the current folder.)
file(RELATIVE_PATH ZYN_LIB_FROM_BIN ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
get_filename_component(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tool/${ZYN_LIB_FROM_BIN} ABSOLUTE)
function(zyn_search_libraries target from_target)
  set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "${from_target}")
endfunction()

# Keeps a shared library from exporting anything but the project's own names.
function(zyn_export_own_names target)
  set(map ${PROJECT_SOURCE_DIR}/cmake/ZynExports.map)
  target_link_options(${target} PRIVATE LINKER:--version-script=${map})
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
endfunction()
