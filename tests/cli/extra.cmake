# The compiled test plug-in, alone in its directory so that --plugin-dir can load it too.
add_library(tindra_cli_test_plugin MODULE
            ${CMAKE_CURRENT_SOURCE_DIR}/support/plugins/CliTestPlugin.cc)
target_include_directories(tindra_cli_test_plugin PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(tindra_cli_test_plugin PRIVATE tindra)
set_target_properties(tindra_cli_test_plugin PROPERTIES
  PREFIX "" OUTPUT_NAME "clitest"
  LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/cli-plugins)
add_dependencies(${target} tindra_cli_test_plugin)
target_compile_definitions(${target} PRIVATE
  CLI_TEST_PLUGIN="$<TARGET_FILE:tindra_cli_test_plugin>"
  CLI_TEST_PLUGIN_DIR="${CMAKE_CURRENT_BINARY_DIR}/cli-plugins")
