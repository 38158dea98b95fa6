#include "platform/dialogs/vx_dock_panels.h"

#include "captions/extensions.h"
#include "extension/binding/button.h"
#include "extension/binding/checkbox.h"
#include "extension/binding/docker.h"
#include "extension/binding/element_view.h"
#include "extension/binding/element_visitor.h"
#include "extension/binding/grid_layout.h"
#include "extension/binding/groupbox.h"
#include "extension/binding/label.h"
#include "extension/binding/multiline_output.h"
#include "extension/binding/output.h"
#include "extension/binding/scroll_layout.h"
#include "extension/binding/string_visitors.h"

#include "platform/base/flag_scope.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/grid_panel.h"
#include "platform/toolkit/controls/group_box.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/controls/scroll_box.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {
/// A module that says it has more, or that nests without end, gets no more than that.
constexpr int c_max_columns = 64;
constexpr int c_max_rows = 1000;
constexpr int c_max_depth = 16;

constexpr int c_margin = 8;
constexpr int c_column_gap = 10;
constexpr int c_row_gap = 4;
constexpr int c_output_width = 160;
constexpr int c_scroll_width = 240;
constexpr int c_scroll_height = 160;
constexpr int c_frame_top = 18; ///< of a group box, with its caption
constexpr int c_char_width = 8;

TControl *build(TWinControl *parent, int depth, auto const &with_element);

/// The view of one element. Its control owns it.
class part : public TComponent
{
public:
    using TComponent::TComponent;
    virtual void refresh_data() = 0;
    /// The element is not asked any more; one that is not dead is told so.
    virtual void leave(bool is_dead) = 0;
};

template <class Control, class Element>
class element_part : public part, public vx::element_view_impl
{
public:
    element_part(Control *control, Element element) : part(control), f_control(control), f_element(element) {}
    element_part(element_part const &) = delete;
    element_part &operator=(element_part const &) = delete;
    ~element_part() override { element_part::leave(false); }

    void start()
    {
        f_live = true;
        f_element.reattach(*this);
        update_appearance();
        update_state();
        update_data();
    }
    void update_appearance() override
    {
        if (can_show())
            show_appearance();
    }
    void update_state() override
    {
        if (can_show())
            show_state();
    }
    void update_data() override
    {
        if (can_show())
            show_data();
    }
    void refresh_data() override { update_data(); }
    void leave(bool is_dead) override
    {
        f_live = false;
        auto const element = f_element;
        f_element = {};
        if (is_dead)
            return;
        try {
            element.reattach({});
        } catch (...) { // the view goes all the same
        }
    }

protected:
    virtual void show_appearance() {}
    virtual void show_state() {}
    virtual void show_data() {}

    [[nodiscard]] std::wstring caption() const
    {
        return vx::visited_text([this](vx::string_visitor v) { f_element.with_caption(v); });
    }

    Control *f_control;
    Element f_element;

private:
    [[nodiscard]] bool can_show() const { return f_live && !f_control->IsDestroying(); }

    bool f_live = false;
};

class label_part final : public element_part<TLabel, vx::label>
{
    using element_part::element_part;
    void show_appearance() override { f_control->SetCaption(caption()); }
    void show_state() override { f_control->SetEnabled(f_element.enabled()); }
};

template <class Edit, class Element>
class text_part final : public element_part<Edit, Element>
{
public:
    using element_part<Edit, Element>::element_part;

private:
    void show_data() override
    {
        this->f_control->SetText(
            vx::visited_text([this](vx::string_visitor v) { this->f_element.with_text(v); }));
    }
};

class button_part final : public element_part<TButton, vx::button>
{
public:
    button_part(TButton *control, vx::button element) : element_part(control, element)
    {
        control->OnClick = make_closure<&button_part::on_click>(this);
    }

private:
    void on_click(TObject *) { f_element.click(); }
    void show_appearance() override
    {
        auto const text = caption();
        f_control->SetCaption(text);
        f_control->SetWidth(
            std::max(f_control->GetWidth(), static_cast<int>(text.size() + 2) * c_char_width));
    }
    void show_state() override
    {
        f_control->SetEnabled(f_element.enabled());
        f_control->SetDefault(f_element.default_button());
    }
};

