# Precompiles the headers that nearly every source includes. The native debug build does not, so that a
# missing include is found there.

target_precompile_headers(kebu_common PRIVATE
  <algorithm> <cstdint> <functional> <map> <memory> <optional> <string> <string_view> <utility>
  <variant> <vector>)

function(precompile_below folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(sources ${target} SOURCES)
    if(sources MATCHES "\\.cpp" AND NOT target STREQUAL kebu_common)
      target_precompile_headers(${target} REUSE_FROM kebu_common)
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(inner IN LISTS folders)
    precompile_below(${inner})
  endforeach()
endfunction()
precompile_below(${PROJECT_SOURCE_DIR})
