# Programs that run while the program is built, for the machine that builds: with its own Qt, which reads SVG.
find_program(HOST_COMPILER c++ REQUIRED)
execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=PKG_CONFIG_LIBDIR pkg-config --cflags --libs Qt6Gui
    OUTPUT_VARIABLE HOST_QT OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(HOST_QT)

# Makes NAME from a source; NAME_PROGRAM is its path.
function(add_host_program name source)
    set(program ${CMAKE_BINARY_DIR}/host/${name})
    add_custom_command(
        OUTPUT ${program}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/host
        COMMAND ${HOST_COMPILER} -std=c++20 -fPIC -O1 -I${CMAKE_SOURCE_DIR} ${source} -o ${program} ${HOST_QT}
        DEPENDS ${source}
        VERBATIM)
    set(${name}_PROGRAM ${program} PARENT_SCOPE)
endfunction()
add_host_program(make_icon_picture ${CMAKE_SOURCE_DIR}/resources/desktop/IconPicture.cpp)
add_custom_target(icon_drawer DEPENDS ${make_icon_picture_PROGRAM})

# Draws an SVG `side` pixels wide and high.
function(draw_icon drawing side picture)
    add_custom_command(
        OUTPUT ${picture}
        COMMAND ${make_icon_picture_PROGRAM} ${drawing} ${side} ${picture}
        DEPENDS icon_drawer ${drawing}
        VERBATIM)
endfunction()
