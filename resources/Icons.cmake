# Copies the icons out of Debian's package and embeds them in a target: under :/icons/ to be coloured when they are
# drawn, under :/tinted/ in their colour. All are of one weight, drawn on 16 x 16.
set(WALLWRIGHT_ICONS
    arrow-clockwise arrow-counterclockwise arrows-move
    bezier2
    chevron-double-right clipboard
    dash-lg display
    exclamation-triangle-fill eye eye-slash
    file-earmark-plus files folder2-open
    grid grid-3x3
    image
    pencil plus-lg
    question-circle
    save scissors search
    three-dots trash
    x-lg
    zoom-in zoom-out)

find_path(ICON_FOLDER eye.svg PATHS /usr/share/bootstrap-icons/svg NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(NOT ICON_FOLDER)
    message(FATAL_ERROR "The icons are missing. Run script/bootstrap, which installs the package bootstrap-icons.")
endif()

# What a style sheet shows cannot be coloured there: icon and the name of its colour in Theme.h.
set(WALLWRIGHT_TINTED_ICONS check-lg:ground dash-lg:text chevron-down:text)

# "#1b1d20" for "ground".
function(theme_colour name result)
    set(header ${CMAKE_SOURCE_DIR}/windows/Theme.h)
    file(READ ${header} text)
    if(NOT text MATCHES "${name}{0x(..), 0x(..), 0x(..)}")
        message(FATAL_ERROR "Theme.h has no colour called ${name}.")
    endif()
    set(${result} "#${CMAKE_MATCH_1}${CMAKE_MATCH_2}${CMAKE_MATCH_3}" PARENT_SCOPE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
endfunction()

function(embed_icons target)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
    foreach(name ${WALLWRIGHT_ICONS})
        configure_file(${ICON_FOLDER}/${name}.svg ${folder}/${name}.svg COPYONLY)
        list(APPEND icons ${folder}/${name}.svg)
    endforeach()
    foreach(pair ${WALLWRIGHT_TINTED_ICONS})
        string(REPLACE ":" ";" pair ${pair})
        list(GET pair 0 name)
        list(GET pair 1 colour)
        theme_colour(${colour} value)
        file(READ ${ICON_FOLDER}/${name}.svg drawing)
        string(REPLACE "currentColor" "${value}" drawing "${drawing}")
        file(CONFIGURE OUTPUT ${folder}/${name}-${colour}.svg CONTENT "${drawing}" @ONLY)
        list(APPEND tinted_icons ${folder}/${name}-${colour}.svg)
    endforeach()
    if(WIN32)
        embed_pictures(${target} ${folder})
        return()
    endif()
    qt_add_resources(${target} icons PREFIX /icons BASE ${folder} FILES ${icons})
    qt_add_resources(${target} tinted_icons PREFIX /tinted BASE ${folder} FILES ${tinted_icons})
endfunction()

# Of what a person sees at the usual scales, each pixel is drawn for its size; other sizes come from the next larger one.
set(WALLWRIGHT_ICON_SIDES 12 14 16 18 20 21 24 25 28 30 32 36 40 42 48 60 64 80 128)

# In the place of drawings, where Qt has no reader for them: "eye-24.png" for "eye.svg". What a style sheet shows keeps
# its name, whatever is in it: "check-lg-ground.svg" and "check-lg-ground@2x.svg".
function(embed_pictures target folder)
    foreach(name ${WALLWRIGHT_ICONS})
        foreach(side ${WALLWRIGHT_ICON_SIDES})
            draw_icon(${folder}/${name}.svg ${side} ${folder}/${name}-${side}.png)
            list(APPEND pictures ${folder}/${name}-${side}.png)
        endforeach()
    endforeach()
    foreach(pair ${WALLWRIGHT_TINTED_ICONS})
        string(REPLACE ":" "-" name ${pair})
        draw_icon(${folder}/${name}.svg 16 ${folder}/tinted/${name}.svg)
        draw_icon(${folder}/${name}.svg 32 ${folder}/tinted/${name}@2x.svg)
        list(APPEND tinted_pictures ${folder}/tinted/${name}.svg ${folder}/tinted/${name}@2x.svg)
    endforeach()
    qt_add_resources(${target} icons PREFIX /icons BASE ${folder} FILES ${pictures})
    qt_add_resources(${target} tinted_icons PREFIX /tinted BASE ${folder}/tinted FILES ${tinted_pictures})
endfunction()

# The program's own, in its place among what the window looks like.
function(embed_program_icon target)
    set(folder ${CMAKE_SOURCE_DIR}/resources)
    if(WIN32)
        set(drawing ${folder}/wallwright.svg)
        set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons/program)
        draw_icon(${drawing} 256 ${folder}/wallwright.svg)
    endif()
    qt_add_resources(${target} program_icon PREFIX /windows BASE ${folder} FILES ${folder}/wallwright.svg)
endfunction()
