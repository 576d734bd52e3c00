# Toolchain: programs for 64-bit Windows, made by Debian's cross compiler. The libraries are those of script/windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(WINDOWS_TARGET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${WINDOWS_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${WINDOWS_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${WINDOWS_TARGET}-windres)

# Everything is in the program: a folder to unpack, and no library of another program's to be taken for one of ours.
# Stacks are as large as on Linux, where the depth of what is read was measured. The same sources give the same bytes:
# the time of linking is not written down.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--stack,8388608 -Wl,--no-insert-timestamp")

set(WINDOWS_LIBRARIES ${CMAKE_CURRENT_LIST_DIR}/../build/windows/libraries CACHE PATH "Where script/windows puts them")
get_filename_component(WINDOWS_LIBRARIES ${WINDOWS_LIBRARIES} ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${WINDOWS_LIBRARIES} /usr/${WINDOWS_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Of the machine that builds, nothing but its programs, Qt's among them.
set(QT_HOST_PATH /usr CACHE PATH "")
if(NOT QT_HOST_PATH_CMAKE_DIR)
    execute_process(COMMAND qmake6 -query QT_HOST_LIBS OUTPUT_VARIABLE host OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(QT_HOST_PATH_CMAKE_DIR ${host}/cmake CACHE PATH "")
endif()
set(ENV{PKG_CONFIG_LIBDIR} ${WINDOWS_LIBRARIES}/lib/pkgconfig)
