// Opening a list of 10,000 properties, which is read anew from its source, against filling a plain combo box
// with as many texts, without opening it. Measured in turn in one run; the median counts.

#include "controls/prop/prop_combo_box.h"

#include "platform/toolkit/core/form.h"

#include <QApplication>
#include <QComboBox>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {
using clock_type = std::chrono::steady_clock;
constexpr int c_properties = 10'000;
constexpr int c_rounds = 25;

std::vector<std::wstring> const &names()
{
    static std::vector<std::wstring> const all = [] {
        std::vector<std::wstring> made;
        for (int i = 0; i < c_properties; ++i)
            made.push_back(L"property " + std::to_wstring(i));
        return made;
    }();
    return all;
}

bool open_data(void *, TObject *)
{
    return true;
}
void close_data(void *, TObject *)
{
}
unsigned count_data(void *, TObject *)
{
    return c_properties;
}
wchar_t const *get_data(void *, TObject *, unsigned i, bool &usable, bool &numeric)
{
    usable = numeric = true;
    return names()[i].c_str();
}

template <class F>
double milliseconds(F run)
{
    auto const start = clock_type::now();
    run();
    return std::chrono::duration<double, std::milli>(clock_type::now() - start).count();
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    TForm form(nullptr);
    auto *box = new Tvx_prop_combo_box(&form);
    box->SetParent(&form);
    box->on_data_open = {&open_data, nullptr};
    box->on_data_close = {&close_data, nullptr};
    box->on_data_get_np = {&count_data, nullptr};
    box->on_data_get_wprop = {&get_data, nullptr};
    box->set_prop_name(L"property 7000");
    form.Show();
    QComboBox plain;
    plain.show();
    QApplication::processEvents();

    std::vector<QString> texts;
    for (std::wstring const &name : names())
        texts.push_back(QString::fromStdWString(name));
    std::vector<double> ours;
    std::vector<double> filled;
    for (int round = 0; round < c_rounds; ++round) {
        ours.push_back(milliseconds([&] { box->SetDroppedDown(true); }));
        box->SetDroppedDown(false);
        filled.push_back(milliseconds([&] {
            plain.clear();
            for (QString const &text : texts)
                plain.addItem(text);
        }));
        QApplication::processEvents();
    }
    if (box->get_prop_index() != 7000)
        return 1;
    std::printf("opening %d properties: %.2f ms\nfilling a plain combo box: %.2f ms\nratio: %.2f\n",
                c_properties, median(ours), median(filled), median(ours) / median(filled));
    return 0;
}
