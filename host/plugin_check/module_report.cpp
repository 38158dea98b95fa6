#include "host/plugin_check/module_report.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_bundle.h"
#include "platform/winapi/module_file.h"

#include <cstdio>
#include <memory>
#include <span>

namespace {
constexpr char const *c_page_entries[] = {
    "plugin_lr_2d_editor_create",  "plugin_lr_2d_editor_set_parent", "plugin_lr_2d_editor_get_caption",
    "plugin_lr_2d_editor_destroy", "plugin_lr_2d_editor_attach",     "plugin_lr_2d_editor_update",
    "plugin_lr_2d_editor_setpos",
};
constexpr char const *c_style_entries[] = {
    "plugin_style_editor_create",      "plugin_style_editor_get_caption", "plugin_style_editor_get_control",
    "plugin_style_editor_set_parent",  "plugin_style_editor_destroy",     "plugin_style_editor_supports",
    "plugin_style_editor_attach",      "plugin_style_editor_update",      "plugin_style_editor_setpos",
    "plugin_style_editor_select_next",
};
constexpr char const *c_bundle_entries[] = {c_vx_bundle_entry_name};

struct kind_row
{
    module_kind kind;
    char const *name;
    std::span<char const *const> entries;
};
constexpr kind_row c_kinds[] = {
    {module_kind::layer_page, "a layer page plug-in", c_page_entries},
    {module_kind::style_editor, "a style editor plug-in", c_style_entries},
    {module_kind::bundle, "a bundle", c_bundle_entries},
};

char const *state_text(Tvx_module_state state)
{
    switch (state) {
    case c_module_unreadable:
        return "there is no such file, or it cannot be read";
    case c_module_no_module:
        return "the file is no shared library";
    case c_module_other_machine:
        return "the module is for another machine";
    case c_module_cut:
        return "the file is cut: a part that its headers tell of lies beyond its end";
    case c_module_fits:
    case c_module_lacks_names:
        break;
    }
    return nullptr;
}

/// How many of the entries the module has; those it lacks go to `missing`.
int count_entries(std::wstring const &path, kind_row const &row, std::string &missing)
{
    auto const found = std::make_unique<bool[]>(row.entries.size());
    (void)vx_module_look(path.c_str(), row.entries, {found.get(), row.entries.size()});
    int count = 0;
    for (std::size_t i = 0; i < row.entries.size(); ++i) {
        count += found[i];
        if (!found[i])
            missing += std::string(missing.empty() ? "" : ", ") + row.entries[i];
    }
    return count;
}
} // namespace

void module_report::say(std::string const &line)
{
    std::printf("  %s\n", line.c_str());
    std::fflush(stdout);
}

void module_report::fault(std::string const &line)
{
    ++f_faults;
    say("FAULT: " + line);
}

module_kind report_file(std::wstring const &path, module_report &report)
{
    if (auto const *const text = state_text(vx_module_look(path.c_str(), {}))) {
        report.fault(text);
        return module_kind::none;
    }
    auto found = module_kind::none;
    bool is_something = false;
    for (auto const &row : c_kinds) {
        std::string missing;
        int const count = count_entries(path, row, missing);
        if (count == 0)
            continue;
        is_something = true;
        if (missing.empty()) {
            report.say(std::string("It is ") + row.name + ".");
            found = row.kind;
        } else {
            report.fault(std::string("It would be ") + row.name + ", but does not export " + missing + ".");
        }
    }
    if (!is_something)
        report.fault(
            "It exports no entry of a plug-in or bundle. Are its functions hidden (VXK_PLUGIN_ENTRY)?");
    return found;
}
