#pragma once

#include "platform/base/export.h"

#include <vector>

struct gp_env_out;
struct Ivx_progress;

/// For its lifetime the environment to which the work of `vx_gis_prg.h` reports: messages, the wait cursor
/// and progress are the program's. The first progress that is started is the one that the user stops.
class VX_API Tvx_vx2gp_env
{
public:
    Tvx_vx2gp_env();
    Tvx_vx2gp_env(Tvx_vx2gp_env const &) = delete;
    Tvx_vx2gp_env &operator=(Tvx_vx2gp_env const &) = delete;
    /// Puts the former environment back.
    ~Tvx_vx2gp_env();

private:
    struct callbacks;

    gp_env_out *f_out;
    gp_env_out *f_former;
    std::vector<Ivx_progress *> f_progress; ///< those that run, by number
    int f_waits = 0;
    int f_cursor = 0; ///< the one before the first wait
    bool f_debug = false;
};
