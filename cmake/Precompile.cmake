# A header takes several seconds to precompile, and rooms that know the same of Qt share one: that of the lowest of them.
function(precompile_headers owner)
    target_precompile_headers(${owner} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/Precompiled.h)
    foreach(target ${ARGN})
        target_precompile_headers(${target} REUSE_FROM ${owner})
    endforeach()
endfunction()
