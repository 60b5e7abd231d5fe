# Cross-built: GoogleTest from its source, the rest without what only the building system has.
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
if(NOT TARGET GTest::gtest_main)
  add_library(GTest::gtest_main ALIAS gtest_main)
  add_library(GTest::gmock ALIAS gmock)
endif()

include(${PROJECT_SOURCE_DIR}/packaging/windows/headers.cmake)
korvinel_headers(nlohmann_json::nlohmann_json nlohmann)

# Tests of the other system, of the simulated instrument's program (it has a pseudo-terminal), and against a library that
# there is no Windows package of.
set(withoutOnWindows
  "/unit/(platform/(posix/|disk/installation_)|tools/instrument/(session|main|options)_|analysis/transform_)")
