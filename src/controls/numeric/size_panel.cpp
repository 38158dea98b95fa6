#include "controls/numeric/size_panel.h"

#include "controls/numeric/detail/number_text.h"
#include "controls/numeric/edit_keys_priv.h"

#include "platform/toolkit/core/clipboard.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace keys = vx::edit_keys;

namespace {
constexpr int c_usual_decimals = 6;

/// Counted from 1; 0 if there is none.
int place_of_point(std::wstring const &text)
{
    auto const at = text.find(L'.');
    return at == std::wstring::npos ? 0 : static_cast<int>(at) + 1;
}

/// Rounded towards zero to a multiple of 10 to this power.
double cut_places(double value, int places)
{
    for (int i = 0; i < places; ++i)
        value = std::trunc(value / 10.0);
    for (int i = 0; i < places; ++i)
        value *= 10.0;
    // Adding 0 takes the sign from a zero.
    return value + 0.0;
}
} // namespace

Tvx_size_panel::Tvx_size_panel(TComponent *owner) : Tvx_label_edit_panel(owner)
{
    Tvx_edit *const edit = get_edit();
    edit->SetText(L"0");
    edit->OnKeyDown = make_closure<&Tvx_size_panel::on_edit_key_down>(this);
    edit->OnKeyPress = make_closure<&Tvx_size_panel::on_edit_key_press>(this);
    edit->OnChange = make_closure<&Tvx_size_panel::on_edit_change>(this);
    edit->OnEnter = make_closure<&Tvx_size_panel::on_edit_enter>(this);
    edit->OnExit = make_closure<&Tvx_size_panel::on_edit_exit>(this);
}

void Tvx_size_panel::set_size(double size)
{
    f_size = size;
    if (std::isnan(size)) {
        show_text({});
        return;
    }
    double const shown = f_precision_both_way > 0 ? cut_places(size, f_precision_both_way) : size;
    std::wstring text = vx::float_to_fixed(shown, f_precision < 0 ? c_usual_decimals : f_precision);
    trim_trailing_zeros_inplace(text);
    show_text(text);
}

void Tvx_size_panel::set_empty()
{
    f_size = std::numeric_limits<double>::quiet_NaN();
    show_text({});
}

void Tvx_size_panel::set_trim_trailing_zeros(bool trim)
{
    f_trim_trailing_zeros = trim;
    if (!trim)
        return;
    std::wstring text = get_edit()->GetText().str();
    trim_trailing_zeros_inplace(text);
    show_text(text);
}

void Tvx_size_panel::trim_trailing_zeros_inplace(std::wstring &text) const
{
    // The zeros at the end of an exponent are no decimals.
    if (!f_trim_trailing_zeros || place_of_point(text) == 0 ||
        text.find_first_of(L"eE") != std::wstring::npos)
        return;
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.')
        text.pop_back();
}

void Tvx_size_panel::show_text(std::wstring const &text)
{
    set_quiet_text(text);
    f_dot_position = place_of_point(text);
}

void Tvx_size_panel::read_text()
{
    std::wstring const text = get_edit()->GetText().str();
    f_size = text.empty() ? std::numeric_limits<double>::quiet_NaN() : vx::read_float(text);
    f_dot_position = place_of_point(text);
}

void Tvx_size_panel::on_edit_change(TObject * /*sender*/)
{
    read_text();
    if (!is_empty())
        on_changed(this);
}

void Tvx_size_panel::on_edit_enter(TObject * /*sender*/)
{
    on_enter(this);
}

void Tvx_size_panel::on_edit_exit(TObject * /*sender*/)
{
    on_apply(this);
}

void Tvx_size_panel::on_edit_key_down(TObject * /*sender*/, Word &key, TShiftState shift)
{
    keys::command const command = keys::command_of_key(key, shift);
    if (command == keys::command::none)
        return;
    key = 0;
    run_command(command);
}

void Tvx_size_panel::on_edit_key_press(TObject * /*sender*/, wchar_t &key)
{
    // Enter goes on to the dialog, which may have a default button.
    if (key == keys::c_enter) {
        on_apply(this);
        return;
    }
    keys::command const command = keys::command_of_character(key);
    key = filtered(key);
    if (command != keys::command::none)
        run_command(command);
}

/// The whole text is copied and pasted over.
void Tvx_size_panel::run_command(keys::command command)
{
    switch (command) {
    case keys::command::copy:
        return Clipboard()->SetAsText(get_edit()->GetText());
    case keys::command::paste:
        if (!get_edit()->GetReadOnly() && Clipboard()->HasText())
            get_edit()->SetText(Clipboard()->GetAsText());
        return;
    default:
        keys::run_command(*get_edit(), command);
    }
}

wchar_t Tvx_size_panel::filtered(wchar_t key) const
{
    if (keys::is_edit_key(key))
        return key;
    std::wstring const text = keys::text_left(*get_edit());
    bool const has_exponent = text.find_first_of(L"eE") != std::wstring::npos;
    int const point = place_of_point(text);
    bool passes = false;
    if (key == L'-') {
        auto const signs = std::count(text.begin(), text.end(), L'-') + (f_min < 0 ? 0 : 2);
        passes = signs < 2;
    } else if (key == L',' || key == L'.') {
        return point == 0 ? L'.' : 0;
    } else if (keys::is_digit(key)) {
        passes = f_precision < 0 || point == 0 || static_cast<int>(text.size()) < point + f_precision;
    } else if (key == L'e' || key == L'E') {
        passes = f_precision != 0 && !has_exponent;
    }
    return passes ? key : 0;
}
