# The version of the project, for the programs: whoever links `tallyfold_version` includes
# "platform/version.h".
configure_file(${PROJECT_SOURCE_DIR}/src/platform/version.h.in
  ${PROJECT_BINARY_DIR}/generated/platform/version.h @ONLY)
add_library(tallyfold_version INTERFACE)
target_include_directories(tallyfold_version INTERFACE ${PROJECT_BINARY_DIR}/generated)
