# The captions of resources/captions: constants for the sources, texts for the library.
#
# catalogue.list gives numbers and names; each section becomes a header "captions/<section>.h" in the build tree, which
# sources include and which is not installed. Each <language>.txt gives the texts of a language; all of them become one
# source file. A file that is put there is a further language.

set(VX_CAPTION_DIR ${CMAKE_SOURCE_DIR}/resources/captions)
set(VX_MADE_HEADERS ${CMAKE_BINARY_DIR}/generated/include)
file(GLOB VX_CAPTION_TEXTS CONFIGURE_DEPENDS ${VX_CAPTION_DIR}/*.txt)

# Made while CMake runs, so that no target has to wait for them; a header whose section did not change stays as it is.
function(vx_make_caption_headers)
    set(catalogue ${VX_CAPTION_DIR}/catalogue.list)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${catalogue})
    file(READ ${catalogue} text)
    # Neither may take part in a list of CMake's.
    string(REPLACE ";" "," text "${text}")
    string(REPLACE "[" "(" text "${text}")
    string(REPLACE "]" ")" text "${text}")
    string(REPLACE "\n" ";" lines "${text}")
    set(tab "\t")
    set(section "")
    set(last_number 0)
    set(names "")
    foreach(line IN LISTS lines)
        if(line STREQUAL "" OR line MATCHES "^#")
            continue()
        elseif(line MATCHES "^section ([a-z_]+) (Tvx_[a-z_]+) ([0-9]+) ([0-9]+) (.+)$")
            vx_finish_caption_header("${section}" "${code}")
            set(section ${CMAKE_MATCH_1})
            set(first ${CMAKE_MATCH_3})
            set(last ${CMAKE_MATCH_4})
            set(code "// Made from resources/captions/catalogue.list, not to be edited.\n#pragma once\n\n")
            string(APPEND code "/// Captions ${first} to ${last}: ${CMAKE_MATCH_5}.\nenum ${CMAKE_MATCH_2} : int\n{\n")
        elseif(line MATCHES "^([0-9]+)${tab}(c_[a-z0-9_]+)(${tab}(.+))?$")
            set(number ${CMAKE_MATCH_1})
            set(name ${CMAKE_MATCH_2})
            set(note "${CMAKE_MATCH_4}")
            if(section STREQUAL "" OR number LESS first OR number GREATER last OR NOT number GREATER last_number)
                message(FATAL_ERROR "${catalogue}: ${number} ${name} is out of its section or out of order")
            elseif(name IN_LIST names)
                message(FATAL_ERROR "${catalogue}: the name ${name} stands twice")
            endif()
            set(last_number ${number})
            list(APPEND names ${name})
            string(APPEND code "    ${name} = ${number},")
            if(NOT note STREQUAL "")
                string(APPEND code " ///< ${note}")
            endif()
            string(APPEND code "\n")
        else()
            message(FATAL_ERROR "${catalogue}: neither a section nor a caption: ${line}")
        endif()
    endforeach()
    vx_finish_caption_header("${section}" "${code}")
endfunction()

function(vx_finish_caption_header section code)
    if(NOT section STREQUAL "")
        file(CONFIGURE OUTPUT ${VX_MADE_HEADERS}/captions/${section}.h CONTENT "${code}};\n" @ONLY)
    endif()
endfunction()

# The texts, made into a source file of a target.
function(vx_embed_captions target)
    set(source ${CMAKE_BINARY_DIR}/generated/captions.cpp)
    set(script ${CMAKE_SOURCE_DIR}/cmake/embed_captions.cmake)
    add_custom_command(OUTPUT ${source}
        COMMAND ${CMAKE_COMMAND} -DOUTPUT=${source} "-DINPUTS=${VX_CAPTION_TEXTS}" -P ${script}
        DEPENDS ${VX_CAPTION_TEXTS} ${script} VERBATIM)
    target_sources(${target} PRIVATE ${source})
endfunction()

vx_make_caption_headers()
