#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/toolkit/controls/panel.h"

/// A plain area of 200 by 26 without a frame.
class VX_API Tvx_panel : public TCustomPanel
{
public:
    explicit Tvx_panel(TComponent *owner);
};

/// A plain area of 200 by 22 without a frame and text, built late: the constructor makes the object, `create`
/// its children, `load_rc` their texts. Whoever makes the object calls `create`, once.
class VX_API Tvx_vcl_panel : public TCustomPanel
{
public:
    explicit Tvx_vcl_panel(TComponent *owner);

    virtual void create() {}
    virtual void load_rc() {}
    [[nodiscard]] virtual bool get_enabled() const { return GetEnabled(); }
    virtual void set_enabled(bool enabled) { SetEnabled(enabled); }
};

/// A panel whose controls are enabled and disabled together. The panel's own state stays as it is.
class VX_API Tvx_children_enabled_panel : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    /// Passes `enabled` to all controls on the panel, and below them to all windowed ones.
    void set_enabled(bool enabled);
};

/// A panel that reports its changes.
class VX_API Tvx_basic_pnl : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void call_changed() { on_changed(this); }

    closure<void(TObject *)> on_changed;
};

/// A line between groups of controls, 2 pixels high.
class VX_API Tvx_line_separator : public TCustomPanel
{
public:
    explicit Tvx_line_separator(TComponent *owner);
};
