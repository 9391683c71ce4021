# Warnings, sanitizers and the compiler cache, for every target of the project.

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# Nobody replaces functions of a library by the same name of another: they may be inlined, and are called
# directly.
add_compile_options(-fno-semantic-interposition -fno-plt)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_STRICT_ITERATORS)

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

# Keeps a shared library from exporting anything but the project's own names.
function(zyn_export_own_names target)
  set(map ${PROJECT_SOURCE_DIR}/cmake/ZynExports.map)
  target_link_options(${target} PRIVATE LINKER:--version-script=${map})
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
endfunction()
