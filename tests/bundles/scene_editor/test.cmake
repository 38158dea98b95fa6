# Loaded at run time, as a host does it, and never linked.
add_dependencies(${test_target} vxk_scene2d_editor_bdl)
