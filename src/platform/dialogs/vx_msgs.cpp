#include "platform/dialogs/vx_msgs.h"

#include "captions/dialogs.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/application.h"
#include "platform/winapi/detail/main_thread.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace {
struct message
{
    Tvx_msg_kind kind;
    std::wstring text;
    std::wstring details;
    friend bool operator==(message const &, message const &) = default;
};

/// The messages that are on the screen.
std::vector<message> &shown_messages()
{
    static std::vector<message> list;
    return list;
}

QMessageBox::Icon icon_of(Tvx_msg_kind kind)
{
    return kind == c_msg_error     ? QMessageBox::Critical
           : kind == c_msg_warning ? QMessageBox::Warning
                                   : QMessageBox::Information;
}

QString caption(int number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}

/// A box that stands before its owner, and goes with it if that ends meanwhile. Plain text: what a message
/// quotes is not markup.
QPointer<QMessageBox> make_box(QMessageBox::Icon icon, std::wstring const &text, HWND owner)
{
    auto *box = new QMessageBox(vx_qt_widget(owner));
    box->setIcon(icon);
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdWString(text));
    box->setWindowTitle(vx_qt_string(Application->GetTitle()));
    return box;
}

void show_now(message const &what)
{
    auto &list = shown_messages();
    if (std::find(list.begin(), list.end(), what) != list.end())
        return;
    list.push_back(what);
    auto *owner = vx::dialogs::owner_window(nullptr);
    if (auto const &table = vx::dialogs::table(); table.message) {
        table.message(table.user, owner, what.kind, what.text.c_str());
    } else {
        auto const box = make_box(icon_of(what.kind), what.text, owner);
        box->setDetailedText(QString::fromStdWString(what.details));
        box->addButton(caption(c_dlg_ok), QMessageBox::AcceptRole);
        box->exec();
        delete box;
    }
    list.erase(std::find(list.begin(), list.end(), what));
}

bool ask_now(std::wstring const &text)
{
    auto *owner = vx::dialogs::owner_window(nullptr);
    if (auto const &table = vx::dialogs::table(); table.yesno)
        return table.yesno(table.user, owner, text.c_str());
    auto const box = make_box(QMessageBox::Question, text, owner);
    auto *yes = box->addButton(caption(c_dlg_yes), QMessageBox::YesRole);
    auto *no = box->addButton(caption(c_dlg_no), QMessageBox::NoRole);
    box->setDefaultButton(yes);
    box->setEscapeButton(no);
    box->exec();
    bool const agreed = box && box->clickedButton() == yes;
    delete box;
    return agreed;
}

void show(Tvx_msg_kind kind, std::wstring text, std::wstring details = {})
{
    if (vx_is_main_thread())
        return show_now({kind, std::move(text), std::move(details)});
    vx_main_thread_post(
        [](void *data) {
            std::unique_ptr<message> const what(static_cast<message *>(data));
            show_now(*what);
        },
        new message{kind, std::move(text), std::move(details)});
}

void show_bytes(Tvx_msg_kind kind, char const *text)
{
    show(kind, vx::text::to_wide(text ? text : ""));
}

void show_wide(Tvx_msg_kind kind, wchar_t const *text)
{
    show(kind, text ? text : L"");
}

/// A question of another thread, which waits for its answer.
struct question
{
    std::wstring text;
    std::mutex guard;
    std::condition_variable answered;
    bool done = false;
    bool answer = false;
};

bool ask(std::wstring text)
{
    if (vx_is_main_thread())
        return ask_now(text);
    question asked;
    asked.text = std::move(text);
    vx_main_thread_post(
        [](void *data) {
            auto &q = *static_cast<question *>(data);
            bool const answer = ask_now(q.text);
            std::lock_guard const lock(q.guard);
            q.answer = answer;
            q.done = true;
            q.answered.notify_one();
        },
        &asked);
    std::unique_lock lock(asked.guard);
    asked.answered.wait(lock, [&asked] { return asked.done; });
    return asked.answer;
}
} // namespace

void vx_show_message(char const *text)
{
    show_bytes(c_msg_message, text);
}

void vx_show_warning(char const *text)
{
    show_bytes(c_msg_warning, text);
}

void vx_show_error(char const *text)
{
    show_bytes(c_msg_error, text);
}

void vx_show_wmessage(wchar_t const *text)
{
    show_wide(c_msg_message, text);
}

void vx_show_wwarning(wchar_t const *text)
{
    show_wide(c_msg_warning, text);
}

void vx_show_werror(wchar_t const *text)
{
    show_wide(c_msg_error, text);
}

void vx_show_reason(wchar_t const *reason)
{
    auto parts = vx_reason_split(reason ? reason : L"");
    vx_reason_print(parts);
    show(c_msg_error, std::move(parts.sentence), std::move(parts.details));
}

void ShowMessage(UnicodeString const &text)
{
    show(c_msg_message, text);
}

bool vx_yesno(wchar_t const *text)
{
    return ask(text ? text : L"");
}

bool vx_yesno_res(int number)
{
    return ask(vx_res_get_wstr(number));
}
