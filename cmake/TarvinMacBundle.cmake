# Makes the window program a macOS application bundle: property list, icon, and the helper programs
# beside the executable, where it looks first.
function(tarvin_make_mac_bundle program)
    set(pictures ${PROJECT_SOURCE_DIR}/resources/icons/hicolor)
    set(iconset ${CMAKE_CURRENT_BINARY_DIR}/${program}.iconset)
    set(icon ${CMAKE_CURRENT_BINARY_DIR}/${program}.icns)
    set(inputs "")
    foreach(size IN ITEMS 16 32 128 256 512)
        math(EXPR doubled "2 * ${size}")
        set(picture ${pictures}/${size}x${size}/apps/${program}.png)
        configure_file(${picture} ${iconset}/icon_${size}x${size}.png COPYONLY)
        list(APPEND inputs ${picture})
        set(picture ${pictures}/${doubled}x${doubled}/apps/${program}.png)
        if(EXISTS ${picture})
            configure_file(${picture} ${iconset}/icon_${size}x${size}@2x.png COPYONLY)
            list(APPEND inputs ${picture})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES inputs)
    add_custom_command(
        OUTPUT ${icon}
        COMMAND iconutil --convert icns --output ${icon} ${iconset}
        DEPENDS ${inputs}
        VERBATIM)
    set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    target_sources(${program} PRIVATE ${icon})

    set_target_properties(${program} PROPERTIES
        MACOSX_BUNDLE ON
        MACOSX_BUNDLE_INFO_PLIST ${PROJECT_SOURCE_DIR}/packaging/macos/Info.plist.in
        MACOSX_BUNDLE_BUNDLE_NAME "Tarvin Duplicate File Remover"
        MACOSX_BUNDLE_GUI_IDENTIFIER tarvinsoftware.Tarvin-Duplicate-File-Remover
        MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
        MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
        MACOSX_BUNDLE_ICON_FILE ${program}.icns
        MACOSX_BUNDLE_COPYRIGHT "© Tarvin Software. All rights reserved.")
    foreach(helper IN LISTS ARGN)
        add_custom_command(TARGET ${program} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy_if_different
                $<TARGET_FILE:${helper}> $<TARGET_FILE_DIR:${program}>
            VERBATIM)
    endforeach()
endfunction()
