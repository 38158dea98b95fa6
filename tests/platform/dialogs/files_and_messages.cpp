#include "dialogs_fixture.h"
#include "support/temp_dir.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/gauge.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/core/screen.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleOptionViewItem>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTreeView>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

namespace {
// ---- files

UnicodeString in(vx_test::temp_dir const &dir, char const *name)
{
    return UnicodeString((dir / name).string());
}

/// Types over the text of the name box, which has the focus, and leaves the box, so that the list of names
/// that begin so closes.
void type_name(wchar_t const *name)
{
    press('A', {ssCtrl});
    EXPECT_TRUE(type(name));
    press(VK_TAB);
}

void press_or_leave(modal_window const &w, wchar_t const *caption)
{
    bool const pressed = w.press_button(caption);
    EXPECT_TRUE(pressed) << UnicodeString(caption).to_utf8();
    if (!pressed)
        w.reject();
}

TEST_F(dialogs_test, save_adds_the_suffix_and_asks_before_it_replaces)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "old._ta", "x");
    vx_test::write_file(dir / "scene_.sn", "x");
    struct
    {
        wchar_t const *suffix;
        wchar_t const *typed;
        bool asks;
        char const *expected;
    } const cases[] = {
        {L"_ta", L"new", false, "new._ta"},     {L"_ta", L"new._ta", false, "new._ta"},
        {L"_ta", L"a.b", false, "a.b._ta"},     {L"_ta", L"old", true, "old._ta"},
        {L"_ta", L"old._ta", true, "old._ta"},  {L"_.sn", L"other", false, "other_.sn"},
        {L"_.sn", L"scene", true, "scene_.sn"}, {nullptr, L"plain", false, "plain"},
    };
    for (auto const &[suffix, typed, asks, expected] : cases) {
        SCOPED_TRACE(expected);
        on_next_modal([typed = typed](modal_window const &w) {
            type_name(typed);
            press_or_leave(w, L"Save");
        });
        if (asks)
            on_next_modal([&dir, expected = expected](modal_window const &w) {
                EXPECT_EQ(w.text(), UnicodeString("The file \"" + std::string(expected) +
                                                  "\" exists already. Replace it?"));
                EXPECT_TRUE(w.press_button(L"Yes"));
            });
        EXPECT_EQ(vx_save_file_dialog(nullptr, 0, 0, suffix, L"Title", in(dir, "start").c_str()),
                  in(dir, expected));
    }
    // No leaves the dialog open.
    on_next_modal([](modal_window const &w) {
        EXPECT_EQ(w.title(), L"Save As");
        type_name(L"old");
        press_or_leave(w, L"Save");
        press_or_leave(w, L"Cancel");
    });
    on_next_modal([](modal_window const &w) { w.reject(); });
    EXPECT_EQ(vx_save_file_dialog(nullptr, 0, 0, L"_ta", nullptr, in(dir, "start").c_str()), L"");
}

TEST_F(dialogs_test, open_takes_files_that_exist)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "roads.dbf", "x");
    on_next_modal([](modal_window const &w) {
        EXPECT_EQ(w.title(), L"Choose");
        type_name(L"missing.dbf");
        EXPECT_FALSE(w.press_button(L"Open"));
        press(VK_TAB, {ssShift});
        type_name(L"roads.dbf");
        press_or_leave(w, L"Open");
    });
    EXPECT_EQ(vx_open_file_dialog(form.GetHandle(), 50, 50, L".dbf", L"Choose", in(dir, "x.dbf").c_str()),
              in(dir, "roads.dbf"));
    // The next one begins where this one ended.
    on_next_modal([](modal_window const &w) {
        type_name(L"roads.dbf");
        press_or_leave(w, L"Open");
    });
    EXPECT_EQ(vx_open_file_dialog(nullptr, 0, 0, nullptr, nullptr, nullptr), in(dir, "roads.dbf"));
}

TEST_F(dialogs_test, columns_show_sizes_and_types_uncut)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "a.an_extension_of_some_length", std::string(1023, 'x'));
    for (char const *language : {"en", "ru"}) {
        vx_options_set_language(language);
        on_next_modal([](modal_window const &w) {
            auto *list =
                QApplication::activeModalWidget()->findChild<QTreeView *>(QStringLiteral("treeView"));
            EXPECT_NE(list, nullptr);
            struct seen
            {
                QTreeView *list;
                bool fits() const
                {
                    bool all = list->model()->rowCount(list->rootIndex()) == 1;
                    for (int column = 1; all && column < 4; ++column) {
                        QString const text =
                            column == 3
                                ? QLocale(vx_options_get_language())
                                      .toString(QDateTime(QDate(2020, 12, 28), QTime(22, 58)),
                                                QLocale::ShortFormat)
                                : list->model()->index(0, column, list->rootIndex()).data().toString();
                        all = !text.isEmpty() &&
                              list->columnWidth(column) > list->fontMetrics().horizontalAdvance(text);
                    }
                    return all && list->horizontalScrollBar()->maximum() == 0;
                }
            };
            seen of_list{list};
            EXPECT_TRUE(wait_until(make_closure<&seen::fits>(&of_list)));
            w.reject();
        });
        EXPECT_EQ(vx_open_file_dialog(nullptr, 0, 0, nullptr, nullptr, in(dir, "x").c_str()), L"");
    }
}

