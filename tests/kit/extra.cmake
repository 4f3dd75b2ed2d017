# The kit tests install the build and build plug-ins against it as an outside author does.
find_program(TINDRA_PKG_CONFIG_PROGRAM pkg-config REQUIRED)
find_program(TINDRA_BASH_PROGRAM bash REQUIRED)
find_program(TINDRA_ZSH_PROGRAM zsh)  # a test dependency; its test is skipped without it

# Installing needs every target of the default build outside the tests built first.
function(tindra_kit_default_targets directory)
  get_property(found DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(candidate IN LISTS found)
    get_target_property(excluded ${candidate} EXCLUDE_FROM_ALL)
    if(NOT excluded)
      add_dependencies(${target} ${candidate})
    endif()
  endforeach()
  get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
  list(REMOVE_ITEM subdirectories ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(subdirectory IN LISTS subdirectories)
    tindra_kit_default_targets(${subdirectory})
  endforeach()
endfunction()
tindra_kit_default_targets(${PROJECT_SOURCE_DIR})
target_link_libraries(${target} PRIVATE ${CMAKE_DL_LIBS})
target_compile_definitions(${target} PRIVATE
  TINDRA_BUILD_DIR="${PROJECT_BINARY_DIR}"
  TINDRA_CMAKE_COMMAND="${CMAKE_COMMAND}"
  TINDRA_CMAKE_GENERATOR="${CMAKE_GENERATOR}"
  TINDRA_MAKE_PROGRAM="${CMAKE_MAKE_PROGRAM}"
  TINDRA_CXX_COMPILER="${CMAKE_CXX_COMPILER}"
  TINDRA_PKG_CONFIG="${TINDRA_PKG_CONFIG_PROGRAM}"
  TINDRA_READELF="${CMAKE_READELF}"
  TINDRA_BASH="${TINDRA_BASH_PROGRAM}"
  TINDRA_ZSH="$<IF:$<BOOL:${TINDRA_ZSH_PROGRAM}>,${TINDRA_ZSH_PROGRAM},>"
  TINDRA_LIBXML2_INCLUDE="${LIBXML2_INCLUDE_DIR}"
  TINDRA_LIBXML2_LIBRARY="${LIBXML2_LIBRARY}"
  TINDRA_INSTALL_INCLUDEDIR="${CMAKE_INSTALL_INCLUDEDIR}"
  TINDRA_INSTALL_LIBDIR="${CMAKE_INSTALL_LIBDIR}"
  TINDRA_INSTALL_BINDIR="${CMAKE_INSTALL_BINDIR}"
  TINDRA_PLUGIN_DIR="${TINDRA_PLUGIN_DIR}"
  TINDRA_VERSION="${PROJECT_VERSION}"
  TINDRA_SOVERSION="${PROJECT_VERSION_MAJOR}")

# What the shared library exports, against the public headers.
add_test(NAME ExportedSymbols.MatchThePublicHeaders
         COMMAND sh ${CMAKE_CURRENT_SOURCE_DIR}/kit/exported_symbols.sh $<TARGET_FILE:tindra>
                 ${PROJECT_SOURCE_DIR}/include ${CMAKE_NM})
set_tests_properties(ExportedSymbols.MatchThePublicHeaders PROPERTIES LABELS tool)
