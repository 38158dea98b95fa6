#include "controls/forms/apply_form.h"
#include "controls/forms/dock_grip.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "tests/layer_edit/page_set/page_set_fixture.h"
#include "user_input/user_input.h"

#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/screen.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>

namespace input = vx::user_input;

namespace {
using handle = vx::owned<Tvx_lr2d_edit_form, &vx_lr2d_edt_form_destroy>;

/// What a host does in its callback, and what it sees there.
struct host
{
    explicit host(Tvx_lr2d_edit_form *form) : form(form)
    {
        vx_lr2d_edt_form_set_callback(form, this, &host::apply);
    }

    static void apply(void *data)
    {
        auto *self = static_cast<host *>(data);
        ++self->calls;
        self->seen = vx_lr2d_edt_form_get_lr2d_ptr(self->form);
        if (self->new_name)
            vx_lr2d_set_wcaption(self->seen, self->new_name);
        if (self->updates)
            vx_lr2d_edt_form_update(self->form);
        self->title_inside = self->form->get_form()->GetCaption();
    }

    Tvx_lr2d_edit_form *form;
    int calls = 0;
    Ivx_layer *seen = nullptr;
    wchar_t const *new_name = nullptr;
    bool updates = false;
    UnicodeString title_inside;
};

test_layer named_layer(wchar_t const *name, char const *key = "shp_pnt_lr2d")
{
    test_layer layer(vx_lr2d_create(key));
    vx_lr2d_set_wcaption(layer.get(), name);
    return layer;
}

UnicodeString title(handle const &form)
{
    return form->get_form()->GetCaption();
}

/// A record whose page set has test pages.
class record_with_pages : public Tvx_lr2d_edit_form
{
public:
    using Tvx_lr2d_edit_form::Tvx_lr2d_edit_form;
    Tvx_lr2d_edit *create_lr2d_edit() override
    {
        static constexpr vx::lr2d_edit_parts parts = {c_test_pages};
        return new Tvx_lr2d_edit(nullptr, parts);
    }
};
} // namespace

TEST(edit_form, the_road_of_one_change)
{
    test_layer layer(vx_shp_lr2d_create("shp_pgn_lr2d", L"" VX_EXAMPLE_DATA "/nc.shp"));
    vx_lr2d_set_wcaption(layer.get(), L"Counties");
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    host listener(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), layer.get());
    EXPECT_EQ(title(form), L"Layer properties: ") << "setting the layer does not touch the title";
    vx_lr2d_edt_form_update(form.get());
    EXPECT_EQ(title(form), L"Layer properties: Counties");
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(form.get()));
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    EXPECT_TRUE(vx_lr2d_edt_form_get_showing(form.get()));

    auto *copy = vx_lr2d_edt_form_get_lr2d_ptr(form.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, layer.get());
    EXPECT_TRUE(input::click(form->get_form()->get_apply_btn()));
    EXPECT_EQ(listener.calls, 1);
    EXPECT_EQ(listener.seen, copy);
    EXPECT_TRUE(input::click(form->get_form()->get_apply_btn()));
    EXPECT_EQ(listener.calls, 2);
    EXPECT_FALSE(form->get_form()->get_cancel_btn()->GetVisible());
    EXPECT_TRUE(vx_lr2d_edt_form_get_showing(form.get())) << "Apply does not close";

    vx_lr2d_edt_form_hide(form.get());
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(form.get()));
    vx_lr2d_edt_form_show(form.get());
    EXPECT_TRUE(vx_lr2d_edt_form_get_showing(form.get()));
    EXPECT_TRUE(input::close(form->get_form()));
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(form.get()));
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), copy) << "closing hides";
}