struct filter_listener
{
    std::vector<int> heard;
    void on_filter_changed(int index, UnicodeString &name)
    {
        heard.push_back(index);
        name = name + UnicodeString(index);
    }
};

TEST_F(dialogs_test, dates_and_the_open_button_speak_the_language_of_the_captions)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "a.txt", "x");
    for (char const *language : {"en", "ru"}) {
        vx_options_set_language(language);
        on_next_modal([&](modal_window const &w) {
            auto *list =
                QApplication::activeModalWidget()->findChild<QTreeView *>(QStringLiteral("treeView"));
            ASSERT_NE(list, nullptr);
            struct seen
            {
                QTreeView *list;
                bool is_read() const { return list->model()->rowCount(list->rootIndex()) == 1; }
            } of_list{list};
            EXPECT_TRUE(wait_until(make_closure<&seen::is_read>(&of_list)));
            struct opened : QStyledItemDelegate
            {
                using QStyledItemDelegate::initStyleOption;
            };
            auto *const delegate = dynamic_cast<QStyledItemDelegate *>(list->itemDelegateForColumn(3));
            ASSERT_NE(delegate, nullptr);
            QStyleOptionViewItem option;
            (delegate->*(&opened::initStyleOption))(&option, list->model()->index(0, 3, list->rootIndex()));
            QDateTime const date = QFileInfo(QString::fromStdString((dir / "a.txt").string())).lastModified();
            EXPECT_EQ(option.text, QLocale(language).toString(date, QLocale::ShortFormat));
            w.reject();
        });
        EXPECT_EQ(vx_open_file_dialog(nullptr, 0, 0, nullptr, nullptr, in(dir, "x").c_str()), L"");
        QString const open = QCoreApplication::translate("QFileDialog", "&Open");
        EXPECT_EQ(open.contains(QLatin1String("Open")), std::string_view(language) == "en");
    }
    vx_options_set_language("en");
}

TEST_F(dialogs_test, filter_of_a_file_dialog)
{
    vx_test::temp_dir const dir;
    filter_listener listener;
    Tvx_file_dialog_prm prm;
    prm.save = true;
    prm.filter = L"Text (old)|*.txt;*.log|No mask||Tables|*.dbf|All|*.*";
    prm.filter_index = 3;
    prm.default_ext = L".txt";
    prm.file_name = in(dir, "name");
    prm.on_filter_changed = make_closure<&filter_listener::on_filter_changed>(&listener);
    Tvx_file_dialog_prm const asked = prm;
    on_next_modal([](modal_window const &w) { w.reject(); });
    EXPECT_FALSE(vx_file_dialog(nullptr, 0, 0, &prm));
    EXPECT_EQ(prm.filter_index, asked.filter_index);
    EXPECT_EQ(prm.file_name, asked.file_name);
    on_next_modal([](modal_window const &w) {
        press(VK_TAB); // to the types of files
        press(VK_DOWN);
        press_or_leave(w, L"Save");
    });
    EXPECT_TRUE(vx_file_dialog(nullptr, 0, 0, &prm));
    EXPECT_EQ(listener.heard, std::vector<int>{4});
    EXPECT_EQ(prm.filter_index, 4);
    EXPECT_EQ(prm.file_name, in(dir, "name4.txt"));
}

// ---- messages

TEST_F(dialogs_test, messages_and_questions)
{
    auto const *capital = L"Ünicode <b>text</b>";
    for (auto const show : {vx_show_wmessage, vx_show_wwarning, vx_show_werror}) {
        on_next_modal([&](modal_window const &w) {
            EXPECT_EQ(w.text(), capital);
            EXPECT_TRUE(w.press_button(L"OK"));
        });
        show(capital);
    }
    on_next_modal([](modal_window const &w) {
        EXPECT_EQ(w.text(), L"№1");
        w.reject();
    });
    vx_show_error("№1");
    on_next_modal([](modal_window const &w) {
        EXPECT_EQ(w.text(), L"Wrong number: 1,5");
        w.accept();
    });
    ShowMessage(L"Wrong number: 1,5");

    on_next_modal([](modal_window const &w) {
        EXPECT_EQ(w.text(), vx_res_get_wstr(2));
        EXPECT_TRUE(w.press_button(L"Yes"));
    });
    EXPECT_TRUE(vx_yesno_res(2));
    on_next_modal([](modal_window const &w) { EXPECT_TRUE(w.press_button(L"No")); });
    EXPECT_FALSE(vx_yesno(L"?"));
    on_next_modal([](modal_window const &w) { w.reject(); });
    EXPECT_FALSE(vx_yesno(nullptr));
}

