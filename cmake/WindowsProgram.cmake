# The program as Windows wants it: with its icons, its version and what it can do there in it, and as a second file that
# writes into terminals, where a program with windows has no say.
set(WINDOWS_SOURCES ${CMAKE_SOURCE_DIR}/resources/windows)
set(WINDOWS_FILES ${CMAKE_BINARY_DIR}/windows-files)

foreach(side 16 24 32 48 64 256)
    draw_icon(${CMAKE_SOURCE_DIR}/resources/wallwright.svg ${side} ${WINDOWS_FILES}/program-${side}.png)
    draw_icon(${CMAKE_SOURCE_DIR}/resources/desktop/project.svg ${side} ${WINDOWS_FILES}/project-${side}.png)
    list(APPEND program_pictures ${WINDOWS_FILES}/program-${side}.png)
    list(APPEND project_pictures ${WINDOWS_FILES}/project-${side}.png)
endforeach()
foreach(icon program project)
    add_custom_command(
        OUTPUT ${WINDOWS_FILES}/${icon}.ico
        COMMAND convert ${${icon}_pictures} ${WINDOWS_FILES}/${icon}.ico
        DEPENDS ${${icon}_pictures}
        VERBATIM)
endforeach()

configure_file(${WINDOWS_SOURCES}/wallwright.rc.in ${WINDOWS_FILES}/wallwright.rc @ONLY)
configure_file(${WINDOWS_SOURCES}/wallwright.manifest ${WINDOWS_FILES}/wallwright.manifest COPYONLY)
set_source_files_properties(${WINDOWS_FILES}/wallwright.rc PROPERTIES
    OBJECT_DEPENDS "${WINDOWS_FILES}/program.ico;${WINDOWS_FILES}/project.ico;${WINDOWS_FILES}/wallwright.manifest")
target_sources(wallwright PRIVATE ${WINDOWS_FILES}/wallwright.rc)
enable_language(RC)
set_target_properties(wallwright PROPERTIES WIN32_EXECUTABLE ON qt_no_entrypoint ON) # its own main() will do
target_link_libraries(wallwright PRIVATE dwmapi)
qt_import_plugins(wallwright INCLUDE Qt6::QOffscreenIntegrationPlugin) # by QT_QPA_PLATFORM alone; commands have "windows", too

# The same program to be called from a terminal, which finds this one first when somebody types "wallwright".
add_custom_command(
    TARGET wallwright POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --subsystem console $<TARGET_FILE:wallwright> $<TARGET_FILE_DIR:wallwright>/wallwright.com
    VERBATIM)
