# Flags of every target of ours. Targets link `tallyfold_options` privately, so that nothing leaks
# into code that is not ours.
add_library(tallyfold_options INTERFACE)

target_compile_options(tallyfold_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Wold-style-cast -Woverloaded-virtual -Wextra-semi -Wcast-qual -Wformat=2)

if(TALLYFOLD_WARNINGS_AS_ERRORS)
  target_compile_options(tallyfold_options INTERFACE -Werror)
endif()

if(TALLYFOLD_SANITIZE)
  target_compile_options(tallyfold_options INTERFACE
    -fsanitize=${TALLYFOLD_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tallyfold_options INTERFACE
    -fsanitize=${TALLYFOLD_SANITIZE} -fno-sanitize-recover=all)
else()
  # Under the sanitizers' added branches, and where whole containers of the standard library and the
  # toolkit are inlined, this warning sees null where there is none.
  target_compile_options(tallyfold_options INTERFACE
    $<$<NOT:$<CONFIG:Release>>:-Wnull-dereference>)
endif()

if(CMAKE_UNITY_BUILD)
  # Files compiled together see each other's constants; the dev preset warns of the real ones.
  target_compile_options(tallyfold_options INTERFACE -Wno-shadow)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Once optimised, it sees overlap in `"text" + string` where there is none.
  target_compile_options(tallyfold_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # A time stamp in a precompiled header makes every build of it another one to ccache.
  target_compile_options(tallyfold_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()

# The standard headers that nearly every file uses, compiled once. That every file names those it
# uses is seen to by scripts/check_includes; headers of ours are in no precompiled one, so that a
# missing one is found by the dev preset.
set(TALLYFOLD_STANDARD_HEADERS
  <algorithm> <charconv> <chrono> <cstddef> <cstdint> <functional> <map> <memory> <optional> <string>
  <string_view> <unordered_map> <unordered_set> <utility> <variant> <vector>)

# tallyfold_precompile(<target> [SHARED]): those that are SHARED use what the first of them compiled,
# which takes the same compile options in all of them.
function(tallyfold_precompile target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "SHARED" "" "")
  if(NOT TALLYFOLD_PRECOMPILE)
    return()
  endif()
  get_property(first GLOBAL PROPERTY tallyfold_precompiled)
  if(arg_SHARED AND first)
    target_precompile_headers(${target} REUSE_FROM ${first})
    return()
  endif()
  target_precompile_headers(${target} PRIVATE ${TALLYFOLD_STANDARD_HEADERS})
  if(arg_SHARED)
    set_property(GLOBAL PROPERTY tallyfold_precompiled ${target})
  endif()
endfunction()
