#include "tests/support/temp_dir.h"

#include <QImage>
#include <QProcess>

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace {
std::map<std::string, std::filesystem::file_time_type> examples()
{
    std::map<std::string, std::filesystem::file_time_type> files;
    for (auto const &entry : std::filesystem::directory_iterator(VX_EXAMPLE_DATA))
        files[entry.path().filename().string()] = entry.last_write_time();
    return files;
}
} // namespace

// What it does and sees it checks itself.
TEST(tour, goes_through_in_each_language_and_writes_nothing_but_pictures)
{
    auto const before = examples();
    for (char const *language : {"en", "ru"}) {
        vx_test::temp_dir const folder;
        QProcess tour;
        tour.start(VX_BINARY_DIR "/bin/vx_map", {"--lang", language, "--headless", "--shot",
                                                 QString::fromStdString(folder.path().string())});
        ASSERT_TRUE(tour.waitForFinished(300000));
        EXPECT_EQ(tour.exitCode(), 0) << tour.readAllStandardError().toStdString();
        int pictures = 0;
        for (auto const &entry : std::filesystem::directory_iterator(folder.path())) {
            if (entry.path().filename() == "layout.pdf") {
                EXPECT_GT(entry.file_size(), 10000);
                continue;
            }
            EXPECT_FALSE(QImage(QString::fromStdString(entry.path().string())).isNull()) << entry.path();
            ++pictures;
        }
        EXPECT_GT(pictures, 40) << language;
    }
    EXPECT_EQ(examples(), before);
}
