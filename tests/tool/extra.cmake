# The compiled test plug-in, alone in its directory so that --plugin-dir can load it too.
add_library(tindra_tool_test_plugin MODULE
            ${CMAKE_CURRENT_SOURCE_DIR}/support/plugins/ToolTestPlugin.cc)
target_include_directories(tindra_tool_test_plugin PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(tindra_tool_test_plugin PRIVATE tindra)
set_target_properties(tindra_tool_test_plugin PROPERTIES
  PREFIX "" OUTPUT_NAME "clitest"
  LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/tool-plugins)
add_dependencies(${target} tindra_tool_test_plugin)
target_compile_definitions(${target} PRIVATE
  TOOL_TEST_PLUGIN="$<TARGET_FILE:tindra_tool_test_plugin>"
  TOOL_TEST_PLUGIN_DIR="${CMAKE_CURRENT_BINARY_DIR}/tool-plugins")
