# Read after project() in the campaign's build: every target has the switch, every test program says what its tests reach.
set(mutationFolder ${CMAKE_SOURCE_DIR}/tests/mutation)

function(korvinel_add_reach)
  foreach(kind unit journey recording reliability)
    if(TARGET korvinel_${kind}_tests)
      target_sources(korvinel_${kind}_tests PRIVATE ${mutationFolder}/reach.cpp)
      target_precompile_headers(korvinel_${kind}_tests PRIVATE <gtest/gtest.h> <gmock/gmock.h>)
      target_compile_options(korvinel_${kind}_tests PRIVATE -O0)
    endif()
  endforeach()
  foreach(library core headless host recording_core)
    if(TARGET korvinel_${library})
      target_precompile_headers(korvinel_${library} PRIVATE <algorithm> <array> <cmath> <deque> <fstream> <functional>
        <map> <memory> <optional> <set> <sstream> <string> <string_view> <vector>)
    endif()
  endforeach()
endfunction()

set(CMAKE_CXX_STANDARD 20)
add_library(korvinel_switch STATIC ${mutationFolder}/switch.cpp)
link_libraries(korvinel_switch)
cmake_language(DEFER CALL korvinel_add_reach)
