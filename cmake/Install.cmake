# What `cmake --install` places: the program, and what a desktop needs to show it in its menu and to open its files.
include(GNUInstallDirs)
set(DESKTOP_ID org.wallwright.Wallwright)
set(DESKTOP_SOURCES ${CMAKE_SOURCE_DIR}/resources/desktop)
set(DESKTOP_FILES ${CMAKE_BINARY_DIR}/desktop)
set(ICONS_FOLDER ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

configure_file(${DESKTOP_SOURCES}/wallwright.1.in ${DESKTOP_FILES}/wallwright.1 @ONLY)
configure_file(${DESKTOP_SOURCES}/metainfo.xml.in ${DESKTOP_FILES}/${DESKTOP_ID}.metainfo.xml @ONLY)

# Distributions want manuals and change logs packed, without a time in them.
function(pack from to)
    add_custom_command(
        OUTPUT ${to}
        COMMAND sh -c "gzip -9nc '${from}' > '${to}'"
        DEPENDS ${from}
        VERBATIM)
endfunction()
pack(${DESKTOP_FILES}/wallwright.1 ${DESKTOP_FILES}/wallwright.1.gz)
pack(${DESKTOP_SOURCES}/changelog ${DESKTOP_FILES}/changelog.gz)

add_executable(make_icon_picture ${DESKTOP_SOURCES}/IconPicture.cpp)
target_link_libraries(make_icon_picture PRIVATE Qt6::Gui warnings)
set(ICON ${CMAKE_SOURCE_DIR}/resources/wallwright.svg)
foreach(side 48 64 128 256)
    set(picture ${DESKTOP_FILES}/${side}.png)
    add_custom_command(
        OUTPUT ${picture}
        COMMAND make_icon_picture ${ICON} ${side} ${picture}
        DEPENDS make_icon_picture ${ICON})
    list(APPEND ICON_PICTURES ${picture})
    install(FILES ${picture} DESTINATION ${ICONS_FOLDER}/${side}x${side}/apps RENAME ${DESKTOP_ID}.png)
endforeach()
add_custom_target(desktop_files ALL DEPENDS
    ${ICON_PICTURES} ${DESKTOP_FILES}/wallwright.1.gz ${DESKTOP_FILES}/changelog.gz)

install(TARGETS wallwright)
install(FILES ${ICON} DESTINATION ${ICONS_FOLDER}/scalable/apps RENAME ${DESKTOP_ID}.svg)
install(FILES ${DESKTOP_SOURCES}/project.svg
    DESTINATION ${ICONS_FOLDER}/scalable/mimetypes RENAME application-x-wallwright.svg)
install(FILES ${DESKTOP_SOURCES}/${DESKTOP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${DESKTOP_SOURCES}/mime.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME ${DESKTOP_ID}.xml)
install(FILES ${DESKTOP_FILES}/${DESKTOP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${DESKTOP_FILES}/wallwright.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${DESKTOP_SOURCES}/copyright ${DESKTOP_FILES}/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/wallwright)
