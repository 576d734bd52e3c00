# The one place for compiler flags: every target of the house links `warnings`.
add_library(warnings INTERFACE)
target_compile_options(warnings INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(NOT CMAKE_UNITY_BUILD) # several sources as one shadow each other's names
    target_compile_options(warnings INTERFACE -Wshadow)
endif()

option(WALLWRIGHT_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
if(WALLWRIGHT_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
