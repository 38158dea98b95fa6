#include "user_input/hand_priv.h"
#include "user_input/user_input.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/menus/menu.h"

#include <QtCore/QPointer>
#include <QtCore/QSaveFile>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>

#include <deque>
#include <utility>
#include <vector>

namespace vx::user_input {
namespace {
struct waiting_action
{
    modal_action action;
    void (*drop)(void *object) = nullptr;

    void forget() const
    {
        if (drop)
            drop(action.object());
    }
};

/// Sees every window that opens and answers those that somebody waits for.
class window_watch final : public QObject
{
public:
    static window_watch &instance()
    {
        vx_qt_ensure_application();
        // Belongs to the application object, so that a later one gets a watch of its own.
        static QPointer<window_watch> watch;
        if (!watch)
            watch = new window_watch;
        return *watch;
    }

    ~window_watch() override { forget(); }

    void forget()
    {
        for (waiting_action const &waiting : std::exchange(actions, {}))
            waiting.forget();
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() != QEvent::Show || event->spontaneous() || !object->isWidgetType())
            return false;
        auto *widget = static_cast<QWidget *>(object);
        if (!widget->isWindow())
            return false;
        if (auto *menu = qobject_cast<QMenu *>(widget)) {
            if (!choosing && !paths.empty())
                QTimer::singleShot(0, menu, [this, menu] { answer(menu); });
        } else if (widget->isModal() && !actions.empty()) {
            QTimer::singleShot(0, widget, [this, widget] { answer(widget); });
        }
        return false;
    }

    void answer(QMenu *menu);
    void answer(QWidget *window);

    std::deque<waiting_action> actions;
    std::deque<UnicodeString> paths;
    bool choosing = false;
    bool choice_done = false;

private:
    window_watch() : QObject(qApp) { qApp->installEventFilter(this); }
};

std::vector<UnicodeString> split_path(UnicodeString const &path)
{
    std::vector<UnicodeString> steps;
    UnicodeString rest = path;
    for (int cut = rest.Pos(L"|"); cut; cut = rest.Pos(L"|")) {
        steps.push_back(rest.SubString(1, cut - 1));
        rest = rest.SubString(cut + 1, rest.Length());
    }
    steps.push_back(rest);
    return steps;
}

QAction *find_action(QList<QAction *> const &actions, UnicodeString const &caption)
{
    for (QAction *action : actions) {
        if (action->isVisible() && !action->isSeparator() &&
            detail::plain_caption(vx_unicode_string(action->text())) == caption)
            return action;
    }
    return nullptr;
}

void close_menus()
{
    constexpr int c_deepest = 20;
    for (int i = 0; i < c_deepest && qobject_cast<QMenu *>(QApplication::activePopupWidget()); ++i)
        detail::tap(Qt::Key_Escape);
}

/// Goes down by keys from the open menu to the item and presses Enter on it.
bool pick(QPointer<QMenu> menu, std::vector<UnicodeString> const &path)
{
    for (std::size_t step = 0; step < path.size(); ++step) {
        wait_idle();
        if (!menu || !menu->isVisible())
            return false;
        QPointer<QAction> const wanted = find_action(menu->actions(), path[step]);
        if (!wanted || !wanted->isEnabled())
            return false;
        qsizetype const limit = menu->actions().size() + 1;
        for (qsizetype i = 0; i < limit && menu && menu->activeAction() != wanted; ++i)
            detail::tap(Qt::Key_Down);
        if (!menu || menu->activeAction() != wanted)
            return false;
        bool const last = step + 1 == path.size();
        if (last) {
            if (wanted->menu())
                return false;
            detail::tap(Qt::Key_Return);
            return true;
        }
        QPointer<QMenu> const inner = wanted->menu();
        if (!inner)
            return false;
        detail::tap(Qt::Key_Right);
        if (!wait_until([&] { return inner && inner->isVisible(); }))
            return false;
        menu = inner;
    }
    return false;
}

/// A menu may stay open for a moment after its item ran; what counts is whether one is left that nobody
/// closes.
bool pick_or_close(QMenu *menu, UnicodeString const &path)
{
    window_watch &watch = window_watch::instance();
    bool const outer = std::exchange(watch.choosing, true);
    bool const done = !path.IsEmpty() && pick(menu, split_path(path));
    if (!done)
        close_menus();
    watch.choosing = outer;
    return done;
}
} // namespace

