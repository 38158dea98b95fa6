#include "map_fixture.h"
#include "styles/vxk_lib_styles_vcl.h"
#include "support/temp_dir.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/styles/vxk_styles.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>

#include <functional>

using namespace vx_test;
namespace input = vx::user_input;

namespace {
constexpr char const *c_other_process = "VX_TEST_LIBRARY_OF";

/// Takes the style that is called so in the library of the first place over, through the browser.
double width_from_browser(QString const &caption)
{
    vx::owned<void, &vx_pgn_style_destroy> const style(vx_pgn_style_create());
    bool found = false;
    input::on_next_modal([&](input::modal_window const &window) {
        auto const &form = dynamic_cast<Tvx_style_libs_form &>(*window.form());
        EXPECT_TRUE(input::choose_item(form.get_libs_panel()->get_combo_box(), 0));
        auto *const tree = form.get_lib_panel()->get_tree_panel();
        void *const item = tree->search_str_first(caption.toStdWString().c_str());
        tree->set_style_item_selected(item);
        tree->on_changed(tree);
        found = item != nullptr;
        window.press_button(L"Apply");
    });
    return vxk_lib_styles_get_pgn(style.get()) && found
               ? vx_bpln_style_get_width(vx_pgn_style_get_bpln_style_ptr(style.get()))
               : -1;
}

class user_library : public map_fixture
{
protected:
    void SetUp() override
    {
        map_fixture::SetUp();
        vx_ini_data_set_storage_directory(QString::fromStdString(f_dir.path()).toStdWString().c_str());
        vx_global_lib_styles_set_loader(vx_global_lib_styles_set_loader(nullptr));
    }
    void TearDown() override
    {
        window.reset();
        vx_ini_data_set_storage_directory(nullptr);
        vx_global_lib_styles_set_loader(vx_global_lib_styles_set_loader(nullptr));
    }

    /// Runs the command, works in its dialog, and leaves that by OK or Esc; false if there was none.
    bool put(std::function<void(QDialog &)> const &work, bool take = true)
    {
        bool seen = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!dialog || dialog->objectName() != "library_dialog" || std::exchange(seen, true))
                return;
            work(*dialog);
            auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            if (take)
                hand::click(ok, ok->rect().center());
            if (dialog->isVisible())
                hand::press(dialog, Qt::Key_Escape);
        });
        timer.start(5);
        run("to_library");
        return seen;
    }
    static void enter(QDialog &dialog, char const *field, QString const &text)
    {
        auto *widget = dialog.findChild<QWidget *>(field);
        auto *edit = qobject_cast<QLineEdit *>(widget);
        edit = edit ? edit : widget->findChild<QLineEdit *>();
        edit->setFocus();
        edit->selectAll();
        hand::type(edit, text);
    }
    static bool can_ok(QDialog &dialog)
    {
        return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled();
    }
    [[nodiscard]] QString file(char const *name) const
    {
        return QString::fromStdString(f_dir.path()) + "/style_libs/" + name;
    }
    temp_dir f_dir;
};
} // namespace

