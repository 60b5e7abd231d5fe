# The tests cross-compiled: GoogleTest from source, and without the tests that need something Windows lacks.
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
if(NOT TARGET GTest::gtest_main)
  add_library(GTest::gtest_main ALIAS gtest_main)
  add_library(GTest::gmock ALIAS gmock)
endif()

include(${PROJECT_SOURCE_DIR}/packaging/windows/headers.cmake)
korvinel_headers(nlohmann_json::nlohmann_json nlohmann)

# POSIX code, the simulated instrument's program (it opens a pseudo-terminal), and a comparison with FFTW, which Debian
# does not package for Windows.
set(withoutOnWindows
  "/unit/(platform/(posix/|disk/installation_)|tools/instrument/(session|main|options)_|analysis/transform_)")
