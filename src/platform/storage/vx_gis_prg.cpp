#include "platform/storage/vx_gis_prg.h"

#include "platform/base/text_codec.h"
#include "platform/storage/detail/avl_legend.h"
#include "platform/storage/detail/gp_env.h"
#include "platform/winapi/file.h"

#include <string>

struct gp_avl_to_stlmgr_params
{
    std::string file;
    void *mngr = nullptr;
};

namespace {
gp_env_out *g_env = nullptr;

/// The calls of the current environment; those that are not set do nothing.
class environment
{
public:
    environment()
    {
        if (g_env)
            f_calls = g_env->callbacks;
        if (f_calls.wait_start)
            f_calls.wait_start(f_calls.object);
    }
    ~environment()
    {
        if (f_calls.wait_finish)
            f_calls.wait_finish(f_calls.object);
    }
    environment(environment const &) = delete;
    environment &operator=(environment const &) = delete;

    [[nodiscard]] bool is_stopped() const { return f_calls.stopped && f_calls.stopped(f_calls.object); }
    void debug(char const *text) const
    {
        if (f_calls.debug_message)
            f_calls.debug_message(f_calls.object, text);
    }

private:
    gp_env_callbacks f_calls;
};

char const *reason(int result)
{
    switch (result) {
    case c_gp_no_file:
        return "legend: the file cannot be read";
    case c_gp_no_legend:
        return "legend: the file is damaged or no legend";
    case c_gp_wrong_type:
        return "legend: its symbols do not fit the objects of the manager";
    case c_gp_stopped:
        return "legend: stopped";
    default:
        return "legend: read";
    }
}

int execute(gp_avl_to_stlmgr_params const &params, environment const &env)
{
    if (!params.mngr)
        return c_gp_wrong_type;
    vx::fault fault;
    auto const text = vx_file_read(vx::text::to_wide(params.file), fault, vx::avl::c_longest_file);
    if (!text)
        return c_gp_no_file;
    if (env.is_stopped())
        return c_gp_stopped;
    return vx::avl::read_legend(*text, params.mngr);
}
} // namespace

gp_avl_to_stlmgr_params *gp_avl_to_stlmgr_params_create()
{
    return new gp_avl_to_stlmgr_params;
}

void gp_avl_to_stlmgr_params_destroy(gp_avl_to_stlmgr_params *params)
{
    delete params;
}

void gp_avl_to_stlmgr_params_set_filename(gp_avl_to_stlmgr_params *params, char const *file)
{
    if (params)
        params->file = file ? file : "";
}

void gp_avl_to_stlmgr_params_set_stl_mngr(gp_avl_to_stlmgr_params *params, void *mngr)
{
    if (params)
        params->mngr = mngr;
}

int gp_avl_to_stlmngr_execute(gp_avl_to_stlmgr_params const *params)
{
    environment const env;
    int const result = params ? execute(*params, env) : c_gp_wrong_type;
    env.debug(reason(result));
    return result;
}

gp_env_out *gp_env_out_create()
{
    return new gp_env_out;
}

void gp_env_out_destroy(gp_env_out *out)
{
    delete out;
}

void gp_env_out_set(gp_env_out *out, gp_env_callbacks const *callbacks)
{
    if (out)
        out->callbacks = callbacks ? *callbacks : gp_env_callbacks();
}

gp_env_out *gp_env_main_get_env()
{
    return g_env;
}

void gp_env_main_set_env(gp_env_out *out)
{
    g_env = out;
}
