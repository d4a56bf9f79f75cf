# Cross-compiles for macOS with the Clang of Zig (https://ziglang.org), which has the headers and the
# symbols of macOS's C, C++ and Objective-C libraries. Required: TARVIN_ZIG, the path of the program `zig`,
# and CMAKE_SYSTEM_PROCESSOR, arm64 or x86_64. Used by scripts/try-macos.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARVIN_ZIG CMAKE_SYSTEM_PROCESSOR)

set(processor ${CMAKE_SYSTEM_PROCESSOR})
if(processor STREQUAL "arm64")
    set(processor aarch64)  # LLVM's name
endif()
# The oldest macOS that has all system calls: 11.
set(target ${processor}-macos.11.0)
set(CMAKE_C_COMPILER ${TARVIN_ZIG} cc -target ${target})
set(CMAKE_CXX_COMPILER ${TARVIN_ZIG} c++ -target ${target})

# Zig knows the target and the system's folders; there is no Xcode to ask.
set(CMAKE_OSX_SYSROOT "")
set(CMAKE_OSX_ARCHITECTURES "")
set(CMAKE_OSX_DEPLOYMENT_TARGET "")
foreach(language IN ITEMS C CXX)
    set(CMAKE_${language}_ARCHIVE_CREATE "${TARVIN_ZIG} ar --format=darwin qcs <TARGET> <OBJECTS>")
    set(CMAKE_${language}_ARCHIVE_APPEND "${TARVIN_ZIG} ar --format=darwin qs <TARGET> <OBJECTS>")
    set(CMAKE_${language}_ARCHIVE_FINISH "")
endforeach()
set(CMAKE_INSTALL_NAME_TOOL "/bin/false")  # required, but for shared libraries only

# Only what was built for the target; programs are those of this machine.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
