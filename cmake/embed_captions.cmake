# cmake -DOUTPUT=file.cpp "-DINPUTS=en.txt;ru.txt" -P embed_captions.cmake
#
# Makes a source file that holds the caption catalogues, so that the library carries its texts with it.
set(code "// Made from resources/captions; not to be edited.\n\n#include \"platform/basic/detail/caption_catalogue.h\"\n\nnamespace vx::captions\n{\n")
set(entries "")
foreach(input ${INPUTS})
    get_filename_component(language ${input} NAME_WE)
    file(READ ${input} text)
    if(text MATCHES "\\)VXCAPTION\"")
        message(FATAL_ERROR "${input}: the mark )VXCAPTION\" cannot stand in a caption")
    endif()
    string(APPEND code "static constexpr char text_${language}[] =\n    R\"VXCAPTION(${text})VXCAPTION\";\n")
    string(APPEND entries "    {\"${language}\", text_${language}},\n")
endforeach()
string(APPEND code "catalogue_text const catalogue_texts[] = {\n${entries}};\nint const catalogue_count = sizeof catalogue_texts / sizeof *catalogue_texts;\n} // namespace vx::captions\n")
file(WRITE ${OUTPUT} "${code}")
