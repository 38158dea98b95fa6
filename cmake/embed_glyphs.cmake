# cmake -DOUTPUT=file.cpp "-DINPUTS=130.svg;131.svg" -P embed_glyphs.cmake
#
# Makes a source file that holds the drawings with a number for a name, so that the library carries them with it.
set(code "// Made from resources/glyphs; not to be edited.\n\n#include \"platform/basic/detail/glyph_catalogue.h\"\n\nnamespace vx::glyphs\n{\ndrawing const drawings[] = {\n")
set(count 0)
foreach(input ${INPUTS})
    get_filename_component(number ${input} NAME_WE)
    file(READ ${input} text)
    if(text MATCHES "\\)VXGLYPH\"")
        message(FATAL_ERROR "${input}: the mark )VXGLYPH\" cannot stand in a drawing")
    endif()
    string(APPEND code "    {${number}, R\"VXGLYPH(${text})VXGLYPH\"},\n")
    math(EXPR count "${count} + 1")
endforeach()
string(APPEND code "};\nint const drawing_count = ${count};\n} // namespace vx::glyphs\n")
file(WRITE ${OUTPUT} "${code}")