TEST(edit_form, an_update_inside_the_callback_waits_for_its_end)
{
    page_set_log.clear();
    handle form(new record_with_pages);
    vx_lr2d_edt_form_create_all(form.get());
    host listener(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"old", "tos_grid_lr2d").get());
    vx_lr2d_edt_form_update(form.get());
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    listener.new_name = L"new";
    listener.updates = true;
    page_set_log.clear();
    EXPECT_TRUE(input::click(form->get_form()->get_apply_btn()));
    EXPECT_EQ(listener.title_inside, L"Layer properties: old");
    EXPECT_EQ(title(form), L"Layer properties: new");
    EXPECT_EQ(page_set_log, (std::vector<std::string>{"tos_grid save", "tos_grid show"}));

    page_set_log.clear();
    vx_lr2d_edt_form_set_callback(form.get(), nullptr, nullptr);
    EXPECT_TRUE(input::click(form->get_form()->get_apply_btn()));
    EXPECT_EQ(page_set_log, (std::vector<std::string>{"tos_grid save", "tos_grid show"}))
        << "without a callback";
    EXPECT_EQ(listener.calls, 1);
}

TEST(edit_form, only_what_the_map_must_show_at_once_calls_the_host)
{
    handle form(new record_with_pages);
    vx_lr2d_edt_form_create_all(form.get());
    host listener(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"grid", "tos_grid_lr2d").get());
    auto *page = static_cast<test_page *>(form->get_lr2d_edit()->get_page(vx::lr2d_page::tos_grid));
    page->call_changed();
    EXPECT_EQ(listener.calls, 0);
    page->notify = true;
    page->updates = 0;
    page->call_changed();
    EXPECT_EQ(listener.calls, 1);
    EXPECT_EQ(page->updates, 0) << "no refresh follows a live change";
    listener.updates = true;
    page->call_changed();
    EXPECT_EQ(page->updates, 1) << "and the host may ask for one";
}

TEST(edit_form, each_layer_gives_a_new_copy)
{
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    auto layer = named_layer(L"one");
    vx_lr2d_edt_form_set_lr2d(form.get(), layer.get());
    auto *first = vx_lr2d_edt_form_get_lr2d_ptr(form.get());
    vx_lr2d_set_wcaption(first, L"changed here");
    vx_lr2d_edt_form_set_lr2d(form.get(), layer.get());
    vx_lr2d_edt_form_update(form.get());
    EXPECT_EQ(title(form), L"Layer properties: one") << "the host's layer was read again";
    layer.reset(); // the host drops its layer while the editor shows it
    vx_lr2d_edt_form_update(form.get());
    EXPECT_EQ(title(form), L"Layer properties: one");
    vx_lr_post_update(vx_lr2d_edt_form_get_lr2d_ptr(form.get()));
    vx_lr2d_edt_form_set_lr2d(form.get(), nullptr);
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), nullptr);
    vx_lr2d_edt_form_update(form.get());
    EXPECT_EQ(title(form), L"Layer properties: ");
}

TEST(edit_form, a_name_is_no_format)
{
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    for (auto const *name : {L"100%s %n %%", L"a & b && c", L"\x416\x4d6 \xe9"}) {
        vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(name).get());
        vx_lr2d_edt_form_update(form.get());
        EXPECT_EQ(title(form), UnicodeString(L"Layer properties: ") + name);
    }
}

TEST(edit_form, a_hosted_form_stays_the_hosts)
{
    auto own = std::make_unique<Tvx_apply_form>(nullptr);
    own->SetBounds(0, 0, 500, 400);
    own->SetCaption(L"The host's title");
    auto const drag_kind = own->GetDragKind();
    handle form(vx_lr2d_edt_form_create_hosted(own.get()));
    vx_lr2d_edt_form_create_all(form.get());
    host listener(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_update(form.get());
    vx_lr2d_edt_form_show_pos(form.get(), 10, 10);
    EXPECT_TRUE(input::click(own->get_apply_btn()));
    EXPECT_EQ(listener.calls, 1);
    EXPECT_EQ(own->GetCaption(), L"The host's title");
    EXPECT_EQ(own->GetDragKind(), drag_kind);
    form.reset();
    EXPECT_TRUE(own->GetShowing());
    EXPECT_EQ(own->GetCaption(), L"The host's title");
    EXPECT_TRUE(input::click(own->get_apply_btn())) << "nobody listens any more";
    EXPECT_EQ(listener.calls, 1);

    form.reset(vx_lr2d_edt_form_create_hosted(own.get()));
    vx_lr2d_edt_form_create_all(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    own.reset(); // the host closes its window before it ends the record
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), nullptr);
    vx_lr2d_edt_form_update(form.get());
    vx_lr2d_edt_form_show(form.get());
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(form.get()));
}

