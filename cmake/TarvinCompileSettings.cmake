# An interface target with the compile settings of all our sources.
add_library(tarvin_compile_settings INTERFACE)
target_compile_features(tarvin_compile_settings INTERFACE cxx_std_20)
target_compile_options(tarvin_compile_settings INTERFACE
    -Wall -Wextra -Wpedantic
    # Apple's compiler has other warnings, which nobody has seen here.
    $<$<NOT:$<CXX_COMPILER_ID:AppleClang>>:-Werror>
    # In a unity build, a name may shadow one of another source.
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>
    -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wundef
    -fno-omit-frame-pointer
    # In a unity build, absolute paths would prevent ccache hits in other clones; paths are therefore
    # relative to the project root.
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
    # GCC 12 falsely reports overlapping copies in std::string's operator+ (GCC bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # Clang 19 warns about the inside of libstdc++'s std::stable_partition.
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
