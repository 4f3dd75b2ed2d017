# tindra_add_plugin(<target> <source>...)
#
# A compiled ostrel plug-in: a loadable module named <target>.so (the tool loads only files
# ending in .so), linked against libtindra, exporting only its registration entry point.
# Install it yourself, usually into ${TINDRA_PLUGIN_DIR}.
set_property(GLOBAL PROPERTY TINDRA_PLUGIN_EXPORT_MAP "${CMAKE_CURRENT_LIST_DIR}/TindraPlugin.map")

function(tindra_add_plugin target)
  if(NOT ARGN)
    message(FATAL_ERROR "tindra_add_plugin(${target}): no source files given")
  endif()
  get_property(exportMap GLOBAL PROPERTY TINDRA_PLUGIN_EXPORT_MAP)
  add_library(${target} MODULE ${ARGN})
  target_link_libraries(${target} PRIVATE Tindra::tindra)
  target_compile_features(${target} PRIVATE cxx_std_17)
  set_target_properties(${target} PROPERTIES
    PREFIX ""
    SUFFIX ".so"
    LINK_DEPENDS "${exportMap}")
  # Unresolved symbols are found at build time rather than when ostrel loads the plug-in.
  target_link_options(${target} PRIVATE "LINKER:--version-script=${exportMap}"
                                        "LINKER:--no-undefined")
endfunction()
