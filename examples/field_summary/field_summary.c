/* A layer page in plain C: what the numbers of a field are like, before a scale is made of them. */
#include "extension/plugin/vxk_plugin.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

VXK_PLUGIN_MODULE

typedef struct page
{
    vxk_panel *panel;
    vxk_control *source;
    vxk_control *field;
    vxk_control *result;
    Ivx_layer *layer;
    unsigned *fields; /* of the table, for each line of the choice */
} page;

static const char *text_of(const char *english, const char *russian)
{
    return strcmp(vxk_plugin_get_language(), "ru") == 0 ? russian : english;
}

/* Reads the column that is chosen; the table is open no longer than that. */
static void summarise(page *self)
{
    int line = vxk_control_get_index(self->field);
    vxk_table *table = line >= 0 ? vxk_table_open(self->layer) : NULL;
    unsigned records = vxk_table_get_record_count(table), count = 0;
    double least = INFINITY, greatest = -INFINITY, mean = 0, squares = 0, value;
    char text[500] = "";
    for (unsigned i = 0; i < records; ++i) {
        if (!vxk_table_get_number(table, self->fields[line], i, &value))
            continue;
        double step = value - mean;
        mean += step / ++count;
        squares += step * (value - mean);
        least = fmin(least, value);
        greatest = fmax(greatest, value);
    }
    if (count > 0)
        snprintf(text, sizeof text,
                 text_of("%u of %u records have a value.\n\nLeast: %.10g\nGreatest: %.10g\nMean: %.10g\n"
                         "Standard deviation: %.10g",
                         "Значение есть у %u записей из %u.\n\nНаименьшее: %.10g\nНаибольшее: %.10g\n"
                         "Среднее: %.10g\nСтандартное отклонение: %.10g"),
                 count, records, least, greatest, mean, sqrt(squares / count));
    else if (table)
        snprintf(text, sizeof text,
                 text_of("None of %u records has a value.", "Ни у одной из %u записей нет значения."),
                 records);
    vxk_control_set_text(self->result, text);
    vxk_table_close(table);
}

static void on_field(void *data, vxk_control *control)
{
    (void)control;
    summarise(data);
}

/* The numeric fields of the layer, the first of them chosen. */
static void show_layer(page *self)
{
    char text[1000] = "";
    vxk_table *table = vxk_table_open(self->layer);
    unsigned all = vxk_table_get_field_count(table);
    char(*names)[256] = calloc(all + 1, sizeof *names);
    const char **items = calloc(all + 1, sizeof *items);
    unsigned *fields = calloc(all + 1, sizeof *fields);
    int count = 0;
    for (unsigned i = 0; names && items && fields && i < all; ++i)
        if (vxk_table_is_number(table, i)) {
            vxk_table_get_field_name(table, i, names[count], sizeof names[count]);
            items[count] = names[count];
            fields[count++] = i;
        }
    vxk_table_close(table);
    free(self->fields);
    self->fields = fields;
    vxk_layer_get_source(self->layer, text, sizeof text);
    vxk_control_set_text(self->source,
                         table ? text : text_of("This layer has no table.", "У этого слоя нет таблицы."));
    vxk_control_set_items(self->field, items, count);
    vxk_control_set_index(self->field, count > 0 ? 0 : -1);
    vxk_control_set_enabled(self->field, count > 0);
    vxk_control_set_text(self->result, "");
    free(items);
    free(names);
    if (count > 0)
        summarise(self);
}

void *plugin_lr_2d_editor_create(void (*changed)(void *data), void *data)
{
    page *self = calloc(1, sizeof *self);
    (void)changed;
    (void)data;
    if (!self)
        return NULL;
    self->panel = vxk_panel_create();
    self->source = vxk_panel_add_text(self->panel, "");
    self->field = vxk_panel_add_choice(self->panel, text_of("&Field", "&Поле"), on_field, self);
    self->result = vxk_panel_add_text(self->panel, "");
    return self;
}

void plugin_lr_2d_editor_destroy(void *instance)
{
    page *self = instance;
    vxk_panel_destroy(self->panel);
    free(self->fields);
    free(self);
}

void plugin_lr_2d_editor_set_parent(void *instance, vxk_window window)
{
    vxk_panel_set_parent(((page *)instance)->panel, window);
}

const char *plugin_lr_2d_editor_get_caption(void)
{
    return text_of("Fields", "Поля");
}

void plugin_lr_2d_editor_attach(void *instance, Ivx_layer *layer)
{
    page *self = instance;
    self->layer = layer;
    show_layer(self);
}

void plugin_lr_2d_editor_update(void *instance)
{
    show_layer(instance);
}

void plugin_lr_2d_editor_setpos(void *instance, const vxk_rect *rect)
{
    (void)instance; /* the panel follows its window */
    (void)rect;
}
