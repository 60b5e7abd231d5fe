# Cross-built: GoogleTest from its source, the rest without what only the building system has.
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
if(NOT TARGET GTest::gtest_main)
  add_library(GTest::gtest_main ALIAS gtest_main)
  add_library(GTest::gmock ALIAS gmock)
endif()

# Headers only; a folder of its own, for beside it lie the building system's own headers.
set(jsonHeaders ${CMAKE_BINARY_DIR}/json-headers)
file(MAKE_DIRECTORY ${jsonHeaders})
file(CREATE_LINK /usr/include/nlohmann ${jsonHeaders}/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${jsonHeaders})

# Tests of the other system, of the simulated instrument's program (it has a pseudo-terminal), and against a library that there is
# no Windows package of.
set(withoutOnWindows "/unit/posix/|/unit/instrument/(session|program|options)_test|/unit/analysis/transform_test")
