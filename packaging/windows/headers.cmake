# korvinel_headers(TARGET FOLDER): a library of headers alone, which are the same on every system, out of the building system's
# /usr/include. A folder of its own, for beside it lie the building system's own headers.
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
