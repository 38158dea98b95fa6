#include "core_fixture.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/core/list.h"

#include <gtest/gtest.h>

using namespace vx;

namespace {
/// A form with three edits, shown.
class edit_form : public TForm
{
public:
    edit_form() : TForm(nullptr)
    {
        for (int i = 0; i < 3; ++i) {
            auto *const edit = new TEdit(this);
            edit->SetParent(this);
            edit->SetBounds(10, 10 + 30 * i, 100, 24);
            edits.push_back(edit);
        }
        Show();
        user_input::wait_idle();
    }
    std::vector<TEdit *> edits;
};

/// Sees every key of a control and acts as told.
struct key_probe
{
    void on_down(TObject *, Word &key, TShiftState shift)
    {
        log.push_back("down " + std::to_string(key) + (shift.Contains(ssCtrl) ? " ctrl" : ""));
        if (key == swallow_down)
            key = 0;
    }
    void on_press(TObject *, wchar_t &key)
    {
        log.push_back("press " + std::to_string(static_cast<int>(key)));
        if (key == L'.' || key == L',')
            key = L';';
        else if (key < L'0' || key > L'9')
            key = 0;
    }
    void on_up(TObject *, Word &key, TShiftState) { log.push_back("up " + std::to_string(key)); }

    event_log log;
    Word swallow_down = 0;
};
} // namespace

TEST(core_keys, key_press_filters_changes_and_swallows)
{
    edit_form form;
    TEdit &edit = *form.edits[0];
    key_probe probe;
    edit.OnKeyPress = make_closure<&key_probe::on_press>(&probe);
    edit.SetFocus();
    user_input::type(L"a1.2,Ж3");
    EXPECT_EQ(edit.GetText(), L"1;2;3");
    EXPECT_EQ(probe.log.size(), 7U) << "each character is offered once";
    EXPECT_EQ(probe.log[5], "press " + std::to_string(static_cast<int>(L'Ж')));
}

TEST(core_keys, down_press_up_in_order_and_down_swallows)
{
    edit_form form;
    TEdit &edit = *form.edits[0];
    key_probe probe;
    edit.OnKeyDown = make_closure<&key_probe::on_down>(&probe);
    edit.OnKeyPress = make_closure<&key_probe::on_press>(&probe);
    edit.OnKeyUp = make_closure<&key_probe::on_up>(&probe);
    edit.SetFocus();
    user_input::press('7');
    EXPECT_EQ(probe.log, (event_log{"down 55", "press 55", "up 55"}));
    EXPECT_EQ(edit.GetText(), L"7");
    probe.log.clear();
    probe.swallow_down = '8';
    user_input::press('8');
    EXPECT_EQ(probe.log, (event_log{"down 56", "up 56"}));
    EXPECT_EQ(edit.GetText(), L"7");
    probe.log.clear();
    user_input::press(VK_DELETE);
    EXPECT_EQ(probe.log, (event_log{"down 46", "up 46"})) << "Delete is no character";
}

TEST(core_keys, preview_comes_before_the_control)
{
    edit_form form;
    key_probe at_form;
    key_probe at_edit;
    form.OnKeyDown = make_closure<&key_probe::on_down>(&at_form);
    form.edits[0]->OnKeyDown = make_closure<&key_probe::on_down>(&at_edit);
    form.edits[0]->SetFocus();
    user_input::press('5');
    EXPECT_TRUE(at_form.log.empty()) << "without preview a form does not see the keys of its controls";
    EXPECT_EQ(at_edit.log.size(), 1U);
    form.SetKeyPreview(true);
    user_input::press('5');
    EXPECT_EQ(at_form.log.size(), 1U);
    EXPECT_EQ(at_edit.log.size(), 2U);
    at_form.swallow_down = '6';
    user_input::press('6');
    EXPECT_EQ(at_edit.log.size(), 2U);
    EXPECT_EQ(form.edits[0]->GetText(), L"55");
}

TEST(core_keys, enter_and_escape_go_to_the_buttons_of_the_form)
{
    struct row
    {
        int key;
        TModalResult result;
    };
    for (row const r : {row{VK_RETURN, mrOk}, row{VK_ESCAPE, mrCancel}}) {
        edit_form form;
        form.Hide();
        auto *const ok = new TButton(&form);
        ok->SetParent(&form);
        ok->SetDefault(true);
        ok->SetModalResult(mrOk);
        auto *const cancel = new TButton(&form);
        cancel->SetParent(&form);
        cancel->SetCancel(true);
        cancel->SetModalResult(mrCancel);
        key_probe probe;
        form.edits[0]->OnKeyDown = make_closure<&key_probe::on_down>(&probe);
        user_input::on_next_modal([&](user_input::modal_window const &) {
            form.edits[0]->SetFocus();
            probe.swallow_down = static_cast<Word>(r.key);
            user_input::press(r.key);
            EXPECT_EQ(form.GetModalResult(), mrNone) << "the control kept the key to itself";
            probe.swallow_down = 0;
            user_input::press(r.key);
        });
        EXPECT_EQ(form.ShowModal(), r.result);
    }
}

