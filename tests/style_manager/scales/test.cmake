vx_test_at_200_percent(${folder} val_edit.draws_samples*)
