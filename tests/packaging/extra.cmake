# The packaging tests install the build under private prefixes and drive the installed tool
# and its shell completions.
find_program(TINDRA_BASH_PROGRAM bash REQUIRED)
find_program(TINDRA_ZSH_PROGRAM zsh)  # a test dependency; its test is skipped without it
find_program(TINDRA_READELF_PROGRAM readelf REQUIRED)
add_dependencies(${target} ostrel ostrel-complete resource tindra_manual_pages)
target_compile_definitions(${target} PRIVATE
  TINDRA_BUILD_DIR="${PROJECT_BINARY_DIR}"
  TINDRA_CMAKE_COMMAND="${CMAKE_COMMAND}"
  TINDRA_INSTALL_LIBDIR="${CMAKE_INSTALL_LIBDIR}"
  TINDRA_PLUGIN_DIR="${TINDRA_PLUGIN_DIR}"
  TINDRA_BASH="${TINDRA_BASH_PROGRAM}"
  TINDRA_ZSH="$<IF:$<BOOL:${TINDRA_ZSH_PROGRAM}>,${TINDRA_ZSH_PROGRAM},>"
  TINDRA_READELF="${TINDRA_READELF_PROGRAM}")