class check_part final : public element_part<TCheckBox, vx::checkbox>
{
public:
    check_part(TCheckBox *control, vx::checkbox element) : element_part(control, element)
    {
        control->OnClick = make_closure<&check_part::on_click>(this);
    }

private:
    void on_click(TObject *)
    {
        if (!f_showing)
            f_element.set_checked(f_control->GetChecked());
    }
    void show_appearance() override
    {
        auto const text = caption();
        f_control->SetCaption(text);
        f_control->SetWidth(
            std::max(f_control->GetWidth(), static_cast<int>(text.size() + 3) * c_char_width));
    }
    void show_state() override { f_control->SetEnabled(f_element.enabled()); }
    void show_data() override
    {
        f_showing = true;
        f_control->SetChecked(f_element.checked());
        f_showing = false;
    }

    bool f_showing = false;
};

class group_part final : public element_part<TGroupBox, vx::groupbox>
{
public:
    group_part(TGroupBox *control, vx::groupbox element, int depth) : element_part(control, element)
    {
        auto *const content =
            build(control, depth, [&](vx::element_visitor visitor) { element.with_element(visitor); });
        if (!content)
            return;
        control->SetBounds(0, 0, content->GetWidth() + 2 * c_margin,
                           content->GetHeight() + c_frame_top + c_margin);
        content->SetAlign(alClient);
    }

private:
    void show_appearance() override { f_control->SetCaption(caption()); }
};

class scroll_part final : public element_part<TScrollBox, vx::scroll_layout>
{
public:
    scroll_part(TScrollBox *control, vx::scroll_layout element, int depth, bool is_vertical)
        : element_part(control, element)
    {
        control->SetBorderStyle(bsNone);
        auto *const content =
            build(control, depth, [&](vx::element_visitor visitor) { element.with_element(visitor); });
        if (!content)
            return;
        // In the other direction the content gets the room that there is.
        control->SetBounds(0, 0, is_vertical ? content->GetWidth() : c_scroll_width,
                           is_vertical ? c_scroll_height : content->GetHeight());
        content->SetAlign(is_vertical ? alTop : alLeft);
    }

private:
    void show_state() override { f_control->SetVisible(f_element.visible()); }
};

class grid_part final : public element_part<TGridPanel, vx::grid_layout>
{
public:
    grid_part(TGridPanel *control, vx::grid_layout element, int depth)
        : element_part(control, element), f_columns(count(element.column_count(), c_max_columns)),
          f_rows(count(element.row_count(), c_max_rows))
    {
        control->SetBevelOuter(bvNone);
        control->SetShowCaption(false);
        // What is made keeps the size that it wants until all is there.
        control->DisableAlign();
        control->SetColumnCount(static_cast<int>(f_columns.size()));
        control->SetRowCount(static_cast<int>(f_rows.size()));
        for (std::size_t row = 0; row < f_rows.size(); ++row)
            for (std::size_t column = 0; column < f_columns.size(); ++column)
                add_cell(static_cast<int>(column), static_cast<int>(row), depth);
        // What is wanted: the avid lines take what is left over when there is more.
        int width = 0;
        int height = 0;
        for (int const size : f_columns)
            width += size > 0 ? size + c_column_gap : 0;
        for (int const size : f_rows)
            height += size > 0 ? size + c_row_gap : 0;
        control->SetBounds(0, 0, width, height);
        grid_part::show_state();
        control->EnableAlign();
    }

private:
    static std::vector<int> count(int lines, int most)
    {
        return std::vector<int>(static_cast<std::size_t>(std::clamp(lines, 0, most)));
    }
    void add_cell(int column, int row, int depth)
    {
        auto *const cell = build(f_control, depth, [&](vx::element_visitor visitor) {
            f_element.with_element(column, row, visitor);
        });
        if (!cell)
            return;
        auto &width = f_columns[static_cast<std::size_t>(column)];
        auto &height = f_rows[static_cast<std::size_t>(row)];
        width = std::max(width, cell->GetWidth());
        height = std::max(height, cell->GetHeight());
        f_control->SetCell(cell, column, row);
        cell->SetAlign(alClient);
    }
    void show_state() override
    {
        for (int i = 0; i < static_cast<int>(f_columns.size()); ++i)
            set_line<&TGridPanel::SetColumn>(i, f_element.column_visible(i), f_element.column_avid(i),
                                             f_columns, c_column_gap);
        for (int i = 0; i < static_cast<int>(f_rows.size()); ++i)
            set_line<&TGridPanel::SetRow>(i, f_element.row_visible(i), f_element.row_avid(i), f_rows,
                                          c_row_gap);
        f_control->Realign();
    }
    /// Avid lines share what is left over.
    template <auto Set>
    void set_line(int line, bool is_visible, bool is_avid, std::vector<int> const &sizes, int gap)
    {
        int const size = sizes[static_cast<std::size_t>(line)];
        bool const shares = is_visible && is_avid;
        (f_control->*Set)(line, shares ? ssPercent : ssAbsolute,
                          shares                   ? 1
                          : is_visible && size > 0 ? size + gap
                                                   : 0);
    }

