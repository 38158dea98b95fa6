#include "extension/vxk_extension.h"
#include "extension_models.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

#include "platform/dialogs/vx_dock_panels.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/group_box.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/core/strings.h"

namespace {
/// An element of a family: its texts, and what was done to it.
template <class Impl>
struct element : Impl
{
    explicit element(wchar_t const *of_element) : text(of_element) {}
    void reattach(vx::element_view new_view) override { view = new_view; }
    std::wstring text;
    vx::element_view view;

protected:
    ~element() = default;
};
struct label final : element<vx::label_impl>
{
    using element::element;
    void with_caption(vx::string_visitor visitor) override { visitor.visit(text.c_str()); }
};
struct output final : element<vx::output_impl>
{
    using element::element;
    void with_text(vx::string_visitor visitor) override { visitor.visit(text.c_str()); }
};
struct button final : element<vx::button_impl>
{
    using element::element;
    void with_caption(vx::string_visitor visitor) override { visitor.visit(text.c_str()); }
    bool enabled() override { return is_enabled; }
    void click() override { on_click(); }
    bool is_enabled = true;
    std::function<void()> on_click;
};
struct checkbox final : element<vx::checkbox_impl>
{
    using element::element;
    void with_caption(vx::string_visitor visitor) override { visitor.visit(text.c_str()); }
    bool checked() override { return is_checked; }
    void set_checked(bool checked) override { is_checked = checked, ++sets; }
    bool is_checked = true;
    int sets = 0;
};
struct group final : element<vx::groupbox_impl>
{
    using element::element;
    void with_caption(vx::string_visitor visitor) override { visitor.visit(text.c_str()); }
    void with_element(vx::element_visitor visitor) override { content(visitor); }
    std::function<void(vx::element_visitor)> content;
};
struct grid final : element<vx::grid_layout_impl>
{
    using element::element;
    int column_count() override { return 2; }
    int row_count() override { return rows; }
    bool column_avid(int column) override { return column == 1; }
    bool row_visible(int row) override { return row != hidden_row; }
    void with_element(int column, int row, vx::element_visitor visitor) override
    {
        cell(column, row, visitor);
    }
    int rows = 2;
    int hidden_row = -1;
    std::function<void(int, int, vx::element_visitor)> cell;
};

template <class Control>
std::vector<Control *> all_below(TWinControl *parent)
{
    std::vector<Control *> result;
    for (int i = 0; i < parent->GetControlCount(); ++i) {
        if (auto *const found = dynamic_cast<Control *>(parent->GetControls(i)))
            result.push_back(found);
        if (auto *const inner = dynamic_cast<TWinControl *>(parent->GetControls(i)))
            for (auto *const found : all_below<Control>(inner))
                result.push_back(found);
    }
    return result;
}

class dockers : public extension_fixture
{
protected:
    void open_docker(std::function<void(vx::element_visitor)> element)
    {
        shown = &offering.add_docker(L"docker", L"panel");
        shown->element = std::move(element);
        open({&offering});
        sheet = pages.GetPages(0);
    }
    models::service offering;
    models::docker *shown = nullptr;
    TTabSheet *sheet = nullptr;
};
} // namespace

