# Installs the named files of the calling folder in the data folder of the window program, and copies
# them to the same relative path in the build folder, so that the program runs without installation.
function(tarvin_share_files)
    if(APPLE)  # they are part of the bundle
        list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE files)
        set_source_files_properties(${files} TARGET_DIRECTORY tarvin-duplicate-file-remover
            PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
        target_sources(tarvin-duplicate-file-remover PRIVATE ${files})
        return()
    endif()
    foreach(file IN LISTS ARGN)
        cmake_path(GET file FILENAME name)
        # A change of the file reruns CMake, which copies it again.
        configure_file(${file}
            ${PROJECT_BINARY_DIR}/src/share/tarvin-duplicate-file-remover/${name} COPYONLY)
    endforeach()
    install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_DATADIR}/tarvin-duplicate-file-remover)
endfunction()
