# What people run is built so that a fault in it ends the program instead of serving somebody: hardening-check shows it.
if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
endif()
if(WIN32) # whose linker moves programs about and keeps data from being run unless it is told otherwise
    add_compile_options(-fstack-protector-strong)
    add_link_options(-fstack-protector-strong)
    return()
endif()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
add_compile_options(
    -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    -Wformat -Werror=format-security)
add_link_options(-Wl,-z,relro -Wl,-z,now)