TEST(edit_form, docks_at_the_bottom_and_survives_its_site)
{
    auto window = std::make_unique<TForm>(nullptr);
    window->SetBounds(0, 0, 800, 600);
    auto *site = new Tvx_panel(window.get());
    site->SetParent(window.get());
    site->SetAlign(alClient);
    site->SetDockSite(true);
    window->Show();
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    EXPECT_EQ(form->get_form()->GetDragKind(), dkDock);
    EXPECT_EQ(form->get_form()->GetDragMode(), dmAutomatic);
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_dock(form.get(), site);
    vx_lr2d_edt_form_show(form.get());
    EXPECT_EQ(form->get_form()->GetHostDockSite(), site);
    EXPECT_TRUE(vx_lr2d_edt_form_get_showing(form.get()));
    EXPECT_TRUE(input::click(form->get_form()->get_apply_btn()));
    window.reset();
    vx_lr2d_edt_form_update(form.get());
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(form.get()));
}

TEST(edit_form, is_docked_and_undocked_by_hand)
{
    TForm window(nullptr);
    window.SetBounds(0, 0, 800, 600);
    auto *site = new Tvx_panel(&window);
    site->SetParent(&window);
    site->SetBounds(50, 50, 700, 400);
    site->SetDockSite(true);
    window.Show();
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_show_pos(form.get(), 1000, 100);
    auto *own = form->get_form();
    auto *grip = own->ControlAtPos({100, 3}, false);
    ASSERT_NE(dynamic_cast<Tvx_dock_grip *>(grip), nullptr);
    EXPECT_TRUE(input::drag(grip, 100, 4, site, 300, 390));
    EXPECT_EQ(own->GetHostDockSite(), site);
    EXPECT_TRUE(vx_lr2d_edt_form_get_showing(form.get()));
    input::wait_idle();
    EXPECT_TRUE(input::drag(grip, 100, 4, 1100, 300));
    EXPECT_EQ(own->GetHostDockSite(), nullptr);
    EXPECT_TRUE(own->GetFloating());
    input::wait_idle();
    int const left = own->GetLeft();
    int const top = own->GetTop();
    EXPECT_TRUE(input::drag(grip, 100, 4, 160, 64));
    EXPECT_NEAR(own->GetLeft(), left + 60, 12) << "elsewhere it moves the window";
    EXPECT_NEAR(own->GetTop(), top + 60, 12);
}

TEST(edit_form, opens_in_its_pages_and_within_the_screen)
{
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    input::wait_idle();
    auto *own = form->get_form();
    ASSERT_NE(own->GetActiveControl(), nullptr);
    EXPECT_TRUE(form->get_lr2d_edit()->ContainsControl(own->GetActiveControl()));
    TRect const area = Screen->GetWorkAreaRect();
    EXPECT_LT(own->GetHeight(), area.Height());
    EXPECT_LE(own->GetWidth(), area.Width());
    EXPECT_GT(own->GetTop(), area.Top) << "the title bar has room";
}

TEST(edit_form, calls_ahead_of_their_time_are_quiet)
{
    handle form(vx_lr2d_edt_form_create());
    auto const layer = named_layer(L"layer");
    vx_lr2d_edt_form_set_lr2d(form.get(), layer.get());
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), nullptr);
    vx_lr2d_edt_form_update(form.get());
    vx_lr2d_edt_form_create_all(form.get());
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), nullptr) << "it was ignored, not kept";
    vx_lr2d_edt_form_set_lr2d(form.get(), layer.get());
    auto *copy = vx_lr2d_edt_form_get_lr2d_ptr(form.get());
    vx_lr2d_edt_form_create_all(form.get());
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), copy) << "a second time does nothing";
}

