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
