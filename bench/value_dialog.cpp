// The value builder dialog on 42,049 different codes, from the call to its picture on the screen and its end,
// against reading the codes by a plain loop, and against that and the same widgets put together in plain Qt;
// and a list of 100,000 values, filled and painted, against a plain model of as many texts. Measured in turn
// in one run, by the processor's time; the least counts.

#include "builder_dialog.h"
#include "code_file.h"
#include "scale_builders/vxk_val_type_form.h"

#include "platform/base/text_codec.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>

#include <set>

using namespace vx_bench;

namespace {
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
constexpr int c_many = 100'000;

void open_own(table &t)
{
    owned_mngr const mngr(vx_stl_mngr_create("pnt_style"));
    vx_stl_mngr_set_val_prop_name_w(mngr.get(), L"code");
    close_when_shown();
    if (vx_val_type_dlg(0, 0, mngr.get(), make_closure<&table::open>(&t), make_closure<&table::close>(&t),
                        make_closure<&table::np>(&t), make_closure<&table::no>(&t),
                        make_closure<&table::prop>(&t), {}, {}, make_closure<&table::str>(&t),
                        make_closure<&table::val>(&t)))
        std::abort();
}

std::set<std::string> read_plain(table &t)
{
    auto const field = static_cast<unsigned>(vx_attr_files_get_field_index_w(t.files.get(), L"code"));
    std::set<std::string> codes;
    for (unsigned i = 0, count = vx_attr_files_get_no(t.files.get()); i < count; ++i) {
        bool known = false;
        char const *const text = vx_attr_files_get_str(t.files.get(), field, i, &known);
        if (known)
            codes.insert(text);
    }
    if (codes.size() != c_codes)
        std::abort();
    return codes;
}

QListView *make_list(QStringList const &texts, QWidget *parent)
{
    auto *const list = new QListView(parent);
    list->setUniformItemSizes(true);
    list->setModel(new QStringListModel(texts, list));
    return list;
}

/// The fields of the table and of a file, the modes, and what else stands in the window.
void show_widgets(std::set<std::string> const &codes)
{
    QDialog window;
    window.resize(800, 350);
    auto *const all = new QVBoxLayout(&window);
    auto *const halves = new QHBoxLayout;
    all->addLayout(halves);
    QStringList texts;
    for (auto const &code : codes)
        texts.push_back(QString::fromStdString(code));
    add_group(halves, "Values")->addWidget(make_list(texts, &window));
    auto *const right = new QVBoxLayout;
    halves->addLayout(right);
    add_row<QComboBox>(add_group(right, "Classification"), "Mode")->addItems({"anew", "legend", "modify"});
    auto *const rebuild = add_group(right, "Parameters");
    add_row<QComboBox>(rebuild, "Captions")->addItem("code");
    for (int hidden = 0; hidden < 2; ++hidden) {
        auto *const panel = new QWidget;
        panel->setVisible(false);
        right->addWidget(panel);
        auto *const column = add_group(new QVBoxLayout(panel), "Parameters");
        for (int i = 0; i < 3; ++i)
            column->addWidget(new QCheckBox(QStringLiteral("Caption")));
        add_row<QComboBox>(column, "Field")->addItem("code");
        for (int i = 0; hidden == 0 && i < 5; ++i)
            add_row<QComboBox>(column, "Field");
        if (hidden == 0)
            add_row<QPushButton>(column, "Legend");
    }
    auto *const buttons = new QHBoxLayout;
    all->addLayout(buttons);
    for (char const *caption : {"Apply", "Cancel"})
        buttons->addWidget(new QPushButton(QString::fromUtf8(caption)));
    close_when_shown();
    window.exec();
}

template <class Plain>
void compare_dialog(char const *what, double bound, Plain plain)
{
    std::wstring const source = vx::text::utf8_to_wide(code_file());
    pair_of_times least;
    auto const lower = [](two_times &target, two_times const &times) {
        target.wall = std::min(target.wall, times.wall);
        target.processor = std::min(target.processor, times.processor);
    };
    for (int i = 0; i < 9; ++i) {
        table for_plain(source), for_own(source);
        lower(least.plain, measure([&] { plain(for_plain); }));
        lower(least.own, measure([&] { open_own(for_own); }));
    }
    print(what, least, bound);
}

void compare_lists()
{
    Tvx_val_statistic values;
    for (int i = 0; i < c_many; ++i)
        values.add(std::to_string(c_many + i).c_str());
    TForm form(nullptr);
    Tvx_vcl_val_statistic_panel panel(&form);
    panel.SetParent(&form);
    panel.create();
    form.Show();
    QWidget window;
    QListView *list = make_list({}, &window);
    list->resize(280, 300);
    window.show();
    QApplication::processEvents();
    auto const plain = [&] {
        QStringList texts;
        for (char const *text = values.get_first(); text; text = values.get_next())
            texts.push_back(QString::fromUtf8(text));
        static_cast<QStringListModel *>(list->model())->setStringList(texts);
        list->repaint();
        list->scrollToBottom();
        list->repaint();
    };
    auto const own = [&] {
        panel.set_statistic(&values);
        panel.get_list_box()->Repaint();
        panel.get_list_box()->SetTopIndex(c_many - 1);
        panel.get_list_box()->Repaint();
    };
    print("a list of 100,000 values", compare(plain, own, 9), 1.5);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    GDALAllRegister();
    vx_dlg_table dialogs;
    dialogs.yesno = [](void *, HWND, wchar_t const *) { return true; };
    vx_dlg_set_table(&dialogs);
    compare_dialog("42,049 codes, reading them", 1.5, [](table &t) { read_plain(t); });
    compare_dialog("42,049 codes, and the widgets", 1.3, [](table &t) { show_widgets(read_plain(t)); });
    compare_lists();
}
