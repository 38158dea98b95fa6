#pragma once

#include "extension/binding/element_view.h"
#include "extension/binding/ref.h"
#include "extension/binding/string_visitor.h"
#include "extension/binding/style_editor_data_source.h"
#include "extension/binding/style_editor_data_source_visitor.h"
#include "extension/binding/tstring.h"

#include "platform/base/export.h"
#include "platform/toolkit/controls/page_control.h"

#include <string>

/// Base of the views of editors that extensions offer. A view lives on a tab sheet, which owns it and the
/// editors that it makes.
class VX_API Tvx_editor_view : public TComponent
{
public:
    using TComponent::TComponent;

    /// Ends what is being typed: with `taken` it goes into the style, else it is dropped.
    virtual void end_edit(bool taken) = 0;
    /// The model is not asked any more, and the tab goes. `is_dead`: it has ended already, so that it is not
    /// told either.
    virtual void leave_model(bool is_dead) = 0;
};

namespace vx {
/// What the views have in common: the model of the family `Model`, its values, and the tab. `Edits` are the
/// editors of the view, which the sheet owns.
///
/// A model may call at any time between the two calls of its `reattach`, and within them; calls before the
/// view is whole and while it or its sheet ends do nothing.
template <class Model, class Edits>
class VX_API editor_view_impl : public element_view_impl
{
public:
    editor_view_impl(editor_view_impl const &) = delete;
    editor_view_impl &operator=(editor_view_impl const &) = delete;

    void update_appearance() override {}
    void update_state() override {}
    void update_data() override
    {
        if (f_live && !f_sheet->IsDestroying())
            show_model();
    }

    void leave_model(bool is_dead)
    {
        if (!is_dead)
            say_good_bye();
        f_editor = {};
        f_data_source.assign({});
        update_data();
    }
    [[nodiscard]] Edits const &get_edits() const { return f_edits; }

    /// The pull events of the editors. Without a source of values the counts are 0 and cells have no value.
    bool on_data_open(TObject *)
    {
        f_editor.with_data_source(f_data_source);
        return true;
    }
    void on_data_close(TObject *) { f_data_source.hold({}); }
    unsigned on_data_get_np(TObject *) { return count(f_data_source->property_count()); }
    unsigned on_data_get_no(TObject *) { return count(f_data_source->item_count()); }
    char const *on_data_get_prop(TObject *, unsigned prop, bool &usable, bool &numeric)
    {
        usable = f_data_source->property_used(number(prop));
        numeric = f_data_source->property_floating(number(prop));
        f_buffer.clear();
        f_data_source->with_property_name(number(prop), f_buffer);
        return f_buffer.c_str();
    }
    char const *on_data_get_capt_prop(TObject *, unsigned prop)
    {
        f_buffer.clear();
        f_data_source->with_property_caption(number(prop), f_buffer);
        return f_buffer.c_str();
    }
    bool on_data_get_stats(TObject *, unsigned prop, double &min, double &max, double &mean,
                           double &deviation, bool &defined)
    {
        defined = f_data_source->property_stats(number(prop), &min, &max, &mean, &deviation);
        return defined;
    }
    char const *on_data_get_str(TObject *, unsigned prop, unsigned item, bool &defined)
    {
        defined = f_data_source->item_property_defined(number(item), number(prop));
        f_buffer.clear();
        if (defined)
            f_data_source->with_item_property_text(number(item), number(prop), f_buffer);
        return f_buffer.c_str();
    }
    double on_data_get_val(TObject *, unsigned prop, unsigned item, bool &defined)
    {
        defined = f_data_source->item_property_defined(number(item), number(prop));
        return defined ? f_data_source->item_property_value(number(item), number(prop)) : 0.0;
    }

protected:
    /// Takes a text of the model, in the system code page, until the next one.
    class string_buffer final : public string_visitor_impl, public vxstd::ansi::Tvx_tstring<std::string>
    {
    public:
        void visit(wchar_t const *text) override { feed(text); }
    };

    /// Holds the values while an editor has them open.
    class data_source_visitor final
        : public style_editor_data_source_visitor_impl,
          public ref<style_editor_data_source, false, reftraits<style_editor_data_source>>
    {
    public:
        void visit(style_editor_data_source source) override { this->hold(source); }
    };

    editor_view_impl(TTabSheet *sheet, Model model) : f_sheet(sheet), f_editor(model)
    {
        f_data_source.attach();
        f_editor.reattach(*this);
        f_editor.with_caption(f_buffer);
        sheet->SetCaption(f_buffer.c_str());
    }
    ~editor_view_impl()
    {
        f_live = false;
        // Editors that are left must not ask a view that is no more.
        while (!f_sheet->IsDestroying() && f_sheet->GetControlCount() > 0)
            delete f_sheet->GetControls(0);
        say_good_bye();
    }

    /// Brings editors and tab into line with the model, which is asked anew.
    virtual void show_model() = 0;

    template <class Edit>
    Edit *add_edit(Edit *edit, TAlign align)
    {
        edit->SetParent(f_sheet);
        edit->create();
        edit->load_res();
        edit->SetAlign(align);
        return edit;
    }
    /// The last step of a constructor: from here on the model may call.
    void first_update()
    {
        f_live = true;
        update_appearance();
        update_state();
        update_data();
    }
    /// Of the sheets that have a tab only the active one is visible, and the page control sees to that.
    void show_tab(bool shown)
    {
        f_sheet->SetTabVisible(shown);
        if (!shown)
            f_sheet->SetVisible(false);
    }

    TTabSheet *f_sheet;
    Model f_editor;
    Edits f_edits{};
    string_buffer f_buffer;
    data_source_visitor f_data_source;

private:
    bool f_live = false;

    static unsigned count(int of_model) { return of_model > 0 ? static_cast<unsigned>(of_model) : 0; }
    static int number(unsigned of_editor) { return static_cast<int>(of_editor); }

    void say_good_bye() noexcept
    {
        try {
            f_editor.reattach({});
        } catch (...) { // the view goes all the same
        }
    }
};
} // namespace vx
