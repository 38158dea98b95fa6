// A layer page plug-in that throws, from an initialiser (STARTS) or from every entry, or whose initialisers
// end the process in another way.
#include "extension/plugin/vxk_plugin.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>

VXK_PLUGIN_MODULE

#ifdef STARTS
namespace {
struct starter
{
    starter()
    {
        if (STARTS == 0)
            throw std::runtime_error("no start");
        if (STARTS == 1)
            std::exit(0);
        if (STARTS == 2)
            std::raise(SIGSEGV);
    }
} const g_starter;
} // namespace
#endif

namespace {
[[noreturn]] void fail()
{
    throw std::runtime_error("no tab today");
}
#ifdef THROWS_LATER
int g_instance;
#endif
} // namespace

void *plugin_lr_2d_editor_create(void (* /*changed*/)(void *), void * /*data*/)
{
#ifdef THROWS_LATER
    return &g_instance;
#else
    fail();
#endif
}
void plugin_lr_2d_editor_set_parent(void * /*instance*/, vxk_window /*window*/)
{
    fail();
}
char const *plugin_lr_2d_editor_get_caption()
{
    throw 1;
}
void plugin_lr_2d_editor_destroy(void * /*instance*/)
{
    fail();
}
void plugin_lr_2d_editor_attach(void * /*instance*/, Ivx_layer * /*layer*/)
{
    fail();
}
void plugin_lr_2d_editor_update(void * /*instance*/)
{
    fail();
}
void plugin_lr_2d_editor_setpos(void * /*instance*/, vxk_rect const * /*rect*/)
{
    fail();
}
