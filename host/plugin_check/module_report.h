#pragma once

#include <string>
#include <vector>

/// What is said of one module: lines for its author, and how many of them are faults.
class module_report
{
public:
    void say(std::string const &line);
    void fault(std::string const &line);
    [[nodiscard]] int faults() const { return f_faults; }

private:
    int f_faults = 0;
};

enum class module_kind
{
    none,
    layer_page,
    style_editor,
    bundle,
};

/// Looks at the file alone, and says what it is and what it lacks. None where it is not worth loading.
[[nodiscard]] module_kind report_file(std::wstring const &path, module_report &report);
