# The headers that are kept with the sources are those that their description gives.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME extension/binding/generated
         COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/tools/generate_binding.py --check)