TEST_F(dockers, elements_are_shown_worked_and_read_anew)
{
    label name(L"Objects");
    output number(L"12");
    button act(L"Count");
    checkbox all(L"All");
    group frame(L"Layer");
    grid cells(L"");
    frame.content = [&](vx::element_visitor visitor) { visitor.visit_grid_layout(cells); };
    cells.cell = [&](int column, int row, vx::element_visitor visitor) {
        if (row == 0 && column == 0)
            visitor.visit_label(name);
        else if (row == 0)
            visitor.visit_output(number);
        else if (column == 0)
            visitor.visit_button(act);
        else
            visitor.visit_checkbox(all);
    };
    act.on_click = [&] {
        number.text = L"13";
        shown->view.update_data();
    };
    open_docker([&](vx::element_visitor visitor) { visitor.visit_groupbox(frame); });
    EXPECT_EQ(all_below<TGroupBox>(sheet).at(0)->GetCaption(), L"Layer");
    EXPECT_EQ(all_below<TLabel>(sheet).at(0)->GetCaption(), L"Objects");
    auto *const edit = all_below<TEdit>(sheet).at(0);
    EXPECT_EQ(edit->GetText(), L"12");
    EXPECT_TRUE(edit->GetReadOnly());
    auto *const box = all_below<TCheckBox>(sheet).at(0);
    EXPECT_TRUE(box->GetChecked());
    EXPECT_EQ(all.sets, 0);
    ASSERT_TRUE(input::click(box, 8, box->GetHeight() / 2));
    EXPECT_FALSE(all.is_checked);
    EXPECT_EQ(all.sets, 1);
    ASSERT_TRUE(input::click(all_below<TButton>(sheet).at(0)));
    EXPECT_EQ(edit->GetText(), L"13");
    act.is_enabled = false;
    act.view.update_state();
    EXPECT_FALSE(all_below<TButton>(sheet).at(0)->GetEnabled());
    cells.hidden_row = 1;
    cells.view.update_state();
    input::wait_idle();
    EXPECT_EQ(box->GetHeight(), 0);

    // The docker puts something else in its place, in the middle of a click.
    act.is_enabled = true;
    cells.hidden_row = -1;
    act.on_click = [&] {
        shown->element = [&](vx::element_visitor visitor) { visitor.visit_label(name); };
        shown->view.update_appearance();
    };
    shown->view.update_appearance();
    input::wait_idle();
    ASSERT_TRUE(input::click(all_below<TButton>(sheet).at(0)));
    EXPECT_EQ(all_below<TLabel>(sheet).size(), 1u);
    EXPECT_TRUE(all_below<TButton>(sheet).empty());
    EXPECT_FALSE(act.view);
    EXPECT_TRUE(name.view);
    custom.reset();
    EXPECT_FALSE(name.view);
}

TEST_F(dockers, a_text_of_many_lines_scrolls)
{
    struct lines_of final : element<vx::multiline_output_impl>
    {
        using element::element;
        void with_text(vx::string_visitor visitor) override { visitor.visit(text.c_str()); }
    } lines(L"one\ntwo");
    struct scroll final : element<vx::scroll_layout_impl>
    {
        using element::element;
        void with_element(vx::element_visitor visitor) override { visitor.visit_multiline_output(*content); }
        bool visible() override { return is_visible; }
        lines_of *content = nullptr;
        bool is_visible = true;
    } box(L"");
    box.content = &lines;
    open_docker([&](vx::element_visitor visitor) { visitor.visit_v_scroll_layout(box); });
    auto *const memo = all_below<TMemo>(sheet).at(0);
    EXPECT_EQ(memo->GetLines()->GetCount(), 2);
    EXPECT_TRUE(memo->GetShowing() && memo->GetReadOnly());
    lines.text += L"\nthree";
    lines.view.update_data();
    EXPECT_EQ(memo->GetLines()->GetCount(), 3);
    box.is_visible = false;
    box.view.update_state();
    EXPECT_FALSE(memo->GetShowing());
}

TEST_F(dockers, what_cannot_be_shown_and_what_has_no_end_is_a_line)
{
    group endless(L"again");
    grid huge(L"");
    huge.rows = 2'000'000'000;
    huge.cell = [](int, int, vx::element_visitor) {};
    endless.content = [&](vx::element_visitor visitor) { visitor.visit_groupbox(endless); };
    int kind = 0;
    open_docker([&](vx::element_visitor visitor) {
        if (kind == 0)
            visitor.visit_slider({});
        else if (kind == 1)
            visitor.visit_groupbox(endless);
        else if (kind == 2)
            visitor.visit_grid_layout(huge);
    });
    for (kind = 0; kind < 2; ++kind) {
        shown->view.update_appearance();
        ASSERT_EQ(all_below<TLabel>(sheet).size(), 1u) << kind;
        EXPECT_EQ(all_below<TLabel>(sheet)[0]->GetCaption(), L"This part of the panel cannot be shown here.");
    }
    shown->view.update_appearance(); // takes some moments, not for ever
    kind = 3;
    shown->view.update_appearance();
    EXPECT_TRUE(all_below<TLabel>(sheet).empty());
}

TEST_F(dockers, a_dead_docker_and_its_elements_are_left_alone)
{
    struct dead_label final : element<vx::label_impl>
    {
        using element::element;
        void reattach(vx::element_view new_view) override { models::touched_dead += !new_view; }
    } name(L"x");
    open_docker([&](vx::element_visitor visitor) { visitor.visit_label(name); });
    offering.die();
    EXPECT_TRUE(tabs().empty());
    custom.reset(); // the fixture sees that nothing was touched
}

