# The one place for compiler flags: every target of the house links `warnings`.
add_library(warnings INTERFACE)
target_compile_options(warnings INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
                                          -Wconversion -Wold-style-cast -Werror)
# What several sources that are compiled as one would be told: that one shadows another's names, and that something
# visible has a base that is not, since it seems to stand in a header.
if(CMAKE_UNITY_BUILD)
    target_compile_options(warnings INTERFACE -Wno-subobject-linkage)
else()
    target_compile_options(warnings INTERFACE -Wshadow)
endif()

set(WALLWRIGHT_SANITIZE "" CACHE STRING "Sanitizers to build with: \"address,undefined\" or \"thread\"")
if(WALLWRIGHT_SANITIZE)
    add_compile_options(-fsanitize=${WALLWRIGHT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${WALLWRIGHT_SANITIZE})
endif()
