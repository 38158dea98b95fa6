# Paint events are counted at the widgets themselves.
target_link_libraries(${test_target} PRIVATE Qt6::Core Qt6::Gui Qt6::Widgets)
vx_test_at_200_percent(${folder} layer_edits.*:cpx_dialog.cancel*)
