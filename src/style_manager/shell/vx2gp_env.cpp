#include "style_manager/shell/vx2gp_env.h"

#include "platform/base/unicode_string.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/storage/vx_gis_prg.h"
#include "platform/toolkit/core/screen.h"

#include <string>

struct Tvx_vx2gp_env::callbacks
{
    static Tvx_vx2gp_env &of(void *object) { return *static_cast<Tvx_vx2gp_env *>(object); }

    static void message(void *, char const *text) { vx_show_message(text); }
    static void error(void *, char const *text) { vx_show_error(text); }
    static void set_debug_flag(void *object, bool on) { of(object).f_debug = on; }
    static void debug_message(void *object, char const *text)
    {
        if (of(object).f_debug)
            vx_show_message((std::string("DEBUG: ") + (text ? text : "")).c_str());
    }
    static void wait_start(void *object)
    {
        Tvx_vx2gp_env &env = of(object);
        if (env.f_waits++ > 0)
            return;
        env.f_cursor = Screen->GetCursor();
        Screen->SetCursor(crHourGlass);
    }
    static void wait_finish(void *object)
    {
        Tvx_vx2gp_env &env = of(object);
        if (env.f_waits > 0 && --env.f_waits == 0)
            Screen->SetCursor(env.f_cursor);
    }
    static int progress_start(void *object, char const *caption)
    {
        auto &all = of(object).f_progress;
        all.push_back(vx_progress_start(UnicodeString(caption).c_str()));
        return static_cast<int>(all.size()) - 1;
    }
    static Ivx_progress *progress_of(void *object, int number)
    {
        auto const &all = of(object).f_progress;
        return number >= 0 && number < static_cast<int>(all.size()) ? all[static_cast<std::size_t>(number)]
                                                                    : nullptr;
    }
    static void progress(void *object, int number, int percent)
    {
        vx_progress_set(progress_of(object, number), percent);
    }
    static void progress_finish(void *object, int number)
    {
        Ivx_progress *const ended = progress_of(object, number);
        if (!ended)
            return;
        vx_progress_finish(ended);
        // What was begun later has ended with it. The next one of an empty list is the main one again.
        of(object).f_progress.resize(static_cast<std::size_t>(number));
    }
    static bool stopped(void *object) { return vx_progress_is_stopped(progress_of(object, 0)); }
};

Tvx_vx2gp_env::Tvx_vx2gp_env() : f_out(gp_env_out_create()), f_former(gp_env_main_get_env())
{
    gp_env_callbacks const table{this,
                                 &callbacks::message,
                                 &callbacks::error,
                                 &callbacks::set_debug_flag,
                                 &callbacks::debug_message,
                                 &callbacks::wait_start,
                                 &callbacks::wait_finish,
                                 &callbacks::progress_start,
                                 &callbacks::progress,
                                 &callbacks::progress_finish,
                                 &callbacks::stopped};
    gp_env_out_set(f_out, &table);
    gp_env_main_set_env(f_out);
}

Tvx_vx2gp_env::~Tvx_vx2gp_env()
{
    gp_env_main_set_env(f_former);
    gp_env_out_destroy(f_out);
    if (!f_progress.empty())
        callbacks::progress_finish(this, 0);
    if (f_waits > 0)
        Screen->SetCursor(f_cursor);
}
