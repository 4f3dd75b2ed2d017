# Plug-in libraries that the shared-library tests load, as name:source:definition; their paths
# reach the tests as TEST_<NAME>_PATH.
foreach(plugin AnswerPlugin:AnswerPlugin: RefusingPlugin:AnswerPlugin:REFUSE_REGISTRATION
        StdThrowingPlugin:AnswerPlugin:THROW_STANDARD
        ForeignThrowingPlugin:AnswerPlugin:THROW_FOREIGN NoEntryPlugin:NoEntryPlugin:)
  string(REPLACE ":" ";" fields ${plugin})
  list(GET fields 0 name)
  list(GET fields 1 source)
  list(SUBLIST fields 2 -1 definitions)
  add_library(tindra_test_${name} MODULE ${CMAKE_CURRENT_LIST_DIR}/../support/testplugins/${source}.cc)
  # Loaded into the test program, which carries the library itself: linking libtindra.so too
  # would put a second copy of it in the process.
  target_include_directories(tindra_test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/include)
  target_compile_definitions(tindra_test_${name} PRIVATE ${definitions})
  set_target_properties(tindra_test_${name} PROPERTIES PREFIX "" OUTPUT_NAME ${name}
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/testplugins)
  add_dependencies(${target} tindra_test_${name})
  string(TOUPPER ${name} upper)
  target_compile_definitions(${target} PRIVATE TEST_${upper}_PATH="$<TARGET_FILE:tindra_test_${name}>")
endforeach()