    std::vector<int> f_columns; ///< widths that are wanted
    std::vector<int> f_rows;
};

#define VX_NOT_SHOWN(name, element)                                                                          \
    void visit_##name(vx::element) override                                                                  \
    {                                                                                                        \
        add_not_shown();                                                                                     \
    }

/// Makes the control of an element; of several the first counts.
class builder final : public vx::element_visitor_impl
{
public:
    builder(TWinControl *parent, int depth) : f_parent(parent), f_depth(depth) {}

    TControl *made = nullptr;

    void visit_grid_layout(vx::grid_layout element) override
    {
        if (can_nest())
            add<grid_part>(new TGridPanel(f_parent), element, f_depth + 1);
    }
    void visit_v_scroll_layout(vx::scroll_layout element) override
    {
        if (can_nest())
            add<scroll_part>(new TScrollBox(f_parent), element, f_depth + 1, true);
    }
    void visit_h_scroll_layout(vx::scroll_layout element) override
    {
        if (can_nest())
            add<scroll_part>(new TScrollBox(f_parent), element, f_depth + 1, false);
    }
    void visit_groupbox(vx::groupbox element) override
    {
        if (can_nest())
            add<group_part>(new TGroupBox(f_parent), element, f_depth + 1);
    }
    void visit_label(vx::label element) override
    {
        if (made)
            return;
        auto *const label = new TLabel(f_parent);
        label->SetLayout(tlCenter);
        label->SetShowAccelChar(false);
        add<label_part>(label, element);
    }
    void visit_output(vx::output element) override
    {
        if (made)
            return;
        auto *const edit = new TEdit(f_parent);
        edit->SetReadOnly(true);
        edit->SetBorderStyle(bsNone);
        edit->SetParentColor(true);
        edit->SetWidth(c_output_width);
        add<text_part<TEdit, vx::output>>(edit, element);
    }
    void visit_multiline_output(vx::multiline_output element) override
    {
        if (made)
            return;
        auto *const memo = new TMemo(f_parent);
        memo->SetReadOnly(true);
        memo->SetWidth(c_output_width);
        memo->SetScrollBars(ssVertical);
        add<text_part<TMemo, vx::multiline_output>>(memo, element);
    }
    void visit_button(vx::button element) override
    {
        if (!made)
            add<button_part>(new TButton(f_parent), element);
    }
    void visit_checkbox(vx::checkbox element) override
    {
        if (!made)
            add<check_part>(new TCheckBox(f_parent), element);
    }
    VX_NOT_SHOWN(tab_layout, tab_layout)
    VX_NOT_SHOWN(split_layout, split_layout)
    VX_NOT_SHOWN(stack_layout, stack_layout)
    VX_NOT_SHOWN(input, input)
    VX_NOT_SHOWN(multiline_input, multiline_input)
    VX_NOT_SHOWN(rich_input, rich_input)
    VX_NOT_SHOWN(integer_input, integer_input)
    VX_NOT_SHOWN(integer_output, integer_output)
    VX_NOT_SHOWN(floating_input, floating_input)
    VX_NOT_SHOWN(floating_output, floating_output)
    VX_NOT_SHOWN(assisted_input, assisted_input)
    VX_NOT_SHOWN(outline, outline)
    VX_NOT_SHOWN(list, list)
    VX_NOT_SHOWN(grid, grid)
    VX_NOT_SHOWN(radiobutton, radiobutton)
    VX_NOT_SHOWN(dropdown, dropdown)
    VX_NOT_SHOWN(toolbar, toolbar)
    VX_NOT_SHOWN(statusbar, statusbar)
    VX_NOT_SHOWN(buttoned_output, buttoned_output)
    VX_NOT_SHOWN(checkbox_list, checkbox_list)
    VX_NOT_SHOWN(slider, slider)
    VX_NOT_SHOWN(canvas, canvas)
    VX_NOT_SHOWN(image, image)
    VX_NOT_SHOWN(histogram, histogram)
    VX_NOT_SHOWN(gauge, gauge)
    VX_NOT_SHOWN(viewer_2d_panel, viewer_2d_panel)

private:
    template <class Part, class Control, class Element, class... Args>
    void add(Control *control, Element element, Args... args)
    {
        made = control;
        control->SetParent(f_parent);
        auto *const view = new Part(control, element, args...);
        view->start();
    }
    [[nodiscard]] bool can_nest()
    {
        if (!made && f_depth == c_max_depth)
            add_not_shown();
        return !made;
    }
    void add_not_shown()
    {
        if (made)
            return;
        auto *const label = new TLabel(f_parent);
        label->SetParent(f_parent);
        label->SetCaption(vx_res_get_wstr(c_ext_element_not_shown));
        label->SetEnabled(false);
        made = label;
    }

