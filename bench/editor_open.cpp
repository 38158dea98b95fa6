// Opening the layer editor: making its pages against making the same widgets in plain Qt; the way from its
// creation to the first picture on the screen against showing those; and how the length of the layer's value
// scale counts, the clone included. Measured in turn in one run, by the processor's time; the least counts.

#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/form/lr2d_edit_form.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using owned_form = vx::owned<Tvx_lr2d_edit_form, &vx_lr2d_edt_form_destroy>;
constexpr int c_rounds = 60;

double now()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}
double milliseconds_since(double start)
{
    return now() - start;
}

// ---- the same widgets in plain Qt

/// A widget of the editor as anybody would make it, with what it shows: text, picture, hint, lines.
struct plain_widget
{
    std::function<QWidget *(QWidget *parent)> make;
    int parent; ///< -1 is the window
    QRect place;
    bool hidden, disabled;
    QString hint;
};

template <class Widget>
QWidget *make_widget(QWidget *parent)
{
    return new Widget(parent);
}
/// A button, label or edit with its text, a button with its picture.
template <class Widget>
bool take_text(QWidget *of, std::function<QWidget *(QWidget *)> &make)
{
    auto *const widget = qobject_cast<Widget *>(of);
    if (!widget)
        return false;
    QPixmap picture;
    if constexpr (std::is_base_of_v<QAbstractButton, Widget>)
        picture = widget->icon().pixmap(widget->iconSize());
    make = [text = widget->text(), picture](QWidget *parent) {
        auto *made = new Widget(parent);
        made->setText(text);
        if constexpr (std::is_base_of_v<QAbstractButton, Widget>)
            if (!picture.isNull())
                made->setIcon(QIcon(picture));
        return made;
    };
    return true;
}

void list_widgets(QWidget *of, int parent, std::vector<plain_widget> &all)
{
    for (QObject *child : of->children()) {
        auto *const widget = qobject_cast<QWidget *>(child);
        if (!widget)
            continue;
        std::function<QWidget *(QWidget *)> make;
        // What Qt makes inside a widget comes with that.
        bool inside = true;
        if (auto *combo = qobject_cast<QComboBox *>(widget)) {
            QStringList lines;
            for (int i = 0; i < combo->count(); ++i)
                lines += combo->itemText(i);
            make = [lines, current = combo->currentIndex()](QWidget *p) {
                auto *made = new QComboBox(p);
                made->addItems(lines);
                made->setCurrentIndex(current);
                return made;
            };
        } else if (auto *tabs = qobject_cast<QTabBar *>(widget)) {
            make = [count = tabs->count()](QWidget *p) {
                auto *made = new QTabBar(p);
                for (int i = 0; i < count; ++i)
                    made->addTab(QStringLiteral("Style"));
                return made;
            };
        } else if (qobject_cast<QScrollBar *>(widget)) {
            make = &make_widget<QScrollBar>;
        } else if (!take_text<QPushButton>(widget, make) && !take_text<QCheckBox>(widget, make) &&
                   !take_text<QToolButton>(widget, make) && !take_text<QLineEdit>(widget, make) &&
                   !take_text<QLabel>(widget, make)) {
            make = &make_widget<QWidget>;
            inside = false;
        }
        all.push_back({make, parent, widget->geometry(), widget->isHidden(),
                       widget->testAttribute(Qt::WA_ForceDisabled), widget->toolTip()});
        if (!inside)
            list_widgets(widget, static_cast<int>(all.size()) - 1, all);
    }
}

void make_plain(QWidget &window, std::vector<plain_widget> const &all)
{
    std::vector<QWidget *> made;
    made.reserve(all.size());
    for (plain_widget const &w : all) {
        QWidget *const widget = w.make(w.parent < 0 ? &window : made[static_cast<std::size_t>(w.parent)]);
        widget->setGeometry(w.place);
        if (!w.hint.isEmpty())
            widget->setToolTip(w.hint);
        if (w.disabled)
            widget->setEnabled(false);
        if (w.hidden)
            widget->hide();
        made.push_back(widget);
    }
}

// ---- what is measured

struct opening
{
    double made, shown;
};

opening open_editor(Ivx_layer *layer)
{
    owned_form const form(vx_lr2d_edt_form_create());
    auto start = now();
    vx_lr2d_edt_form_create_all(form.get());
    double const made = milliseconds_since(start);
    start = now();
    vx_lr2d_edt_form_set_lr2d(form.get(), layer);
    vx_lr2d_edt_form_update(form.get());
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    QApplication::processEvents();
    return {made, made + milliseconds_since(start)};
}

opening open_plain(std::vector<plain_widget> const &all)
{
    QWidget window(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint);
    window.resize(480, 600);
    auto const start = now();
    make_plain(window, all);
    double const made = milliseconds_since(start);
    window.move(100, 100);
    window.show();
    QApplication::processEvents();
    return {made, milliseconds_since(start)};
}

owned_layer make_layer(unsigned entries)
{
    owned_layer layer(vx_shp_lr2d_create("shp_pnt_lr2d", L""));
    void *const mngr = vx_shp_lr2d_get_stl_mngr_ptr(layer.get());
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
    void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_val_scale_set_size(scale, entries);
    for (unsigned i = 0; i < entries; ++i) {
        std::wstring const text = std::to_wstring(10000 + i);
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
    }
    return layer;
}

/// Runs the two in turn and prints the least of what they give.
template <class Own, class Plain>
void compare(char const *what, double bound, Own own, Plain plain)
{
    double ours = 1e300, others = 1e300;
    for (int i = 0; i < c_rounds; ++i) {
        ours = std::min(ours, own());
        others = std::min(others, plain());
    }
    double const ratio = ours / others;
    std::printf("%-52s %7.3f ms  against %7.3f ms  ratio %5.2f  bound %4.2f %s\n", what, ours, others, ratio,
                bound, ratio <= bound ? "" : "EXCEEDED");
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    owned_layer const few = make_layer(100), many = make_layer(100'000);
    std::vector<plain_widget> all;
    {
        owned_form const form(vx_lr2d_edt_form_create());
        vx_lr2d_edt_form_create_all(form.get());
        vx_lr2d_edt_form_set_lr2d(form.get(), few.get());
        vx_lr2d_edt_form_update(form.get());
        vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
        QApplication::processEvents();
        list_widgets(vx_qt_widget(form->get_form())->window(), -1, all);
    }
    std::printf("%zu widgets\n", all.size());
    compare(
        "making all pages, against the widgets alone", 2, [&] { return open_editor(few.get()).made; },
        [&] { return open_plain(all).made; });
    compare(
        "creation to picture, against the widgets alone", 3, [&] { return open_editor(few.get()).shown; },
        [&] { return open_plain(all).shown; });
    compare(
        "creation to picture, 100,000 entries against 100", 1.2,
        [&] { return open_editor(many.get()).shown; }, [&] { return open_editor(few.get()).shown; });
}