TEST_F(user_library, takes_styles_of_layers_and_classes_and_another_process_finds_them)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layers().layer_at(0)));
    vx_bpln_style_set_width(vx_pgn_style_get_bpln_style_ptr(vx_stl_prm_get_pgn_style_ptr(prm, false)), 0.7);
    select(0);
    EXPECT_TRUE(put(
        [&](QDialog &dialog) {
            EXPECT_EQ(dialog.findChild<QLineEdit *>("caption")->text(), "nc");
            enter(dialog, "caption", " ");
            EXPECT_FALSE(can_ok(dialog));
            enter(dialog, "caption", "Counties");
            enter(dialog, "group", "Borders / Third level");
            EXPECT_TRUE(can_ok(dialog));
        },
        false));
    EXPECT_FALSE(QFileInfo::exists(file("My styles.slib"))) << "Cancel puts nothing";
    int number = 0;
    EXPECT_TRUE(put([&](QDialog &dialog) {
        enter(dialog, "caption", "Counties");
        enter(dialog, "group", "Borders / Third level");
        number = dialog.findChild<QSpinBox *>("number")->value();
    }));
    EXPECT_TRUE(QFileInfo::exists(file("My styles.slib")));
    EXPECT_EQ(width_from_browser("counties"), 0.7) << "this process has it too";

    // The same number is refused, the group is offered.
    EXPECT_TRUE(put([&](QDialog &dialog) {
        enter(dialog, "number", QString::number(number));
        EXPECT_FALSE(can_ok(dialog));
        enter(dialog, "library", "Other");
        EXPECT_TRUE(can_ok(dialog));
        enter(dialog, "library", "My styles");
        EXPECT_NE(dialog.findChild<QSpinBox *>("number")->value(), number);
        auto *group = dialog.findChild<QComboBox *>("group");
        EXPECT_GE(group->findText("Borders / Third level"), 0);
        enter(dialog, "group", "Borders / Third level");
        enter(dialog, "caption", "Quiet counties");
    }));
    QFile saved(file("My styles.slib"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    QByteArray const bytes = saved.readAll();
    EXPECT_EQ(bytes.count("caption=\"Third level\""), 1);
    EXPECT_EQ(bytes.count("<style "), 2);

    // A class; the layer itself has no single style then.
    window->layers().clear();
    ASSERT_EQ(open({"world.shp"}), 1);
    Tvx_layer_list::layer_ptr by_range(vx_lr2d_clone(layers().layer_at(0)));
    vx_stl_mngr_set_mode(vx_shp_pgn_lr2d_get_stl_mngr_ptr(by_range.get()), c_stl_mngr_mode_range);
    layers().replace(layers().id_at(0), std::move(by_range));
    list()->setCurrentIndex(layers().index(0));
    EXPECT_FALSE(window->command("to_library")->isEnabled());
    list()->expandAll();
    list()->setCurrentIndex(layers().index(0, 0, layers().index(0)));
    EXPECT_TRUE(window->command("to_library")->isEnabled());
    EXPECT_TRUE(put([&](QDialog &dialog) { enter(dialog, "caption", "A class"); }));

    QProcess other;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(c_other_process, QString::fromStdString(f_dir.path()));
    other.setProcessEnvironment(environment);
    other.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=user_library_elsewhere.*"});
    ASSERT_TRUE(other.waitForFinished(120000));
    EXPECT_EQ(other.exitCode(), 0) << other.readAllStandardOutput().toStdString();
}

/// What the test above runs in a process of its own; by itself it has nothing to do.
TEST(user_library_elsewhere, has_the_styles)
{
    if (!qEnvironmentVariableIsSet(c_other_process))
        return;
    vx_qt_ensure_application();
    vx_options_set_language("en");
    vx_ini_data_set_storage_directory(qEnvironmentVariable(c_other_process).toStdWString().c_str());
    EXPECT_EQ(width_from_browser("Quiet counties"), 0.7);
    EXPECT_GT(width_from_browser("a class"), 0);
    EXPECT_EQ(width_from_browser("nowhere"), -1);
}

TEST_F(user_library, tells_where_a_style_cannot_be_saved_and_keeps_the_dialog)
{
    ASSERT_EQ(open({"streets.shp"}), 1);
    select(0);
    QDir().mkpath(file(""));
    QFile damaged(file("broken.slib"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("<vx_style_library version=\"1\"");
    damaged.close();
    ASSERT_TRUE(put(
        [&](QDialog &dialog) {
            EXPECT_EQ(dialog.findChild<QComboBox *>("library")->count(), 0) << "it cannot be read";
            enter(dialog, "caption", "Street");
            // The folder goes, and a file stands in its place.
            QDir(file("")).removeRecursively();
            QFile instead(QString(file("")).chopped(1));
            ASSERT_TRUE(instead.open(QIODevice::WriteOnly));
            message_reader const messages;
            auto *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            hand::click(ok, ok->rect().center());
            EXPECT_EQ(messages.texts.size(), 1);
            EXPECT_TRUE(dialog.isVisible());
        },
        false));
}
