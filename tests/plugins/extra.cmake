# Plug-in libraries that the shared-library tests load; their paths reach the tests as
# TEST_<NAME>_PATH.
set(test_plugin_sources ${CMAKE_CURRENT_LIST_DIR}/../support/testplugins)
foreach(plugin AnswerPlugin RefusingPlugin StdThrowingPlugin ForeignThrowingPlugin NoEntryPlugin)
  set(source ${plugin})
  if(NOT plugin STREQUAL "NoEntryPlugin")
    set(source AnswerPlugin)
  endif()
  add_library(tindra_test_${plugin} MODULE ${test_plugin_sources}/${source}.cc)
  # Loaded into the test program, which carries the library itself: linking libtindra.so too
  # would put a second copy of it in the process.
  target_include_directories(tindra_test_${plugin} PRIVATE ${PROJECT_SOURCE_DIR}/include)
  set_target_properties(tindra_test_${plugin} PROPERTIES PREFIX "" OUTPUT_NAME ${plugin}
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/testplugins)
  add_dependencies(${target} tindra_test_${plugin})
  string(TOUPPER ${plugin} upper)
  target_compile_definitions(${target} PRIVATE TEST_${upper}_PATH="$<TARGET_FILE:tindra_test_${plugin}>")
endforeach()
target_compile_definitions(tindra_test_RefusingPlugin PRIVATE REFUSE_REGISTRATION)
target_compile_definitions(tindra_test_StdThrowingPlugin PRIVATE THROW_STANDARD)
target_compile_definitions(tindra_test_ForeignThrowingPlugin PRIVATE THROW_FOREIGN)
