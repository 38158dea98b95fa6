// vx_plugin_check: what a plug-in's author runs before others load it.
#include "host/plugin_check/plugin_drive.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_options.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

namespace {
constexpr char c_usage[] =
    "Usage: vx_plugin_check [--layer FILE]... MODULE...\n"
    "\n"
    "Says of each module whether it is a layer page plug-in, a style editor plug-in or a bundle, what it "
    "lacks and\n"
    "which revision it speaks, and takes it through what an editor does: make, attach, size, end. With "
    "--layer its\n"
    "tabs are shown with the layer of that file too. Ends with 0 if no module has a fault, else with 1.\n";
constexpr unsigned c_longest_seconds = 60;
// No values with which a module ends the process by itself.
constexpr int c_passed = 40;
constexpr int c_failed = 41;

std::wstring full_path(char const *name)
{
    char *const real = realpath(name, nullptr);
    auto const path = vx::text::utf8_to_wide(real ? real : name);
    std::free(real);
    return path;
}

/// In a process of its own: a module that crashes is told of like one that fails.
bool drive_apart(std::wstring const &path, module_kind kind, std::vector<std::wstring> const &layers,
                 module_report &report)
{
    std::fflush(stdout);
    auto const child = fork();
    if (child == 0) {
        alarm(c_longest_seconds);
        module_report own;
        drive_module(path, kind, layers, own);
        std::fflush(stdout);
        _exit(own.faults() > 0 ? c_failed : c_passed);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        report.fault("No process can be made for it.");
        return false;
    }
    if (WIFSIGNALED(status))
        report.fault(WTERMSIG(status) == SIGALRM
                         ? "It does not come to an end."
                         : std::string("It ends the process there: ") + strsignal(WTERMSIG(status)) + ".");
    else if (WEXITSTATUS(status) != c_passed && WEXITSTATUS(status) != c_failed)
        report.fault("It ends the process there.");
    return WIFEXITED(status) && WEXITSTATUS(status) == c_passed;
}

bool check(char const *name, std::vector<std::wstring> const &layers)
{
    std::printf("%s\n", name);
    module_report report;
    auto const path = full_path(name);
    auto const kind = report_file(path, report);
    bool const passed =
        (kind == module_kind::none || drive_apart(path, kind, layers, report)) && report.faults() == 0;
    report.say(passed ? "It passed." : "It did not pass.");
    return passed;
}
} // namespace

int main(int argc, char **argv)
{
    // Windows that nobody is to see.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    std::vector<std::wstring> layers;
    std::vector<char const *> modules;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--layer") == 0 && i + 1 < argc)
            layers.push_back(full_path(argv[++i]));
        else if (argv[i][0] == '-') {
            std::fputs(c_usage, std::strcmp(argv[i], "--help") == 0 ? stdout : stderr);
            return std::strcmp(argv[i], "--help") == 0 ? 0 : 2;
        } else
            modules.push_back(argv[i]);
    }
    if (modules.empty()) {
        std::fputs(c_usage, stderr);
        return 2;
    }
    bool passed = true;
    for (auto const *module : modules)
        passed = check(module, layers) && passed;
    return passed ? 0 : 1;
}