void window_watch::answer(QMenu *menu)
{
    if (paths.empty() || choosing || !menu->isVisible())
        return;
    UnicodeString const path = paths.front();
    paths.pop_front();
    QPointer<window_watch> const self = this;
    bool const done = pick_or_close(menu, path);
    if (self)
        choice_done = done;
}

void window_watch::answer(QWidget *window)
{
    if (actions.empty() || !window->isVisible())
        return;
    waiting_action const waiting = actions.front();
    actions.pop_front();
    wait_idle();
    waiting.action(modal_window(vx_native(window)));
    waiting.forget();
}

// ---- menus

bool choose(TPopupMenu *menu, UnicodeString const &path)
{
    choose_in_next_menu(path);
    if (!qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
        TPoint const at = Screen->GetCursorPos();
        menu->Popup(at.X, at.Y);
    }
    window_watch &watch = window_watch::instance();
    wait_until([&] { return watch.paths.empty() && !watch.choosing; }, 500);
    watch.paths.clear();
    return watch.choice_done;
}

bool choose(TCustomForm *form, UnicodeString const &path)
{
    QWidget *widget = vx_qt_widget(form);
    auto *bar = widget ? widget->findChild<QMenuBar *>() : nullptr;
    int const cut = path.Pos(L"|");
    UnicodeString const first = cut ? path.SubString(1, cut - 1) : path;
    QAction *top = bar ? find_action(bar->actions(), first) : nullptr;
    if (!top || !top->isEnabled())
        return false;
    if (!detail::click_widget(vx_native(bar), vx_point(bar->actionGeometry(top).center())))
        return false;
    if (!cut)
        return true;
    return top->menu() && pick_or_close(top->menu(), path.SubString(cut + 1, path.Length()));
}

void choose_in_next_menu(UnicodeString const &path)
{
    window_watch &watch = window_watch::instance();
    watch.choice_done = false;
    watch.paths.push_back(path);
    if (auto *open = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
        watch.answer(open);
}

bool menu_choice_done()
{
    return window_watch::instance().choice_done;
}

// ---- modal windows

namespace {
QWidget *widget_of(std::shared_ptr<void> const &native)
{
    return static_cast<QPointer<QWidget> *>(native.get())->data();
}
} // namespace

modal_window::modal_window(vx_native_widget *native)
    : f_native(std::make_shared<QPointer<QWidget>>(vx_qt_widget(native)))
{
}

TCustomForm *modal_window::form() const
{
    QWidget *window = widget_of(f_native);
    // A dialog of the system may belong to a form.
    auto *form = window ? dynamic_cast<TCustomForm *>(vx_control_of(window)) : nullptr;
    return form && vx_qt_widget(form)->window() == window ? form : nullptr;
}

UnicodeString modal_window::title() const
{
    QWidget *window = widget_of(f_native);
    return window ? vx_unicode_string(window->windowTitle()) : UnicodeString();
}

UnicodeString modal_window::text() const
{
    auto *box = qobject_cast<QMessageBox *>(widget_of(f_native));
    return box ? vx_unicode_string(box->text()) : UnicodeString();
}

bool modal_window::press_button(UnicodeString const &caption) const
{
    QWidget *window = widget_of(f_native);
    if (!window)
        return false;
    for (auto *button : window->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled() &&
            detail::plain_caption(vx_unicode_string(button->text())) == caption)
            return detail::click_widget(vx_native(button), vx_point(button->rect().center()));
    }
    return false;
}

void modal_window::accept() const
{
    if (widget_of(f_native))
        detail::tap(Qt::Key_Return);
}

void modal_window::reject() const
{
    if (widget_of(f_native))
        detail::tap(Qt::Key_Escape);
}

bool modal_window::save_shot(UnicodeString const &path) const
{
    QPointer<QWidget> const window = widget_of(f_native);
    wait_idle();
    if (!window)
        return false;
    QSaveFile file(vx_qt_string(path));
    return file.open(QIODevice::WriteOnly) && window->grab().save(&file, "PNG") && file.commit();
}

void on_next_modal(modal_action action)
{
    detail::on_next_modal(action, nullptr);
}

void detail::on_next_modal(modal_action action, void (*drop)(void *object))
{
    window_watch::instance().actions.push_back({action, drop});
}

int pending_modals()
{
    return static_cast<int>(window_watch::instance().actions.size());
}

void forget_pending_modals()
{
    window_watch::instance().forget();
}
} // namespace vx::user_input
