/* A style editor plug-in for areas that writes down what is done to it. WITHOUT leaves out the entry of that number. */
#include "extension/plugin/vxk_plugin.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#ifndef WITHOUT
#define WITHOUT (-1)
#endif

static char g_log[4096];
static void (*g_commit)(void *data);
static void (*g_focus)(void *data);
static void *g_data;
static vxk_get_data g_get_data;
static void *g_panel;

static void put(const char *what)
{
    size_t length = strlen(g_log);
    if (length + strlen(what) + 2 < sizeof g_log)
        snprintf(g_log + length, sizeof g_log - length, "%s%s", length ? ", " : "", what);
}

VXK_PLUGIN_ENTRY const char *test_take_log(void);
const char *test_take_log(void)
{
    static char taken[sizeof g_log];
    memcpy(taken, g_log, sizeof g_log);
    g_log[0] = 0;
    return taken;
}
VXK_PLUGIN_ENTRY void test_commit(void);
void test_commit(void)
{
    g_commit(g_data);
}
VXK_PLUGIN_ENTRY void test_focus(void);
void test_focus(void)
{
    g_focus(g_data);
}
/* The whole table as one line, read as the header says. */
VXK_PLUGIN_ENTRY const char *test_read_data(void);
const char *test_read_data(void)
{
    static char text[4096];
    const vxk_any *data = g_get_data(g_panel);
    size_t at = 0;
    text[0] = 0;
    for (unsigned i = 0; i < vxk_data_field_count(data); ++i)
        at += (size_t)snprintf(text + at, sizeof text - at, "%s%s ", vxk_data_field_name(data, i),
                               vxk_data_is_number(data, i) ? "#" : "");
    for (unsigned r = 0; r < vxk_data_record_count(data) && at < 3000; ++r) {
        at += (size_t)snprintf(text + at, sizeof text - at, "| ");
        for (unsigned i = 0; i < vxk_data_field_count(data); ++i) {
            double number = 0;
            const char *cell = vxk_data_get_text(data, r, i);
            if (vxk_data_get_number(data, r, i, &number))
                at += (size_t)snprintf(text + at, sizeof text - at, "%g ", number);
            else
                at += (size_t)snprintf(text + at, sizeof text - at, "%s ", cell ? cell : "-");
        }
    }
    return text;
}

#if WITHOUT != 0
void *plugin_style_editor_create(vxk_window window, void (*commit)(void *data), void (*focus)(void *data), void *data)
{
    (void)window;
    g_commit = commit;
    g_focus = focus;
    g_data = data;
    put("create");
#ifdef NULL_INSTANCE
    return NULL;
#else
    return &g_log;
#endif
}
#endif
#if WITHOUT != 1
const char *plugin_style_editor_get_caption(void)
{
    return "Style";
}
#endif
#if WITHOUT != 2
void *plugin_style_editor_get_control(void *application, void *owner)
{
    (void)application;
    (void)owner;
    return NULL;
}
#endif
#if WITHOUT != 3
void plugin_style_editor_set_parent(void *instance, vxk_window window)
{
    (void)instance;
    put(window ? "parent" : "no parent");
}
#endif
#if WITHOUT != 4
void plugin_style_editor_destroy(void *instance)
{
    (void)instance;
    put("destroy");
}
#endif
#if WITHOUT != 5
bool plugin_style_editor_supports(void *instance, void *style_manager)
{
    (void)instance;
    const char *type = vxk_style_manager_get_type(style_manager);
    return type && strcmp(type, "pgn_style") == 0;
}
#endif
#if WITHOUT != 6
void plugin_style_editor_attach(void *instance, void *style_manager, vxk_get_data get_data, void *data)
{
    (void)instance;
    g_get_data = get_data;
    g_panel = data;
    put(style_manager ? "attach" : "attach nothing");
}
#endif
#if WITHOUT != 7
void plugin_style_editor_update(void *instance)
{
    (void)instance;
    put("update");
}
#endif
#if WITHOUT != 8
void plugin_style_editor_setpos(void *instance, const vxk_rect *rect)
{
    (void)instance;
    char text[100];
    snprintf(text, sizeof text, "pos %d %d", rect->right, rect->bottom);
    put(text);
}
#endif
#if WITHOUT != 9
bool plugin_style_editor_select_next(void *instance, int direction)
{
    (void)instance;
    return direction > 0;
}
#endif