namespace {
/// A page of a module's own, shown for its docker.
class own_page final : public Tvx_basic_lr2d_edit
{
public:
    explicit own_page(TComponent *owner) : Tvx_basic_lr2d_edit(owner) { ++living; }
    ~own_page() override { --living; }
    void load_res() override {}
    void update_controls() override {}
    void end_edit(bool taken) override { ended.push_back(taken); }
    static inline int living = 0;
    static inline std::vector<bool> ended;
};

class control_dockers : public dockers
{
protected:
    control_dockers() { own_page::ended.clear(); }
    ~control_dockers() override
    {
        if (shown)
            vx_dock_panels_offer_control(*shown, {});
        custom.reset();
        EXPECT_EQ(own_page::living, 0);
    }
    TWinControl *make(TWinControl *parent)
    {
        ++asked;
        EXPECT_EQ(parent, pages.GetPages(0));
        if (gives == nothing)
            return nullptr;
        auto *const page = new own_page(gives == without_owner ? nullptr : parent);
        page->SetParent(parent);
        if (gives == fault)
            throw std::runtime_error("cannot be made");
        return page;
    }
    void offer() { vx_dock_panels_offer_control(*shown, make_closure<&control_dockers::make>(this)); }
    void open_offered(bool visible = true)
    {
        shown = &offering.add_docker(L"docker", L"panel");
        shown->element = [](vx::element_visitor) { ADD_FAILURE() << "the element has no place"; };
        shown->shown = visible;
        offer();
        open({&offering});
        sheet = pages.GetPages(0);
    }

    enum
    {
        owned,
        without_owner,
        nothing,
        fault
    } gives = owned;
    int asked = 0;
};
} // namespace

TEST_F(control_dockers, a_control_is_asked_for_when_it_is_first_seen)
{
    gives = without_owner;
    open_offered(false);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(tabs().empty());
    shown->shown = true;
    shown->view.update_state();
    input::wait_idle();
    EXPECT_EQ(tabs(), tab_list{L"panel"});
    auto *const page = all_below<own_page>(sheet).at(0);
    EXPECT_EQ(page->GetWidth(), sheet->GetClientWidth());
    EXPECT_EQ(page->GetHeight(), sheet->GetClientHeight());
    shown->caption = L"other";
    shown->view.update_appearance();
    shown->view.update_state();
    EXPECT_EQ(tabs(), tab_list{L"other"});
    EXPECT_EQ(all_below<own_page>(sheet), std::vector<own_page *>{page}) << "one for the sheet's life";
    EXPECT_EQ(asked, 1);
    custom->end_edit(true);
    custom->end_edit(false);
    EXPECT_EQ(own_page::ended, (std::vector<bool>{true, false}));
    // Its maker ends it; the sheet does not miss it.
    delete page;
    shown->view.update_state();
    custom.reset();
}

TEST_F(control_dockers, whoever_ends_first)
{
    open_offered();
    EXPECT_EQ(own_page::living, 1);
    custom.reset(); // the sheet: the control goes with it
    EXPECT_EQ(own_page::living, 0);
    open({&offering});
    EXPECT_EQ(own_page::living, 1) << "an offer stands until it is taken back";
    sheet = pages.GetPages(0);
    shown->element = {};
    vx_dock_panels_offer_control(*shown, {});
    EXPECT_EQ(own_page::living, 0) << "what was made goes with the offer";
    vx_dock_panels_offer_control(*shown, {});
    offer();
    EXPECT_EQ(own_page::living, 1) << "an offer that comes late";
    // The docker: the offer first, then itself.
    vx_dock_panels_offer_control(*shown, {});
    offering.die();
    EXPECT_TRUE(tabs().empty());
    EXPECT_EQ(own_page::living, 0);
}

TEST_F(control_dockers, nothing_to_show_and_a_maker_that_throws)
{
    gives = nothing;
    open_offered();
    EXPECT_EQ(tabs(), tab_list{L"panel"});
    shown->view.update_state();
    EXPECT_EQ(asked, 1);
    custom.reset();
    gives = fault;
    open({&offering});
    EXPECT_TRUE(tabs().empty());
    EXPECT_EQ(own_page::living, 0);
    EXPECT_TRUE(input::wait_until([] { return told.size() == 1; })) << "the service is left out, once";
    // In the middle of a change of the layer.
    gives = fault;
    shown->shown = false;
    open({&offering});
    offering.on_layer = [this](Ivx_layer *) {
        shown->shown = true;
        shown->view.update_state();
    };
    custom->set_layer(nullptr);
    EXPECT_TRUE(tabs().empty());
    EXPECT_TRUE(input::wait_until([] { return told.size() == 2; }));
    custom.reset();
    offering.on_layer = {};
}
