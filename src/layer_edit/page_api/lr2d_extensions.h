#pragma once

#include "platform/base/basic_obj.h"

struct Ivx_layer;

/// What the layer page set needs of the two ways in which other modules add tabs. The modules that find and
/// load them implement these classes.

/// One native plug-in module, which adds one tab.
class VX_API Tvx_lr2d_page_plugin : public Tvx_basic_obj
{
public:
    /// Makes an instance. `changed` may be null: the plug-in then reports nothing.
    [[nodiscard]] virtual void *create(void (*changed)(void *data), void *data) = 0;
    /// `window` is the tab's window handle.
    virtual void set_parent(void *instance, void *window) = 0;
    /// The tab's text, in the system code page.
    [[nodiscard]] virtual char const *get_caption() = 0;
    virtual void destroy(void *instance) = 0;
    /// The layer that the instance edits from now on, or null. The former layer has not ended yet.
    virtual void attach(void *instance, Ivx_layer *layer) = 0;
};

/// The plug-in modules of one file mask, in the order of their tabs. The code of a module stays loaded after
/// the set has gone.
class VX_API Tvx_lr2d_page_plugin_set : public Tvx_basic_obj
{
public:
    [[nodiscard]] virtual unsigned get_plugin_count() const = 0;
    /// `index` is below `get_plugin_count()`.
    [[nodiscard]] virtual Tvx_lr2d_page_plugin *get_plugin(unsigned index) const = 0;
};

/// The tabs that extension services added, and the services themselves. The object owns its tabs: its end
/// takes them off the page control.
class VX_API Tvx_lr2d_custom_pages : public Tvx_basic_obj
{
public:
    /// Hands the layer, or null, to each service, in the order of their priority.
    virtual void set_layer(Ivx_layer *layer) = 0;
    /// Ends what is being typed into the tabs: with `taken` it goes into the layer, else it is dropped.
    virtual void end_edit(bool /*taken*/) {}
};