TEST_F(dialogs_test, the_words_of_a_library_stand_behind_the_details_of_a_message)
{
    auto const *const reason = L"Не читается.\nERROR 1: bad block\nat 12, password=x";
    vx_options_set_language("ru");
    on_next_modal([&](modal_window const &w) {
        EXPECT_EQ(w.text(), L"Не читается.");
        EXPECT_TRUE(w.press_button(L"Подробнее..."));
        EXPECT_TRUE(w.press_button(L"ОК"));
    });
    testing::internal::CaptureStderr();
    vx_reason_report(reason);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Не читается.\nERROR 1: bad block\nat 12, password=***\n");
    on_next_modal([](modal_window const &w) {
        EXPECT_FALSE(w.press_button(L"Подробнее...")) << "there are none";
        w.accept();
    });
    vx_show_reason(L"Не читается.");
}

TEST_F(dialogs_test, a_message_is_shown_once)
{
    int shown = 0;
    on_next_modal([&](modal_window const &w) {
        ++shown;
        vx_show_werror(L"lost"); // what a control does that loses the focus again
        vx_show_werror(L"another");
        w.accept();
    });
    on_next_modal([&](modal_window const &w) {
        ++shown;
        EXPECT_EQ(w.text(), L"another");
        w.accept();
    });
    vx_show_werror(L"lost");
    EXPECT_EQ(shown, 2);
    on_next_modal([&](modal_window const &w) { w.accept(); });
    vx_show_werror(L"lost"); // it is gone, so it is news again
}

TEST_F(dialogs_test, messages_from_another_thread)
{
    bool answer = false;
    std::atomic<bool> done = false;
    on_next_modal([](modal_window const &w) {
        EXPECT_EQ(w.text(), L"from afar");
        w.accept();
    });
    on_next_modal([](modal_window const &w) { EXPECT_TRUE(w.press_button(L"Yes")); });
    std::thread worker([&] {
        vx_show_message("from afar");
        answer = vx_yesno(L"go on?");
        done = true;
    });
    EXPECT_TRUE(wait_until([&] { return done.load(); }));
    worker.join();
    EXPECT_TRUE(answer);
}

// ---- progress

