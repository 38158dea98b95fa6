# The header of the plain interface in a C compiler.
add_test(NAME exports/plain_c COMMAND ${CMAKE_C_COMPILER} -std=c11 -Wall -Wextra -Wpedantic -Werror -fsyntax-only
         -I${CMAKE_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/plain_c.c)
vx_test_at_200_percent(${folder} edit_form.opens_in_its_pages*)
