# A room is one static library made of the sources of its folder. Sources named for a platform
# (`*_posix.cpp`, `*_icu.cpp`, `*_win32.cpp`) are taken only on that platform, so that no source
# holds a test of the platform. A `main.cpp` is left to the program that the room is for.
# LEAVE_OUT names further endings of sources that this build does without.
function(quillmark_room name)
    cmake_parse_arguments(ROOM "" "" "LINKS;LEAVE_OUT" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS
        ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    if(WIN32)
        list(FILTER sources EXCLUDE REGEX "_(posix|icu)\\.cpp$")
    else()
        list(FILTER sources EXCLUDE REGEX "_win32\\.cpp$")
    endif()
    foreach(suffix IN LISTS ROOM_LEAVE_OUT)
        list(FILTER sources EXCLUDE REGEX "${suffix}\\.cpp$")
    endforeach()
    add_library(quillmark_${name} STATIC ${sources})
    set_target_properties(quillmark_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(quillmark_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(quillmark_${name} PRIVATE quillmark_flags PUBLIC ${ROOM_LINKS})
endfunction()
