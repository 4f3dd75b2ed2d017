# The version is set once, by project(); the release notes and the Debian change log must name
# the same one, or a package would go out under the wrong number.
function(tindra_check_release_version file pattern)
  if(NOT EXISTS ${PROJECT_SOURCE_DIR}/${file})
    return()
  endif()
  file(STRINGS ${PROJECT_SOURCE_DIR}/${file} lines REGEX "${pattern}" LIMIT_COUNT 1)
  string(REGEX REPLACE ".*${pattern}.*" "\\1" found "${lines}")
  if(NOT found STREQUAL PROJECT_VERSION)
    message(FATAL_ERROR "${file} names version '${found}' in its latest entry, but project() "
                        "says ${PROJECT_VERSION}: make them agree.")
  endif()
endfunction()

tindra_check_release_version(debian/changelog "^[a-z0-9.+-]+ \\(([0-9.]+)(-[^)]*)?\\)")
tindra_check_release_version(CHANGELOG.md "^## \\[?([0-9.]+)")
