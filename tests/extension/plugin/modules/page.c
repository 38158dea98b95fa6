/* A layer page plug-in that writes down what is done to it. WITHOUT leaves out the entry of that number. */
#include "extension/plugin/vxk_plugin.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#ifndef WITHOUT
#define WITHOUT (-1)
#endif

#ifdef LATER
VXK_PLUGIN_ENTRY const int vxk_plugin_revision = VXK_PLUGIN_REVISION + 1;
#else
VXK_PLUGIN_MODULE
#endif

static char g_log[4096];

static void put(const char *what)
{
    size_t length = strlen(g_log);
    if (length + strlen(what) + 2 < sizeof g_log)
        snprintf(g_log + length, sizeof g_log - length, "%s%s", length ? ", " : "", what);
}

/* What has come since the last call. */
VXK_PLUGIN_ENTRY const char *test_take_log(void);
const char *test_take_log(void)
{
    static char taken[sizeof g_log];
    memcpy(taken, g_log, sizeof g_log);
    g_log[0] = 0;
    return taken;
}

struct instance
{
    vxk_panel *panel;
};

#if WITHOUT != 0
void *plugin_lr_2d_editor_create(void (*changed)(void *data), void *data)
{
    put(changed ? "create with report" : data ? "create" : "create without data");
#ifdef NULL_INSTANCE
    return NULL;
#else
    struct instance *made = calloc(1, sizeof *made);
    made->panel = vxk_panel_create();
    vxk_panel_add_check(made->panel, "Works", NULL, NULL);
    return made;
#endif
}
#endif
#if WITHOUT != 1
void plugin_lr_2d_editor_set_parent(void *instance, vxk_window window)
{
    put(window ? "parent" : "no parent");
    vxk_panel_set_parent(((struct instance *)instance)->panel, window);
}
#endif
#if WITHOUT != 2
const char *plugin_lr_2d_editor_get_caption(void)
{
#ifdef NULL_CAPTION
    return NULL;
#else
    return "Page \xD1\x8F";
#endif
}
#endif
#if WITHOUT != 3
void plugin_lr_2d_editor_destroy(void *instance)
{
    put("destroy");
    vxk_panel_destroy(((struct instance *)instance)->panel);
    free(instance);
}
#endif
#if WITHOUT != 4
void plugin_lr_2d_editor_attach(void *instance, Ivx_layer *layer)
{
    char text[100];
    snprintf(text, sizeof text, "attach %s", layer ? vxk_layer_get_type(layer) : "nothing");
    put(text);
    (void)instance;
}
#endif
#if WITHOUT != 5
void plugin_lr_2d_editor_update(void *instance)
{
    (void)instance;
    put("update");
}
#endif
#if WITHOUT != 6
void plugin_lr_2d_editor_setpos(void *instance, const vxk_rect *rect)
{
    char text[100];
    snprintf(text, sizeof text, "pos %d %d %d %d", rect->left, rect->top, rect->right, rect->bottom);
    put(text);
    (void)instance;
}
#endif
