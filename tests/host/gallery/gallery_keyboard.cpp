#include "gallery_walk.h"

#include "platform/toolkit/controls/category_panel_group.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/scroll_box.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextEdit>

#include <algorithm>
#include <set>

using namespace vx_test;

namespace {
class gallery_keyboard : public testing::TestWithParam<char const *>
{
protected:
    gallery_keyboard() { vx_options_set_language(GetParam()); }
    ~gallery_keyboard() override { vx_options_set_language("en"); }
};

/// Of the choices of a group one is a stop, for all of them.
bool is_other_choice(TControl *control, std::set<TWinControl *> const &visited)
{
    return dynamic_cast<TRadioButton *>(control) &&
           std::any_of(visited.begin(), visited.end(), [control](TWinControl *other) {
               return dynamic_cast<TRadioButton *>(other) && other->GetParent() == control->GetParent();
           });
}

/// Forms that say another order themselves, with the reason.
bool has_own_order(std::string const &name)
{
    // From the list straight to what is said about its chosen line.
    return name == "dialog Managers of a list" || name.starts_with("dialog Text style");
}

std::string spoken_name(stop const &s)
{
    // A combo box gives its text for its name and is known by the label that leads to it.
    if (qobject_cast<QComboBox *>(s.widget))
        return s.name();
    QAccessibleInterface *const access = QAccessible::queryAccessibleInterface(s.widget);
    return access ? access->text(QAccessible::Name).toStdString() : std::string();
}
} // namespace

TEST_P(gallery_keyboard, tab_goes_round_all_controls_in_reading_order_and_each_has_a_name)
{
    visit_gallery([](shown const &view) {
        SCOPED_TRACE(view.name);
        begin_round(view.scope);
        QPointer<QWidget> former;
        QImage focused;
        auto const look = [&](stop const &s) {
            std::string const name = spoken_name(s);
            EXPECT_FALSE(name.empty()) << typeid(*s.control).name() << " without a name";
            EXPECT_EQ(name.find("..."), std::string::npos) << name;
            // Where the keys go can be seen.
            if (former) {
                EXPECT_TRUE(focused != picture(former))
                    << "the focus cannot be seen on \""
                    << vx_control_of(former)->GetAccessibleName().to_utf8() << "\", a "
                    << typeid(*vx_control_of(former)).name();
            }
            former = s.widget;
            focused = picture(s.widget);
        };
        std::vector<stop> const stops = round(view.scope, true, look);
        if (!has_own_order(view.name))
            expect_reading_order(stops);

        std::set<TWinControl *> const visited = controls_of(stops);
        EXPECT_EQ(visited.size(), stops.size()) << "a control is two stops";
        for (TWinControl *const control : focusable(view.scope))
            EXPECT_TRUE(visited.contains(control) || is_other_choice(control, visited))
                << "Tab does not reach \"" << control->GetAccessibleName().to_utf8() << "\", a "
                << typeid(*control).name();

        std::vector<stop> back = round(view.scope, false);
        // Both rounds begin at the same place.
        std::reverse(back.begin(), back.end());
        if (!back.empty() && !stops.empty() && back.back().widget == stops.front().widget)
            std::rotate(back.begin(), back.end() - 1, back.end());
        EXPECT_TRUE(std::equal(stops.begin(), stops.end(), back.begin(), back.end(),
                               [](stop const &a, stop const &b) { return a.widget == b.widget; }))
            << "Shift+Tab goes another way";
    });
}

INSTANTIATE_TEST_SUITE_P(languages, gallery_keyboard, testing::Values("en", "ru"));

namespace {
struct click_counter
{
    void on_click(TObject *) { ++clicks; }

    int clicks = 0;
};

/// What the button does is not wanted here, only that it is asked to.
void expect_pressed_by_keys(stop const &s)
{
    std::vector<int> keys{VK_SPACE};
    if (!dynamic_cast<TCustomCheckBox *>(s.control))
        keys.push_back(VK_RETURN);
    auto *const form = GetParentForm(s.control);
    TModalResult const result = form->GetModalResult();
    TNotifyEvent const kept = s.control->OnClick;
    for (int const key : keys) {
        click_counter counter;
        s.control->OnClick = make_closure<&click_counter::on_click>(&counter);
        // A button may open a dialog by itself.
        input::on_next_modal([](input::modal_window const &window) { window.reject(); });
        EXPECT_TRUE(input::press(key));
        input::forget_pending_modals();
        EXPECT_EQ(counter.clicks, 1) << '"' << s.name() << "\", key " << key;
        form->SetModalResult(result);
    }
    s.control->OnClick = kept;
}

void expect_list_opens(stop const &s)
{
    auto const *const view = qobject_cast<QComboBox *>(s.widget)->view();
    EXPECT_TRUE(input::press(VK_DOWN, {ssAlt}));
    EXPECT_TRUE(view->isVisible()) << '"' << s.name() << "\" does not open";
    EXPECT_TRUE(input::press(VK_ESCAPE));
    EXPECT_FALSE(view->isVisible()) << s.name();
    EXPECT_EQ(QApplication::focusWidget(), s.widget);
}

/// Something can be seen to happen by one of the keys.
void expect_moved_by(stop const &s, std::initializer_list<int> keys)
{
    QImage const before = picture(s.widget);
    QRect const place = s.place();
    bool moved = false;
    for (int const key : keys) {
        EXPECT_TRUE(input::press(key));
        // A choice of a group hands the focus on to the next one.
        moved = moved || s.widget != QApplication::focusWidget() || picture(s.widget) != before ||
                s.place() != place;
    }
    EXPECT_TRUE(moved) << '"' << s.name() << "\", a " << typeid(*s.control).name();
}

/// What the arrows cannot move: a lone tab, and the caret of a text.
bool stands_still(stop const &s)
{
    auto const *const pages = dynamic_cast<TPageControl *>(s.control);
    int tabs = 0;
    for (int i = 0; pages && i < pages->GetPageCount(); ++i)
        tabs += pages->GetPages(i)->GetTabVisible();
    if (tabs == 1)
        return true;
    QWidget *const widget = s.widget;
    return qobject_cast<QLineEdit *>(widget) || qobject_cast<QTextEdit *>(widget) ||
           qobject_cast<QPlainTextEdit *>(widget);
}
} // namespace

TEST(gallery_keys, every_control_is_worked_by_its_keys)
{
    int count = 0;
    visit_gallery([&count](shown const &view) {
        SCOPED_TRACE(view.name);
        begin_round(view.scope);
        round(view.scope, true, [&count](stop const &s) {
            ++count;
            if (dynamic_cast<TCategoryPanel *>(s.control))
                expect_moved_by(s, {VK_SPACE});
            else if (qobject_cast<QComboBox *>(s.widget))
                expect_list_opens(s);
            else if (qobject_cast<QAbstractButton *>(s.widget) && !dynamic_cast<TRadioButton *>(s.control))
                expect_pressed_by_keys(s);
            else if (!stands_still(s))
                expect_moved_by(s, {VK_DOWN, VK_UP, VK_RIGHT, VK_LEFT});
        });
    });
    EXPECT_GT(count, 150);
}
