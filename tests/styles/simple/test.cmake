# Paint events are counted at the widgets themselves.
target_link_libraries(${test_target} PRIVATE Qt6::Core Qt6::Gui Qt6::Widgets)
# The header of the plain interface in a C compiler.
add_test(NAME exports/style_dialog_plain_c COMMAND ${CMAKE_C_COMPILER} -std=c11 -Wall -Wextra -Wpedantic -Werror
         -fsyntax-only -I${CMAKE_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/plain_c.c)
