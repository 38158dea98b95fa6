#include "host/property_import.h"

#include "data/property_import/property_import.h"
#include "host/captions.h"
#include "host/layer_files.h"

#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {
constexpr int c_exit_broken_off = 130;

struct percent_teller
{
    std::function<bool(int)> const &tell;
    bool ask(double done) { return tell(static_cast<int>(100 * done)); }
};

/// Digits at a place of a text, without zeros in front.
QString digits_at(QString const &text, qsizetype &at)
{
    qsizetype begin = at;
    while (at < text.size() && text[at].isDigit())
        ++at;
    while (begin + 1 < at && text[begin].digitValue() == 0)
        ++begin;
    return text.mid(begin, at - begin);
}

/// Order of names in which numbers count by their values: of "s10" and "s9" the latter is first.
bool is_name_before(QString const &a, QString const &b)
{
    qsizetype i = 0, k = 0;
    while (i < a.size() && k < b.size()) {
        if (a[i].isDigit() && b[k].isDigit()) {
            QString const x = digits_at(a, i), y = digits_at(b, k);
            if (x != y)
                return x.size() != y.size() ? x.size() < y.size() : x < y;
        } else if (a[i] != b[k]) {
            return a[i] < b[k];
        } else {
            ++i;
            ++k;
        }
    }
    return a.size() - i < b.size() - k;
}

volatile std::sig_atomic_t t_is_broken_off = 0;

/// Ctrl+C ends the work and leaves nothing half done.
class interrupt_scope
{
public:
    interrupt_scope()
    {
        t_is_broken_off = 0;
        struct sigaction action = {};
        action.sa_handler = [](int) { t_is_broken_off = 1; };
        sigaction(SIGINT, &action, &f_interrupt);
        sigaction(SIGTERM, &action, &f_end);
        vx_datasource_set_waiting(make_closure<&interrupt_scope::goes_on>(this));
    }
    interrupt_scope(interrupt_scope const &) = delete;
    interrupt_scope &operator=(interrupt_scope const &) = delete;
    ~interrupt_scope()
    {
        vx_datasource_set_waiting({});
        sigaction(SIGINT, &f_interrupt, nullptr);
        sigaction(SIGTERM, &f_end, nullptr);
    }
    [[nodiscard]] bool goes_on() { return t_is_broken_off == 0; }

private:
    struct sigaction f_interrupt = {};
    struct sigaction f_end = {};
};

void print(QString const &text)
{
    std::fputs(text.toUtf8().constData(), stderr);
}
} // namespace

Tvx_import_outcome vx_property_import(QStringList paths, QString const &target, Tvx_import_way way,
                                      std::function<bool(int)> const &goes_on, QString &error)
{
    std::ranges::stable_sort(paths, [](QString const &a, QString const &b) {
        return is_name_before(QFileInfo(a).fileName(), QFileInfo(b).fileName());
    });
    std::vector<std::wstring> sources;
    for (QString const &path : paths)
        sources.push_back(vx_layer_files_source(path));
    percent_teller teller{goes_on};
    vx::data::property_import work;
    auto const name = QFileInfo(target).absoluteFilePath().toStdWString();
    auto const ask = make_closure<&percent_teller::ask>(&teller);
    auto const outcome =
        way == c_import_adds ? work.add(sources, name, ask) : work.execute(sources, name, ask);
    error = QString::fromStdWString(work.error());
    using result = vx::data::property_import::outcome;
    return outcome == result::done       ? c_import_done
           : outcome == result::given_up ? c_import_given_up
                                         : c_import_failed;
}

int vx_property_import_run(Tvx_command_line const &line)
{
    vx_bundles_load();
    QStringList paths;
    for (std::string const &file : line.files)
        paths.append(QFile::decodeName(file.c_str()));
    QString const target = QFile::decodeName(line.import_file.c_str());
    QString const name = QFileInfo(target).fileName();
    bool const is_watched = isatty(STDERR_FILENO) != 0;
    int shown = -1;
    QString error;
    interrupt_scope const interrupts;
    auto const outcome = vx_property_import(
        paths, target, c_import_makes,
        [&](int percent) {
            if (is_watched && percent != shown)
                print("\r" + vx_map_caption(c_map_importing).arg(name).arg(percent));
            shown = percent;
            return t_is_broken_off == 0;
        },
        error);
    if (is_watched && shown >= 0)
        print("\n");
    if (t_is_broken_off != 0 && outcome != c_import_done)
        return c_exit_broken_off;
    if (outcome == c_import_done) {
        std::puts(vx_map_caption(c_map_status_imported).arg(QDir::toNativeSeparators(target)).toUtf8());
        return 0;
    }
    print("vx_map: " + error + "\n");
    return 1;
}
