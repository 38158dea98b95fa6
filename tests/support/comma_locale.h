#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace vx_test {
/// While it lives, the process writes numbers with a decimal comma and groups of digits: the C++ locale
/// always, the C locale as far as the machine has such a one.
class comma_locale
{
public:
    comma_locale() : f_before(std::locale::global(std::locale(std::locale::classic(), new commas)))
    {
        f_c_before = std::setlocale(LC_ALL, nullptr);
        for (auto const *name : {"de_DE.UTF-8", "ru_RU.UTF-8", "fr_FR.UTF-8"})
            if (std::setlocale(LC_ALL, name))
                break;
    }
    comma_locale(comma_locale const &) = delete;
    comma_locale &operator=(comma_locale const &) = delete;
    ~comma_locale()
    {
        std::setlocale(LC_ALL, f_c_before.c_str());
        std::locale::global(f_before);
    }

private:
    struct commas : std::numpunct<char>
    {
        [[nodiscard]] char do_decimal_point() const override { return ','; }
        [[nodiscard]] char do_thousands_sep() const override { return '.'; }
        [[nodiscard]] std::string do_grouping() const override { return "\3"; }
    };
    std::locale f_before;
    std::string f_c_before;
};
} // namespace vx_test
