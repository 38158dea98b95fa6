#include "answerer.h"
#include "host/kept_map.h"
#include "host/map_layouts.h"
#include "map_fixture.h"
#include "support/temp_dir.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStatusBar>

#include <csignal>
#include <fstream>

using namespace vx_test;

namespace {
class kept_map : public map_fixture
{
protected:
    static constexpr int c_never_ms = 1'000'000;
    static constexpr qint64 c_patience_ms = 60'000;

    QString file(char const *name) { return place + '/' + name; }
    QStringList copies() { return QDir(file("kept")).entryList({"*.sn"}, QDir::Files); }
    bool wait_for_copies(int count)
    {
        QElapsedTimer waited;
        for (waited.start(); waited.elapsed() < c_patience_ms && copies().size() != count;)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return copies().size() == count;
    }
    void keep(int rest_ms)
    {
        window->keep_copies(file("kept"));
        window->kept()->set_times(rest_ms, rest_ms);
    }
    /// A map in a file, with work that is not saved.
    void work()
    {
        ASSERT_EQ(open({"nc.shp"}), 1);
        answerer answers("", file("counties"));
        run("save_scene");
        EXPECT_FALSE(window->command("open_layout")->isEnabled());
        ASSERT_TRUE(window->layouts().add());
        EXPECT_TRUE(window->command("open_layout")->isEnabled());
        ASSERT_TRUE(layers().rename(0, "unsaved"));
    }

    temp_dir folder;
    QString place = QString::fromStdString(folder.path().string());
};

/// Another program, which is ended by a signal. By SIGKILL it leaves what was kept in time, by SIGTERM all.
TEST_F(kept_map, DISABLED_other_program)
{
    int const signal = qEnvironmentVariableIntValue("VX_KEPT_SIGNAL");
    place = qEnvironmentVariable("VX_KEPT_FOLDER");
    keep(signal == SIGKILL ? 10 : c_never_ms);
    ASSERT_NO_FATAL_FAILURE(work());
    ASSERT_TRUE(signal == SIGTERM || wait_for_copies(1));
    raise(signal);
    (void)wait_for_copies(2);
}

TEST_F(kept_map, is_offered_after_its_program_has_been_ended)
{
    for (int const signal : {SIGKILL, SIGTERM}) {
        SCOPED_TRACE(signal);
        std::filesystem::remove(folder / "counties_.sn");
        QProcess other;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("VX_KEPT_FOLDER", QString::fromStdString(folder.path().string()));
        environment.insert("VX_KEPT_SIGNAL", QString::number(signal));
        other.setProcessEnvironment(environment);
        other.start(QCoreApplication::applicationFilePath(),
                    {"--gtest_filter=kept_map.DISABLED_*", "--gtest_also_run_disabled_tests"});
        ASSERT_TRUE(other.waitForFinished(c_patience_ms));
        ASSERT_EQ(other.exitStatus(), QProcess::CrashExit) << other.readAllStandardOutput().toStdString();
        ASSERT_EQ(other.exitCode(), signal);
        ASSERT_EQ(copies().size(), 1);
        QByteArray const saved = vx_file_print(file("counties_.sn"));

        keep(c_never_ms);
        {
            answerer answers("later");
            EXPECT_FALSE(window->offer_kept_copy());
            EXPECT_EQ(answers.questions.size(), 1);
        }
        answerer answers("open");
        ASSERT_TRUE(window->offer_kept_copy());
        EXPECT_TRUE(answers.questions.value(0).contains("\"counties\""))
            << answers.questions[0].toStdString();
        EXPECT_EQ(layers().name_at(0), "unsaved");
        EXPECT_EQ(window->layouts().count(), 1);
        EXPECT_EQ(window->scene_path(), file("counties_.sn"));
        EXPECT_TRUE(window->is_changed());
        EXPECT_EQ(vx_file_print(file("counties_.sn")), saved);
        EXPECT_FALSE(Tvx_kept_map(file("kept"), {}).find({})) << "this process has it";
        EXPECT_TRUE(window->save_scene());
        EXPECT_NE(vx_file_print(file("counties_.sn")), saved);
        EXPECT_TRUE(QDir(file("kept")).isEmpty(QDir::Files | QDir::Hidden));
        answerer loses("lose");
        EXPECT_TRUE(window->new_scene());
    }
}

TEST_F(kept_map, is_gone_when_the_work_is_saved_or_given_up)
{
    keep(10);
    ASSERT_NO_FATAL_FAILURE(work());
    ASSERT_TRUE(wait_for_copies(1));
    ASSERT_TRUE(window->save_scene());
    EXPECT_TRUE(copies().isEmpty());
    ASSERT_TRUE(layers().rename(0, "again"));
    ASSERT_TRUE(wait_for_copies(1));
    answerer answers("lose");
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(QDir(file("kept")).isEmpty(QDir::Files | QDir::Hidden));
}

TEST_F(kept_map, failures_to_keep_one_are_told_and_are_no_harm)
{
    std::ofstream(folder / "kept") << "a file where the folder would be";
    keep(10);
    ASSERT_NO_FATAL_FAILURE(work());
    QElapsedTimer waited;
    for (waited.start(); waited.elapsed() < c_patience_ms &&
                         !window->statusBar()->currentMessage().startsWith("No copy of the unsaved map");)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_LT(waited.elapsed(), c_patience_ms);
    EXPECT_TRUE(window->save_scene());
}

TEST_F(kept_map, what_another_program_saved_is_not_replaced_unasked)
{
    ASSERT_NO_FATAL_FAILURE(work());
    ASSERT_TRUE(window->save_scene());
    ASSERT_TRUE(layers().rename(0, "mine"));
    auto const overwrite = [this] {
        std::filesystem::remove(folder / "counties_.sn");
        std::ofstream(folder / "counties_.sn") << "theirs";
    };
    overwrite();
    QByteArray const theirs = vx_file_print(file("counties_.sn"));
    {
        answerer answers("");
        EXPECT_FALSE(window->save_scene());
        EXPECT_EQ(answers.questions.size(), 1);
        EXPECT_EQ(vx_file_print(file("counties_.sn")), theirs);
        EXPECT_TRUE(window->is_changed());
    }
    answerer answers("replace");
    std::filesystem::remove(folder / "counties_.sn");
    EXPECT_TRUE(window->save_scene()) << "what is gone is nobody's work";
    EXPECT_TRUE(window->save_scene());
    EXPECT_TRUE(answers.questions.isEmpty());
    overwrite();
    EXPECT_TRUE(window->save_scene());
    EXPECT_EQ(answers.questions.size(), 1);
    EXPECT_NE(vx_file_print(file("counties_.sn")), theirs);
}
} // namespace
