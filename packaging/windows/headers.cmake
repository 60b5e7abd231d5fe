# korvinel_headers(TARGET FOLDER): a header-only library from the build machine's /usr/include/FOLDER. Linked into a folder
# by itself: /usr/include as a whole would bring in the build machine's system headers.
function(korvinel_headers target folder)
  if(TARGET ${target})
    return()
  endif()
  set(place ${CMAKE_BINARY_DIR}/headers/${folder})
  file(MAKE_DIRECTORY ${place})
  file(CREATE_LINK /usr/include/${folder} ${place}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE ${place})
endfunction()