/// Goes on with the work until its window is there.
bool show_progress(Tvx_progress &progress)
{
    auto const *form = Screen->GetActiveForm();
    auto const is_there = [form] { return Screen->GetActiveForm() && Screen->GetActiveForm() != form; };
    for (int i = 0; i < 300 && !is_there(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        progress.set(i);
    }
    return is_there();
}

TEST_F(dialogs_test, progress_of_nested_work)
{
    Tvx_progress outer(L"Reading");
    outer.set(10);
    EXPECT_EQ(Screen->GetActiveForm(), &form); // short work shows nothing
    ASSERT_TRUE(show_progress(outer));
    auto *window = Screen->GetActiveForm();
    auto *gauge = find<TGauge>(window, L"Reading");
    ASSERT_TRUE(gauge);
    auto const shown_soon = [&](Tvx_progress &progress, int value, TGauge *bar, int expected) {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        progress.set(value);
        EXPECT_EQ(bar->GetProgress(), expected);
    };
    shown_soon(outer, 150, gauge, 100);
    shown_soon(outer, -1, gauge, 0);
    EXPECT_FALSE(click(&form)); // the program's window waits
    {
        Tvx_progress inner(L"inner");
        EXPECT_FALSE(inner.is_stopped());
        auto *bar = find<TGauge>(window, L"inner");
        ASSERT_TRUE(bar);
        shown_soon(inner, 40, bar, 40);
        EXPECT_FALSE(close(window)); // the close box asks to stop, as Esc does
        EXPECT_TRUE(inner.is_stopped());
    }
    EXPECT_FALSE(find<TGauge>(window, L"inner"));
    EXPECT_TRUE(outer.is_stopped());
}

TEST_F(dialogs_test, progress_is_stopped_by_its_button)
{
    {
        Tvx_progress progress(L"work");
        ASSERT_TRUE(show_progress(progress));
        EXPECT_FALSE(progress.is_stopped());
        EXPECT_TRUE(click(find<TButton>(Screen->GetActiveForm(), L"Stop")));
        EXPECT_TRUE(progress.is_stopped());
    }
    wait_idle();
    EXPECT_TRUE(click(&form));
    Tvx_progress next(L"next");
    EXPECT_FALSE(next.is_stopped()); // the stop was for the other work
}

TEST_F(dialogs_test, progress_ended_out_of_order)
{
    auto *outer = vx_progress_start(L"outer");
    auto *inner = vx_progress_start(nullptr);
    vx_progress_finish(outer);
    vx_progress_finish(inner); // ended already
    vx_progress_set(inner, 5);
    EXPECT_FALSE(vx_progress_is_stopped(inner));
    vx_progress_finish(nullptr);
}

// ---- a host's own dialogs

struct host_dialogs
{
    std::vector<std::string> calls;
    vx_dlg_table table;

    host_dialogs()
    {
        table.user = this;
        table.color = [](void *user, HWND, int x, int y, Tvx_color *color, int format) {
            note(user, "color " + std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(format));
            color->r = 9;
            return true;
        };
        table.font = [](void *user, HWND, int, int, vx_fnt_type *) { return note(user, "font"); };
        table.charmap = [](void *user, HWND, int, int, vx_fnt_type *, int *) {
            return note(user, "charmap");
        };
        table.file = [](void *user, HWND, int, int, Tvx_file_dialog_prm *prm) {
            note(user, "file " + prm->filter.to_utf8());
            prm->file_name = L"/a/b";
            return true;
        };
        table.message = [](void *user, HWND parent, Tvx_msg_kind kind, wchar_t const *text) {
            EXPECT_NE(parent, nullptr);
            note(user, "message " + std::to_string(kind) + UnicodeString(text).to_utf8());
        };
        table.yesno = [](void *user, HWND, wchar_t const *) { return note(user, "yesno"); };
        table.progress_start = [](void *user, HWND, int level, wchar_t const *) -> void * {
            note(user, "start " + std::to_string(level));
            return user;
        };
        table.progress_set = [](void *user, void *progress, int percent, wchar_t const *caption) {
            EXPECT_EQ(progress, user);
            note(user, "set " + std::to_string(percent) + UnicodeString(caption).to_utf8());
        };
        table.progress_is_stopped = [](void *user, void *) { return note(user, "stopped"); };
        table.progress_finish = [](void *user, void *) { note(user, "finish"); };
    }
    static bool note(void *user, std::string const &text)
    {
        static_cast<host_dialogs *>(user)->calls.push_back(text);
        return true;
    }
};

TEST_F(dialogs_test, a_host_puts_its_own_in_their_place)
{
    host_dialogs host;
    vx_dlg_set_table(&host.table);
    Tvx_color color;
    vx_fnt_type *const font = vx_fnt_type_create();
    int symbol = 0;
    EXPECT_TRUE(vx_color_dialog(nullptr, 3, 4, &color, 1));
    EXPECT_EQ(color.r, 9);
    vx_fnt_type_set_current_font(nullptr);
    EXPECT_TRUE(vx_font_dialog(nullptr, 0, 0, font));
    EXPECT_TRUE(vx_fnt_type_has_current_font());
    EXPECT_TRUE(vx_charmap_dialog(nullptr, 0, 0, font, &symbol));
    EXPECT_EQ(vx_save_file_dialog(nullptr, 0, 0, L"_ta", nullptr, nullptr), L"/a/b._ta");
    EXPECT_EQ(vx_open_file_dialog(nullptr, 0, 0, nullptr, nullptr, nullptr), L"/a/b");
    vx_show_werror(L"e");
    EXPECT_TRUE(vx_yesno_res(2));
    {
        Tvx_progress outer(L"o");
        Tvx_progress inner(L"i");
        inner.set(7);
        EXPECT_TRUE(inner.is_stopped());
    }
    EXPECT_EQ(host.calls,
              (std::vector<std::string>{"color 3 4 1", "font", "charmap", "file Files *._ta|*._ta", "file ",
                                        "message 2e", "yesno", "start 0", "start 1", "set 7i", "stopped",
                                        "finish", "finish"}));
    vx_fnt_type_destroy(font);

    // A table of an older host ends earlier; what lies behind is the built-in dialog again.
    vx_dlg_table shorter = host.table;
    shorter.size = offsetof(vx_dlg_table, message);
    EXPECT_EQ(vx_dlg_set_table(&shorter).message, host.table.message);
    EXPECT_TRUE(vx_color_dialog(nullptr, 0, 0, &color, 0));
    on_next_modal([](modal_window const &w) { w.accept(); });
    vx_show_werror(L"e");
}
} // namespace
