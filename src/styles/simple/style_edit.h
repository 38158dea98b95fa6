#pragma once

#include "controls/forms/panels.h"

#include <memory>

/// Base of the panels that edit one style. A panel holds a private style: values go in and out by assignment,
/// so a caller's style is never touched. What is set shows at the next `update_controls`.
class VX_API Tvx_style_edit : public Tvx_basic_pnl
{
public:
    /// Shows the values of the private style; fires nothing.
    virtual void update_controls() = 0;
    virtual void load_res() = 0;

    /// The private style, of the type that the class edits; it stays the editor's.
    [[nodiscard]] void *get_style() const { return f_style.get(); }
    /// Assigns the values of a style of that type.
    void set_style(void const *style) { f_type.assign(f_style.get(), style); }
    /// Assigns the private style to another one of that type.
    void give_style_to(void *style) const { f_type.assign(style, f_style.get()); }

protected:
    /// The plain functions of a type of styles.
    struct style_type
    {
        void *(*create)();
        void (*destroy)(void *style);
        void (*assign)(void *target, void const *source);
    };
    Tvx_style_edit(TComponent *owner, style_type const &type)
        : Tvx_basic_pnl(owner), f_type(type), f_style(type.create(), type.destroy)
    {
    }

private:
    style_type f_type;
    std::unique_ptr<void, void (*)(void *)> f_style;
};