TEST(core_focus, enter_and_exit_go_along_the_chain)
{
    event_log log;
    TForm form(nullptr);
    auto *const left = new probe_control(&form, &form, "left", &log);
    auto *const a = new probe_control(&form, left, "a", &log);
    auto *const b = new probe_control(&form, left, "b", &log);
    auto *const right = new probe_control(&form, &form, "right", &log);
    auto *const c = new probe_control(&form, right, "c", &log);
    left->SetTabStop(false);
    form.Show();
    user_input::wait_idle();
    log.clear();
    a->SetFocus();
    log.clear();
    b->SetFocus();
    EXPECT_EQ(log, (event_log{"a exit", "b enter"}));
    log.clear();
    c->SetFocus();
    EXPECT_EQ(log, (event_log{"b exit", "left exit", "right enter", "c enter"}));
    EXPECT_EQ(form.GetActiveControl(), c);
    log.clear();
    c->SetFocus();
    EXPECT_TRUE(log.empty());
    delete c;
    TWinControl *const heir = form.GetActiveControl();
    EXPECT_TRUE(!heir || heir->Focused());
}

TEST(core_focus, exit_handler_may_take_the_focus_back)
{
    struct returner
    {
        TWinControl *control;
        int runs = 0;
        void on_exit(TObject *)
        {
            if (++runs == 1)
                control->SetFocus();
        }
    };
    edit_form form;
    returner back{form.edits[0]};
    form.edits[0]->SetFocus();
    form.edits[0]->OnExit = make_closure<&returner::on_exit>(&back);
    form.edits[1]->SetFocus();
    user_input::wait_idle();
    EXPECT_TRUE(form.edits[0]->Focused());
    EXPECT_EQ(form.GetActiveControl(), form.edits[0]);
    form.edits[1]->SetFocus();
    EXPECT_TRUE(form.edits[1]->Focused());
}

TEST(core_focus, a_control_that_cannot_have_it_does_not_take_it)
{
    edit_form form;
    form.edits[0]->SetFocus();
    form.edits[1]->SetEnabled(false);
    form.edits[1]->SetFocus();
    EXPECT_TRUE(form.edits[0]->Focused());
    form.edits[2]->SetVisible(false);
    form.edits[2]->SetFocus();
    EXPECT_TRUE(form.edits[0]->Focused());
    TForm hidden(nullptr);
    probe_control probe(nullptr, &hidden, "probe");
    probe.SetFocus();
    EXPECT_FALSE(probe.Focused());
    hidden.SetActiveControl(&probe);
    hidden.Show();
    user_input::wait_idle();
    EXPECT_TRUE(probe.Focused()) << "named before the form was shown";
}

TEST(core_tab_order, list_is_depth_first_in_tab_order)
{
    TForm form(nullptr);
    auto *const a = new probe_control(&form, &form, "a");
    auto *const b = new probe_control(&form, &form, "b");
    auto *const inner = new probe_control(&form, a, "inner");
    auto const names = [&form] {
        TList list;
        form.GetTabOrderList(&list);
        std::string text;
        for (int i = 0; i < list.GetCount(); ++i)
            text += static_cast<TWinControl *>(list[i])->GetName().to_utf8() + " ";
        return text;
    };
    EXPECT_EQ(names(), "a inner b ");
    b->SetTabOrder(0);
    EXPECT_EQ(names(), "b a inner ");
    EXPECT_EQ(a->GetTabOrder(), 1);
    b->SetTabOrder(99);
    EXPECT_EQ(b->GetTabOrder(), 1);
    inner->SetTabStop(false);
    inner->SetVisible(false);
    EXPECT_EQ(names(), "a inner b ") << "the list holds what cannot be reached too";
}

TEST(core_tab_order, tab_walks_the_stops_and_wraps)
{
    edit_form form;
    form.edits[1]->SetTabStop(false);
    form.edits[0]->SetFocus();
    user_input::press(VK_TAB);
    EXPECT_TRUE(form.edits[2]->Focused());
    user_input::press(VK_TAB);
    EXPECT_TRUE(form.edits[0]->Focused());
    user_input::press(VK_TAB, {ssShift});
    EXPECT_TRUE(form.edits[2]->Focused());
}