    TWinControl *f_parent;
    int f_depth;
};
#undef VX_NOT_SHOWN

/// The control of the element that is offered, in the size that it wants; null when none is.
TControl *build(TWinControl *parent, int depth, auto const &with_element)
{
    builder visitor(parent, depth);
    with_element(visitor);
    return visitor.made;
}

void each_part(TComponent const *of, auto const &act)
{
    for (int i = 0; i < of->GetComponentCount(); ++i) {
        auto *const component = of->GetComponents(i);
        each_part(component, act);
        if (auto *const view = dynamic_cast<part *>(component))
            act(view);
    }
}

class docker_view;

/// The controls that modules offer for their dockers, and what shows dockers at present.
struct docker_desk
{
    struct offer
    {
        t_vx_docker_interface docker;
        closure<TWinControl *(TWinControl *)> make;
    };

    [[nodiscard]] static docker_desk &get()
    {
        static auto &desk = *new docker_desk; // sheets may end after all else
        return desk;
    }
    [[nodiscard]] static bool is_same(t_vx_docker_interface a, t_vx_docker_interface b)
    {
        return a.self == b.self && a.table == b.table;
    }
    [[nodiscard]] std::vector<offer>::iterator find(t_vx_docker_interface docker)
    {
        return std::ranges::find_if(offers, [=](offer const &o) { return is_same(o.docker, docker); });
    }

    std::vector<offer> offers;
    std::vector<docker_view *> views;
};

/// What a sheet has for a docker: its element, or the control that its module makes.
class docker_view final : public element_part<TTabSheet, vx::docker>
{
public:
    docker_view(TTabSheet *sheet, vx::docker docker) : element_part(sheet, docker), f_docker(docker.handle())
    {
        docker_desk::get().views.push_back(this);
    }
    docker_view(docker_view const &) = delete;
    docker_view &operator=(docker_view const &) = delete;
    ~docker_view() override { std::erase(docker_desk::get().views, this); }

