# Installs the build into a folder of its own, builds the consumer project against it and runs its programs.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\nended with ${result}:\n${output}")
    endif()
    message(STATUS "${output}")
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${prefix} ${WORK_DIR}/build)
set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=${SANITIZE}")
endif()
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# The program of the README is built as it stands there.
file(READ ${README} readme)
string(FIND "${readme}" "```cpp" first)
string(SUBSTRING "${readme}" ${first} -1 program)
string(REGEX REPLACE "^```cpp" "" program "${program}")
string(FIND "${program}" "```" last)
string(SUBSTRING "${program}" 0 ${last} program)
file(WRITE ${WORK_DIR}/readme_host.cpp "${program}")

# Every header that is installed, in one program that sees nothing but the installation.
set(include_dir ${prefix}/include/vxk_lr2d_edit_form)
file(GLOB_RECURSE headers RELATIVE ${include_dir} ${include_dir}/*.h)
list(LENGTH headers header_count)
if(header_count LESS 100)
    message(FATAL_ERROR "Only ${header_count} headers are installed.")
endif()
set(all_headers "")
foreach(header ${headers})
    if(header MATCHES "_priv\\.h$|/detail/")
        message(FATAL_ERROR "${header} is no public header and is installed.")
    endif()
    string(APPEND all_headers "#include \"${header}\"\n")
endforeach()
file(WRITE ${WORK_DIR}/all_headers.cpp "${all_headers}\nint main()\n{\n    return 0;\n}\n")

run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G Ninja -DCMAKE_PREFIX_PATH=${prefix}
    -DALL_HEADERS=${WORK_DIR}/all_headers.cpp -DREADME_HOST=${WORK_DIR}/readme_host.cpp
    "-DCMAKE_C_FLAGS=${flags}" "-DCMAKE_CXX_FLAGS=${flags}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)

file(GLOB library ${prefix}/lib*/libvxk_lr2d_edit_form.so ${prefix}/lib/*/libvxk_lr2d_edit_form.so)
run(${WORK_DIR}/build/by_name ${library} ${DATA_DIR}/nc.shp)
run(${WORK_DIR}/build/linked ${DATA_DIR}/nc.shp)
run(${WORK_DIR}/build/styles)
run(${WORK_DIR}/build/all_headers)

find_program(pkg_config pkg-config)
if(pkg_config)
    file(GLOB_RECURSE pc ${prefix}/*.pc)
    get_filename_component(pc_dir ${pc} DIRECTORY)
    run(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${pc_dir} ${pkg_config} --cflags --libs vxk_lr2d_edit_form)
endif()
