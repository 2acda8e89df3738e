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
  # Under the sanitizers' added branches this warning sees null where there is none.
  target_compile_options(tallyfold_options INTERFACE -Wnull-dereference)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Once optimised, it sees overlap in `"text" + string` where there is none.
  target_compile_options(tallyfold_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # A time stamp in a precompiled header makes every build of it another one to ccache.
  target_compile_options(tallyfold_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()

# tallyfold_precompile(<target>): in presets that ask for it, the standard headers nearly every file
# uses are compiled once. The dev preset does without, so that a missing include is found there.
function(tallyfold_precompile target)
  if(TALLYFOLD_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE
      <algorithm> <charconv> <functional> <map> <memory> <optional> <string> <string_view>
      <unordered_map> <utility> <variant> <vector>)
  endif()
endfunction()