    void leave(bool is_dead) override
    {
        if (f_content)
            each_part(f_content, [&](part *view) { view->leave(is_dead); });
        element_part::leave(is_dead);
        drop_made();
    }
    [[nodiscard]] bool shows(t_vx_docker_interface docker) const
    {
        return docker_desk::is_same(f_docker, docker);
    }
    /// A control is offered from now on, another one, or none any more.
    void take_offer()
    {
        drop_made();
        f_is_asked = false;
        update_appearance();
        update_state();
    }

private:
    void show_appearance() override
    {
        f_control->SetCaption(caption());
        f_control->SetHelpContext(f_element.help_context());
        if (f_building) // a model that calls while it is asked is asked already
            return;
        vx::flag_scope const building(f_building);
        delete std::exchange(f_content, nullptr);
        if (is_offered())
            return;
        f_content = new TPanel(f_control);
        f_content->SetBevelOuter(bvNone);
        f_content->SetShowCaption(false);
        f_content->SetBorderWidth(c_margin);
        f_content->SetParent(f_control);
        f_content->SetAlign(alClient);
        auto *const made =
            build(f_content, 0, [this](vx::element_visitor visitor) { f_element.with_element(visitor); });
        if (made)
            made->SetAlign(alClient);
    }
    /// Of the sheets that have a tab only the active one is visible, and the page control sees to that.
    void show_state() override
    {
        bool const visible = f_element.visible();
        if (visible)
            ask_for_control();
        f_control->SetTabVisible(visible);
        if (!visible)
            f_control->SetVisible(false);
    }
    void show_data() override
    {
        if (f_content)
            each_part(f_content, [](part *view) { view->refresh_data(); });
    }

    [[nodiscard]] bool is_offered() const
    {
        auto &desk = docker_desk::get();
        return desk.find(f_docker) != desk.offers.end();
    }
    /// Once, when it would first be seen: a docker may never be.
    void ask_for_control()
    {
        if (f_building || f_is_asked || !is_offered())
            return;
        vx::flag_scope const building(f_building);
        f_is_asked = true;
        auto const make = docker_desk::get().find(f_docker)->make;
        auto *const made = make(f_control);
        if (!made)
            return;
        f_made = made;
        f_made_life = made->Life();
        if (made->GetParent() != f_control)
            made->SetParent(f_control);
        // It is the sheet's, whoever its maker gave it to.
        if (made->GetOwner() != f_control)
            f_control->InsertComponent(made);
        made->SetAlign(alClient);
    }
    void drop_made()
    {
        auto *const made = std::exchange(f_made, nullptr);
        if (made && !f_made_life.expired() && !made->IsDestroying() && !f_control->IsDestroying())
            delete made;
    }

    t_vx_docker_interface f_docker;
    TPanel *f_content = nullptr;   ///< of the sheet
    TWinControl *f_made = nullptr; ///< of the sheet
    std::weak_ptr<void const> f_made_life;
    bool f_is_asked = false;
    bool f_building = false;
};
} // namespace

void vx_dock_panels_offer_control(t_vx_docker_interface docker, closure<TWinControl *(TWinControl *)> make)
{
    auto &desk = docker_desk::get();
    auto const found = desk.find(docker);
    if (!make) {
        if (found == desk.offers.end())
            return;
        desk.offers.erase(found);
    } else if (found == desk.offers.end()) {
        desk.offers.push_back({docker, make});
    } else {
        found->make = make;
    }
    // Views come and go while they ask.
    auto const views = desk.views;
    for (auto *const view : views)
        if (std::ranges::find(desk.views, view) != desk.views.end() && view->shows(docker))
            view->take_offer();
}

void vx_dock_panels_tabsheet_visit_docker(TTabSheet *sheet, t_vx_docker_interface docker)
{
    if (sheet)
        (new docker_view(sheet, docker))->start();
}

void vx_dock_panels_tabsheet_leave_docker(TTabSheet *sheet, bool is_dead)
{
    for (int i = 0; sheet && i < sheet->GetComponentCount(); ++i)
        if (auto *const view = dynamic_cast<docker_view *>(sheet->GetComponents(i))) {
            view->leave(is_dead);
            if (sheet->IsDestroying())
                return;
            sheet->SetTabVisible(false);
            sheet->SetVisible(false);
        }
}
