#pragma once

#include "platform/storage/vx_gis_prg.h"

struct gp_env_out
{
    gp_env_callbacks callbacks;
};
