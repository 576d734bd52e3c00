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

find_path(ICON_FOLDER eye.svg PATHS /usr/share/bootstrap-icons/svg NO_DEFAULT_PATH)
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
    qt_add_resources(${target} icons PREFIX /icons BASE ${folder} FILES ${icons})
    qt_add_resources(${target} tinted_icons PREFIX /tinted BASE ${folder} FILES ${tinted_icons})
endfunction()