TEST(edit_form, a_page_that_cannot_be_made_leaves_no_half_page_set)
{
    class failing_record : public Tvx_lr2d_edit_form
    {
    public:
        Tvx_lr2d_edit *create_lr2d_edit() override
        {
            static constexpr vx::lr2d_page_factory pages[] = {
                {vx::lr2d_page::rtr, [](TComponent *) -> Tvx_basic_lr2d_edit * { throw std::bad_alloc(); }}};
            static constexpr vx::lr2d_edit_parts parts = {pages};
            return new Tvx_lr2d_edit(nullptr, parts);
        }
    };
    handle form(new failing_record);
    vx_lr2d_edt_form_create_all(form.get());
    EXPECT_EQ(form->get_lr2d_edit(), nullptr);
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_update(form.get());
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(form.get()), nullptr);
}

TEST(edit_form, null_handles_are_quiet)
{
    vx_lr2d_edt_form_destroy(nullptr);
    vx_lr2d_edt_form_create_all(nullptr);
    vx_lr2d_edt_form_set_lr2d(nullptr, named_layer(L"layer").get());
    vx_lr2d_edt_form_set_callback(nullptr, nullptr, nullptr);
    vx_lr2d_edt_form_update(nullptr);
    vx_lr2d_edt_form_show_pos(nullptr, 1, 1);
    vx_lr2d_edt_form_dock(nullptr, nullptr);
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(nullptr), nullptr);
    EXPECT_EQ(vx_lr2d_edt_form_get_width(nullptr), 0);
    handle formless(vx_lr2d_edt_form_create_hosted(nullptr));
    vx_lr2d_edt_form_create_all(formless.get());
    vx_lr2d_edt_form_show_pos(formless.get(), 1, 1);
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(formless.get()));
}

TEST(edit_form, is_worked_by_keyboard)
{
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    host listener(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    input::wait_idle();
    auto *pages = form->get_lr2d_edit()->get_pages();
    ASSERT_TRUE(input::tab_to(pages));
    EXPECT_EQ(pages->GetActivePage()->GetName(), L"f_style_ts");
    EXPECT_TRUE(input::press(VK_RIGHT));
    EXPECT_EQ(pages->GetActivePage()->GetName(), L"f_text_mngr");
    ASSERT_TRUE(input::tab_to(form->get_form()->get_apply_btn()));
    EXPECT_TRUE(input::press(VK_SPACE));
    EXPECT_EQ(listener.calls, 1);
    EXPECT_TRUE(input::press(L'A', TShiftState{ssAlt}));
    EXPECT_TRUE(input::wait_until([&] { return listener.calls == 2; }));
    EXPECT_EQ(pages->GetActivePage()->GetName(), L"f_text_mngr") << "the tab stays across Apply";
    input::press(VK_ESCAPE);
    EXPECT_FALSE(vx_lr2d_edt_form_get_showing(form.get())) << "Esc closes the window";
}

TEST(edit_form, the_host_may_hand_in_another_layer_from_its_callback)
{
    static test_layer const other = named_layer(L"other", "rtr_lr2d");
    handle form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), named_layer(L"layer").get());
    vx_lr2d_edt_form_set_callback(form.get(), form.get(), [](void *data) {
        vx_lr2d_edt_form_set_lr2d(static_cast<Tvx_lr2d_edit_form *>(data), other.get());
    });
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    EXPECT_TRUE(input::click(form->get_form()->get_apply_btn()));
    EXPECT_EQ(title(form), L"Layer properties: other");
    EXPECT_STREQ(vx_lr2d_get_lr_type(vx_lr2d_edt_form_get_lr2d_ptr(form.get())), "rtr_lr2d");
}

TEST(edit_form, ends_while_it_is_docked)
{
    TForm window(nullptr);
    window.SetBounds(0, 0, 800, 600);
    window.SetDockSite(true);
    window.Show();
    {
        handle form(vx_lr2d_edt_form_create());
        vx_lr2d_edt_form_create_all(form.get());
        vx_lr2d_edt_form_dock(form.get(), &window);
        vx_lr2d_edt_form_show(form.get());
        EXPECT_EQ(window.GetDockClientCount(), 1);
    }
    input::wait_idle();
    EXPECT_EQ(window.GetDockClientCount(), 0);
    EXPECT_EQ(window.GetControlCount(), 0);
}
