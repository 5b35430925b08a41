# Flags that every target of the project is built with.
add_library(quillmark_flags INTERFACE)
target_compile_options(quillmark_flags INTERFACE
    -Wall -Wextra -Wconversion -Wsign-conversion -Werror)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(quillmark_flags INTERFACE -Wno-unknown-warning-option)
endif()

if(WIN32)
    target_compile_definitions(quillmark_flags INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN UNICODE)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in std::string where there are none (its bug 105651).
    target_compile_options(quillmark_flags INTERFACE -Wno-restrict)
endif()

if(QUILLMARK_SANITIZE)
    target_compile_options(quillmark_flags INTERFACE
        -fsanitize=${QUILLMARK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quillmark_flags INTERFACE -fsanitize=${QUILLMARK_SANITIZE})
endif()

if(QUILLMARK_BUILD_FUZZ)
    target_compile_options(quillmark_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Precompiled headers carry time stamps, which ccache has to be told to overlook.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()
