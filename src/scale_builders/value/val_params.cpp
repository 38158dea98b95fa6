#include "scale_builders/value/val_params.h"

Tvx_val_params_rebuild::~Tvx_val_params_rebuild() = default;
Tvx_val_params_modify::~Tvx_val_params_modify() = default;
Tvx_val_params_rebuild_with_legend::~Tvx_val_params_rebuild_with_legend() = default;
Tvx_val_params::Tvx_val_params() = default;
Tvx_val_params::~Tvx_val_params() = default;
