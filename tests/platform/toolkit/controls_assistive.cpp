#include "core_fixture.h"

#include "platform/basic/vx_options.h"
#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/category_panel_group.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/rich_edit.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/core/strings.h"

#include <QtCore/QTimer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QImage>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <gtest/gtest.h>

// Names for assistive tools, keys in place of the mouse, and the language of what the window system brings
// along.

namespace input = vx::user_input;

namespace {
struct assistive : testing::Test
{
    assistive()
    {
        form.SetBounds(100, 100, 500, 400);
        form.Show();
    }
    ~assistive() override { vx_options_set_language("en"); }

    template <class T>
    T *put(TWinControl *parent, int top)
    {
        auto *control = new T(parent);
        control->SetParent(parent);
        control->SetBounds(10, top, 150, 24);
        return control;
    }
    template <class T>
    T *put(int top)
    {
        return put<T>(&form, top);
    }

    TForm form{nullptr};
};

struct counter
{
    void on_event(TObject *) { ++count; }

    int count = 0;
};

bool has_latin(QString const &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128 && c.isLetter(); });
}

/// The texts of the menu that `open` brings up, without their shortcuts; it is closed. Some menus run a loop
/// of their own, so they are looked for beside the call.
template <class F>
QStringList menu_texts(F open)
{
    QStringList texts;
    QTimer search;
    QObject::connect(&search, &QTimer::timeout, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        search.stop();
        for (QAction const *const action : menu->actions())
            if (!action->isSeparator())
                texts += action->text().section(QLatin1Char('\t'), 0, 0);
        menu->close();
    });
    search.start(5);
    open();
    input::wait_until([&search] { return !search.isActive(); });
    return texts;
}

} // namespace

TEST_F(assistive, a_name_is_the_best_of_own_name_caption_label_and_hint)
{
    auto *edit = put<TEdit>(10);
    EXPECT_EQ(edit->GetAccessibleName(), L"");
    edit->SetHint(L"Least value|Values below it are not drawn");
    EXPECT_EQ(edit->GetAccessibleName(), L"Least value");
    auto *label = put<TLabel>(40);
    label->SetFocusControl(edit);
    EXPECT_EQ(edit->GetAccessibleName(), L"Least value") << "the label says nothing yet";
    label->SetCaption(L"M&inimum");
    EXPECT_EQ(edit->GetAccessibleName(), L"Minimum");
    edit->SetText(L"17");
    EXPECT_EQ(edit->GetAccessibleName(), L"Minimum") << "the text of an edit is no name";
    edit->SetAccessibleName(L"Minimum of the range");
    label->SetCaption(L"Min");
    EXPECT_EQ(edit->GetAccessibleName(), L"Minimum of the range");
    edit->SetAccessibleName({});
    label->SetFocusControl(nullptr);
    EXPECT_EQ(edit->GetAccessibleName(), L"Least value");

    auto *button = put<TButton>(70);
    button->SetCaption(L"...");
    EXPECT_EQ(button->GetAccessibleName(), L"...");
    button->SetHint(L"Choose a file");
    EXPECT_EQ(button->GetAccessibleName(), L"Choose a file");
    button->SetCaption(L"&Open...");
    EXPECT_EQ(button->GetAccessibleName(), L"Open...");
}

TEST_F(assistive, enter_presses_a_speed_button_and_not_the_default_button)
{
    counter defaults;
    counter speeds;
    auto *by_default = put<TButton>(10);
    by_default->SetDefault(true);
    by_default->OnClick = make_closure<&counter::on_event>(&defaults);
    auto *speed = put<TSpeedButton>(40);
    speed->SetGroupIndex(1);
    speed->OnClick = make_closure<&counter::on_event>(&speeds);
    speed->SetFocus();
    input::wait_idle();
    EXPECT_TRUE(input::press(VK_RETURN));
    EXPECT_EQ(speeds.count, 1);
    EXPECT_TRUE(speed->GetDown());
    EXPECT_EQ(defaults.count, 0);
    by_default->SetFocus();
    EXPECT_TRUE(input::press(VK_RETURN));
    EXPECT_EQ(defaults.count, 1);
    EXPECT_EQ(speeds.count, 1);
}

TEST_F(assistive, tab_stops_once_at_choices_and_passes_what_is_folded_away)
{
    auto *before = put<TEdit>(10);
    TRadioButton *choices[3];
    for (int i = 0; i < 3; ++i)
        choices[i] = put<TRadioButton>(40 + 30 * i);
    auto *panel = put<TCategoryPanel>(140);
    panel->SetAlign(alBottom);
    auto *inside = put<TCheckBox>(panel, 30);
    before->SetFocus();
    input::wait_idle();

    auto const expect_tab = [](TWinControl *control, TShiftState shift) {
        EXPECT_TRUE(input::press(VK_TAB, shift));
        EXPECT_EQ(FindFocusedControl(), control);
    };
    // None is chosen: the first one stands for them.
    expect_tab(choices[0], {});
    expect_tab(panel, {});
    choices[1]->SetChecked(true);
    expect_tab(choices[1], {ssShift});
    EXPECT_TRUE(input::press(VK_DOWN));
    EXPECT_EQ(FindFocusedControl(), choices[2]);
    EXPECT_TRUE(choices[2]->GetChecked());
    expect_tab(panel, {});
    expect_tab(inside, {});
    panel->SetCollapsed(true);
    panel->SetFocus();
    expect_tab(before, {});
    choices[2]->SetEnabled(false);
    expect_tab(choices[0], {});
}