namespace {
struct mouse_probe
{
    explicit mouse_probe(TControl &control)
    {
        control.OnMouseDown = make_closure<&mouse_probe::on_down>(this);
        control.OnMouseUp = make_closure<&mouse_probe::on_up>(this);
        control.OnClick = make_closure<&mouse_probe::on_click>(this);
        control.OnDblClick = make_closure<&mouse_probe::on_dbl_click>(this);
    }
    void on_down(TObject *, TMouseButton button, TShiftState shift, int x, int y)
    {
        log.push_back("down " + std::to_string(button) + " " + std::to_string(x) + "," + std::to_string(y) +
                      (shift.Contains(ssDouble) ? " double" : ""));
    }
    void on_up(TObject *, TMouseButton button, TShiftState, int, int)
    {
        log.push_back("up " + std::to_string(button));
    }
    void on_click(TObject *sender)
    {
        log.push_back("click");
        if (frees_sender)
            delete sender;
    }
    void on_dbl_click(TObject *) { log.push_back("dblclick"); }

    event_log log;
    bool frees_sender = false;
};
} // namespace

TEST(core_mouse, events_come_in_the_order_of_the_toolkit)
{
    TForm form(nullptr);
    auto *const probe = new probe_control(&form, &form, "probe");
    probe->SetBounds(20, 30, 80, 40);
    form.Show();
    user_input::wait_idle();
    mouse_probe mouse(*probe);
    user_input::click(probe, 5, 6);
    EXPECT_EQ(mouse.log, (event_log{"down 0 5,6", "click", "up 0"}));
    mouse.log.clear();
    user_input::click(probe, 5, 6, mbRight);
    EXPECT_EQ(mouse.log, (event_log{"down 1 5,6", "up 1"}));
    mouse.log.clear();
    user_input::double_click(probe, 7, 8);
    EXPECT_EQ(mouse.log, (event_log{"down 0 7,8", "click", "up 0", "dblclick", "down 0 7,8 double", "up 0"}));
    mouse.log.clear();
    user_input::mouse_down(probe, 5, 5);
    user_input::mouse_up(probe, 500, 500);
    EXPECT_EQ(mouse.log, (event_log{"down 0 5,5", "up 0"})) << "released outside: no click";
    mouse.log.clear();
    probe->SetEnabled(false);
    user_input::click(probe, 5, 6);
    EXPECT_TRUE(mouse.log.empty());
}

TEST(core_mouse, a_control_may_be_freed_by_its_own_click)
{
    TForm form(nullptr);
    auto *const probe = new probe_control(&form, &form, "probe");
    auto *const edit = new TEdit(&form);
    edit->SetParent(&form);
    edit->SetBounds(0, 100, 80, 24);
    form.Show();
    user_input::wait_idle();
    for (TControl *const victim : {static_cast<TControl *>(probe), static_cast<TControl *>(edit)}) {
        mouse_probe mouse(*victim);
        mouse.frees_sender = true;
        user_input::click(victim);
        EXPECT_EQ(mouse.log.back(), "click");
    }
    EXPECT_EQ(form.GetControlCount(), 0);
}

TEST(core_mouse, dragging_goes_from_control_to_control)
{
    struct dropper
    {
        event_log log;
        void on_over(TObject *, TObject *, int, int, TDragState state, bool &accept)
        {
            if (state == dsDragEnter)
                log.push_back("enter");
            accept = true;
        }
        void on_drop(TObject *, TObject *, int x, int y)
        {
            log.push_back("drop " + std::to_string(x) + "," + std::to_string(y));
        }
        void on_end(TObject *, TObject *target, int, int) { log.push_back(target ? "end on target" : "end"); }
    } dropper;
    TForm form(nullptr);
    auto *const from = new probe_control(&form, &form, "from");
    auto *const to = new probe_control(&form, &form, "to");
    to->SetBounds(100, 100, 60, 60);
    from->SetDragMode(dmAutomatic);
    from->OnEndDrag = make_closure<&dropper::on_end>(&dropper);
    to->OnDragOver = make_closure<&dropper::on_over>(&dropper);
    to->OnDragDrop = make_closure<&dropper::on_drop>(&dropper);
    form.Show();
    user_input::wait_idle();
    user_input::drag(from, 5, 5, to, 30, 40);
    EXPECT_EQ(dropper.log, (event_log{"enter", "drop 30,40", "end on target"}));
}
