# Makes the three ICC files and embeds them in a target, under :/colour-profiles/. Qt knows these colour spaces, so that
# no profile lies in the sources as a blob.
if(CMAKE_CROSSCOMPILING)
    add_host_program(make_colour_profiles ${CMAKE_CURRENT_LIST_DIR}/ColourProfiles.cpp)
else()
    add_executable(make_colour_profiles ${CMAKE_CURRENT_LIST_DIR}/ColourProfiles.cpp)
    target_link_libraries(make_colour_profiles PRIVATE Qt6::Gui warnings)
    set(make_colour_profiles_PROGRAM make_colour_profiles)
endif()

function(embed_colour_profiles target)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/colour-profiles)
    set(profiles ${folder}/GenericRGB ${folder}/sRGB ${folder}/AdobeRGB1998)
    add_custom_command(
        OUTPUT ${profiles}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${make_colour_profiles_PROGRAM} ${folder}
        DEPENDS ${make_colour_profiles_PROGRAM}
        COMMENT "Making the colour profiles")
    qt_add_resources(${target} colour_profiles PREFIX /colour-profiles BASE ${folder} FILES ${profiles})
endfunction()