TEST_F(assistive, a_form_begins_at_its_list_of_choices)
{
    TForm dialog(nullptr);
    auto *box = put<TComboBox>(&dialog, 10);
    box->SetStyle(csDropDownList);
    box->GetItems()->Add(L"one");
    put<TEdit>(&dialog, 40);
    TWinControl *focused = nullptr;
    input::on_next_modal([&focused](input::modal_window const &window) {
        focused = FindFocusedControl();
        window.reject();
        window.form()->SetModalResult(mrCancel);
    });
    dialog.ShowModal();
    EXPECT_EQ(focused, box);
}

TEST_F(assistive, a_message_of_the_system_is_no_form_though_it_belongs_to_one)
{
    QMessageBox box(vx_qt_widget(&form));
    box.setText(QStringLiteral("text"));
    TCustomForm *found = &form;
    input::on_next_modal([&found](input::modal_window const &window) {
        found = window.form();
        window.reject();
    });
    box.exec();
    EXPECT_EQ(found, nullptr);
}

TEST_F(assistive, menus_and_buttons_of_the_window_system_speak_russian)
{
    auto *combo = put<TComboBox>(130);
    auto *memo = put<TMemo>(160);
    memo->SetScrollBars(ssBoth);
    TWinControl *const edits[] = {put<TEdit>(10), put<TSpinEdit>(40), memo, put<TRichEdit>(220), combo};
    form.SetActiveControl(edits[0]);
    vx_options_set_language("ru");
    for (TWinControl *const edit : edits) {
        QStringList const texts = menu_texts([edit] { input::click(edit, 20, 10, mbRight); });
        EXPECT_GE(texts.size(), 7) << typeid(*edit).name();
        for (QString const &text : texts)
            EXPECT_FALSE(has_latin(text)) << text.toStdString();
        EXPECT_TRUE(texts.contains(QStringLiteral("&Копировать"))) << typeid(*edit).name();
    }
    // Bars that stand and lie.
    for (QScrollBar *const bar : vx_qt_widget(memo)->findChildren<QScrollBar *>()) {
        QContextMenuEvent event(QContextMenuEvent::Other, QPoint(1, 1), bar->mapToGlobal(QPoint(1, 1)));
        QStringList const texts = menu_texts([&] { QApplication::sendEvent(bar, &event); });
        EXPECT_EQ(texts.size(), 7);
        for (QString const &text : texts)
            EXPECT_FALSE(has_latin(text)) << text.toStdString();
    }
    QMessageBox box;
    for (int button = QMessageBox::FirstButton; button <= QMessageBox::LastButton; button <<= 1) {
        QString const text = box.addButton(QMessageBox::StandardButton(button))->text();
        EXPECT_FALSE(text.isEmpty() || has_latin(text)) << text.toStdString();
    }

    vx_options_set_language("en");
    QStringList const texts = menu_texts([&] { input::click(edits[0], 20, 10, mbRight); });
    EXPECT_TRUE(texts.contains(QStringLiteral("&Copy")));
}

TEST_F(assistive, a_track_bar_has_a_thumb_of_its_length_and_marks_a_range)
{
    counter changes;
    auto *track = put<TTrackBar>(10);
    track->SetTickStyle(tsNone);
    track->SetBounds(10, 10, 200, 40);
    track->SetMax(100);
    track->OnChange = make_closure<&counter::on_event>(&changes);
    auto const shot = [track] {
        input::wait_idle();
        return vx_qt_widget(track)->grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    // The thumb stands at the left end; how high is what differs from a place on the bar alone?
    auto const thumb_height = [](QImage const &image) {
        int rows = 0;
        for (int y = 0; y < image.height(); ++y)
            rows += image.pixel(8, y) != image.pixel(100, y);
        return rows;
    };
    for (int const length : {10, 24, 16}) {
        track->SetThumbLength(length);
        EXPECT_EQ(track->GetThumbLength(), length);
        EXPECT_NEAR(thumb_height(shot()), length, 3);
    }

    QRgb const mark = QApplication::palette().color(QPalette::Active, QPalette::Highlight).rgb();
    QImage const plain = shot();
    EXPECT_NE(plain.pixel(100, 20), mark);
    track->SetSelStart(40);
    track->SetSelEnd(60);
    EXPECT_EQ(shot().pixel(100, 20), mark);
    EXPECT_EQ(shot().pixel(60, 20), plain.pixel(60, 20));
    EXPECT_EQ(shot().pixel(140, 20), plain.pixel(140, 20));
    track->SetShowSelRange(false);
    EXPECT_EQ(shot(), plain);
    EXPECT_EQ(changes.count, 0);
    EXPECT_EQ(track->GetPosition(), 0);
}
