# Installed programs find libtindra and their plug-ins relative to their own place, so one
# build installs into any prefix (/usr, /usr/local, ~/.local) and works there unchanged.

# tindra_install_program(<target> <destination relative to the prefix>)
function(tindra_install_program target destination)
  set(full ${CMAKE_INSTALL_PREFIX}/${destination})
  file(RELATIVE_PATH toLibrary ${full} ${CMAKE_INSTALL_FULL_LIBDIR})
  file(RELATIVE_PATH toPrefix ${full} ${CMAKE_INSTALL_PREFIX})
  if(toPrefix STREQUAL "")
    set(toPrefix ".")
  endif()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${toLibrary}")
  target_compile_definitions(${target} PRIVATE
    TINDRA_PREFIX_FROM_PROGRAM="${toPrefix}"
    TINDRA_PLUGIN_DIR="${TINDRA_PLUGIN_DIR}"
    TINDRA_STANDARD_PLUGIN_DIR="${TINDRA_STANDARD_PLUGIN_DIR}")
  install(TARGETS ${target} RUNTIME DESTINATION ${destination})
endfunction()
