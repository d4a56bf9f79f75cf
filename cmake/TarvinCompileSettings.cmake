# One interface target carries what every file of ours is compiled with.
add_library(tarvin_compile_settings INTERFACE)
target_compile_features(tarvin_compile_settings INTERFACE cxx_std_20)
target_compile_options(tarvin_compile_settings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    # Of sources compiled as one, what hides a name of another is no fault.
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>
    -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wundef
    -fno-omit-frame-pointer
    # Of sources compiled as one, every path would keep the compiler's cache from serving a clone in
    # another folder; so they are told from the root of the project.
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
    # GCC 12 sees overlapping copies in std::string's operator+ where there are none (its bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # Clang 19 complains of what std::stable_partition of GCC's library calls inside.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
target_compile_definitions(tarvin_compile_settings INTERFACE
    _FILE_OFFSET_BITS=64
    $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(TARVIN_SANITIZE)
    target_compile_options(tarvin_compile_settings INTERFACE
        -fsanitize=${TARVIN_SANITIZE} -fno-sanitize-recover=all)
    target_link_options(tarvin_compile_settings INTERFACE -fsanitize=${TARVIN_SANITIZE})
    target_compile_definitions(tarvin_compile_settings INTERFACE TARVIN_SANITIZED=1)
endif()

if(TARVIN_COVERAGE)
    target_compile_options(tarvin_compile_settings INTERFACE --coverage -O0)
    target_link_options(tarvin_compile_settings INTERFACE --coverage)
endif()
