/* A host in C that finds the layer editor by name, without a header and without a toolkit of its own. */
#include <dlfcn.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

static void* library;

static void fail(char const* what)
{
    fprintf(stderr, "%s\n", what);
    exit(1);
}

static void* find(char const* name)
{
    void* function = dlsym(library, name);
    if (!function)
        fail(name);
    return function;
}

static void check(bool ok, char const* what)
{
    if (!ok)
        fail(what);
}

static void on_apply(void* data)
{
    ++*(int*)data;
}

int main(int argc, char** argv)
{
    check(argc == 3, "usage: by_name LIBRARY FILE");
    library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!library)
        fail(dlerror());

    void* (*create)(void) = (void* (*)(void))find("vx_lr2d_edt_form_create");
    void (*create_all)(void*) = (void (*)(void*))find("vx_lr2d_edt_form_create_all");
    void (*set_lr2d)(void*, void*) = (void (*)(void*, void*))find("vx_lr2d_edt_form_set_lr2d");
    void (*set_callback)(void*, void*, void (*)(void*)) =
        (void (*)(void*, void*, void (*)(void*)))find("vx_lr2d_edt_form_set_callback");
    void (*update)(void*) = (void (*)(void*))find("vx_lr2d_edt_form_update");
    void* (*get_lr2d)(void*) = (void* (*)(void*))find("vx_lr2d_edt_form_get_lr2d_ptr");
    bool (*showing)(void*) = (bool (*)(void*))find("vx_lr2d_edt_form_get_showing");
    void (*show_pos)(void*, int, int) = (void (*)(void*, int, int))find("vx_lr2d_edt_form_show_pos");
    void (*hide)(void*) = (void (*)(void*))find("vx_lr2d_edt_form_hide");
    int (*get_left)(void*) = (int (*)(void*))find("vx_lr2d_edt_form_get_left");
    int (*get_top)(void*) = (int (*)(void*))find("vx_lr2d_edt_form_get_top");
    void (*set_width)(void*, int) = (void (*)(void*, int))find("vx_lr2d_edt_form_set_width");
    int (*get_width)(void*) = (int (*)(void*))find("vx_lr2d_edt_form_get_width");
    void (*destroy)(void*) = (void (*)(void*))find("vx_lr2d_edt_form_destroy");

    /* The layers come from the platform, which the library brought along. */
    void* (*layer_create)(char const*, wchar_t const*) =
        (void* (*)(char const*, wchar_t const*))find("vx_shp_lr2d_create");
    void (*layer_destroy)(void*) = (void (*)(void*))find("vx_lr2d_destroy");

    wchar_t file[4096];
    check(mbstowcs(file, argv[2], 4096) != (size_t)-1, "file name");
    void* layer = layer_create("shp_pgn_lr2d", file);
    check(layer != NULL, "layer");

    int applied = 0;
    void* form = create();
    check(form != NULL, "create");
    check(get_lr2d(form) == NULL, "no layer before set_lr2d");
    set_lr2d(form, layer); /* ahead of its time */
    check(get_lr2d(form) == NULL, "no pages yet");
    create_all(form);
    set_callback(form, &applied, &on_apply);
    set_lr2d(form, layer);
    void* copy = get_lr2d(form);
    check(copy != NULL && copy != layer, "working copy");
    layer_destroy(layer); /* the copy stands by itself */
    update(form);
    check(!showing(form), "hidden at first");
    show_pos(form, 40, 30);
    check(showing(form), "shown");
    check(get_left(form) == 40 && get_top(form) == 30, "position");
    set_width(form, 500);
    check(get_width(form) == 500, "width");
    hide(form);
    check(!showing(form), "hidden");
    set_lr2d(form, NULL);
    check(get_lr2d(form) == NULL, "no layer");
    check(applied == 0, "nobody applied");
    destroy(form);
    destroy(NULL);

    void* (*layout_create)(void) = (void* (*)(void))find("vx_lr_layout_edt_form_create");
    void (*layout_destroy)(void*) = (void (*)(void*))find("vx_lr_layout_edt_form_destroy");
    void* (*any_layer_create)(char const*) = (void* (*)(char const*))find("vx_lr2d_create");
    form = layout_create();
    create_all(form);
    layer = any_layer_create("layout_text");
    set_lr2d(form, layer);
    check(get_lr2d(form) != NULL && get_lr2d(form) != layer, "working copy of an element");
    show_pos(form, 40, 30);
    check(showing(form), "shown for an element");
    layer_destroy(layer);
    layout_destroy(form);
    puts("by_name: ok");
    return 0;
}
