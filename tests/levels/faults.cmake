# The level check itself, on source trees of one file each: a silent check would guard nothing.
cmake_minimum_required(VERSION 3.25)

function(expect outcome room include)
    file(REMOVE_RECURSE ${FOLDER})
    file(WRITE ${FOLDER}/${room}/file.cpp "#pragma once\n  # include ${include}\nint x;\n")
    execute_process(COMMAND ${CMAKE_COMMAND} -DSOURCE=${FOLDER} -DTABLE=${TABLE} -P ${CHECK}
        RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE said)
    if(outcome STREQUAL "passes" AND NOT status EQUAL 0)
        message(SEND_ERROR "${room} may include ${include}, yet: ${said}")
    elseif(outcome STREQUAL "fails" AND (status EQUAL 0 OR NOT said MATCHES "${room}/file\\.cpp: "))
        message(SEND_ERROR "${room} must not include ${include}, yet it wasn't told: ${said}")
    endif()
endfunction()

expect(passes typ "\"core/bytes.h\"")
expect(passes typ "\"typ/reader.h\"")
expect(passes ui "<QWidget>")
expect(passes paint "<QImage>")
expect(fails core "\"text/parser.h\"")            # up
expect(fails session "\"garmin/map_sets.h\"")     # sideways
expect(fails batch "\"ui/main_window.h\"")        # from one front end into the other
expect(fails text "\"../typ/reader.h\"")          # around the check
expect(fails text "\"generator.h\"")
expect(fails session "<QString>")
expect(fails views "<QtGui/QImage>")
expect(fails paint "<QtWidgets/QWidget>")
expect(fails attic "<vector>")                    # a room that the table lacks
