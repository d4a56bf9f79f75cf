# Installs the named files of the calling folder where the program with the window looks for files of
# its own, and keeps copies at the same place seen from the program that was built, so that they are
# found where nothing is installed.
function(tarvin_share_files)
    if(APPLE)  # where they are part of the program's bundle
        list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE files)
        set_source_files_properties(${files} TARGET_DIRECTORY tarvin-duplicate-file-remover
            PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
        target_sources(tarvin-duplicate-file-remover PRIVATE ${files})
        return()
    endif()
    foreach(file IN LISTS ARGN)
        cmake_path(GET file FILENAME name)
        # A change of the file makes the build configure itself, and so the copy follows.
        configure_file(${file}
            ${PROJECT_BINARY_DIR}/src/share/tarvin-duplicate-file-remover/${name} COPYONLY)
    endforeach()
    install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_DATADIR}/tarvin-duplicate-file-remover)
endfunction()
