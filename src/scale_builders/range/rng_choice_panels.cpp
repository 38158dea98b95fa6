#include "scale_builders/range/rng_choice_panels.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/range/rng_params.h"
#include "scale_builders/range/rng_type_dlg.h"
#include "scale_engine/range/range_scale_classify_log.h"
#include "scale_engine/range/range_scale_round_digits.h"

#include "platform/basic/vx_res.h"

#include <array>
#include <cmath>

namespace builders = vx::builders;
using digits_list = vx::task::range_scale_round_digits;

namespace {
struct coefficient
{
    double value;
    wchar_t const *text;
};
constexpr std::array<coefficient, 4> c_coefficients{{{0.5, L"1/2 "}, {1, L"1 "}, {2, L"2 "}, {3, L"3 "}}};
constexpr unsigned c_coefficient_of_one = 1;
constexpr double c_near = 0.1;

/// Natural breaks are the last one.
constexpr std::array<Tvx_builder_choice, 5> c_kinds{
    {{c_rng_builder_equal_ranges, L"Min and max", c_bld_equal_ranges},
     {c_rng_builder_std_dev, L"Standart deviation", c_bld_std_dev},
     {c_rng_builder_logarithm, L"Logaritmic", c_bld_logarithm},
     {c_rng_builder_log_space, L"Logspace", c_bld_log_space},
     {c_rng_builder_natural, L"Natural", c_bld_natural}}};

/// A box over the whole of a panel.
Tvx_vcl_select_box_panel *fill_with_box(Tvx_vcl_panel *panel)
{
    auto *const box = new Tvx_vcl_select_box_panel(panel);
    box->SetParent(panel);
    box->create();
    box->set_data_width(builders::c_data_width);
    box->SetAlign(alClient);
    return box;
}
} // namespace

// ---- round digits

void Tvx_vcl_round_panel::create()
{
    Tvx_vcl_panel::create();
    f_box = fill_with_box(this);
    unsigned id = 0;
    for (auto const &text : digits_list::generate())
        f_box->add_item(text, id++);
    f_box->set_active_idx(static_cast<unsigned>(digits_list::default_index()));
}

void Tvx_vcl_round_panel::load_rc()
{
    f_box->set_caption(vx_res_get_wstr(c_bld_round));
}

int Tvx_vcl_round_panel::get_digits_count() const
{
    return digits_list::to_digits(static_cast<int>(f_box->get_active_idx()));
}

void Tvx_vcl_round_panel::set_digits_count(int digits)
{
    f_box->set_active_idx(static_cast<unsigned>(digits - digits_list::to_digits(0)));
}

// ---- deviations

void Tvx_vcl_deviation_coeff::create()
{
    Tvx_vcl_panel::create();
    f_box = fill_with_box(this);
    unsigned id = 0;
    for (auto const &coefficient : c_coefficients)
        f_box->add_item(coefficient.text, id++);
    f_box->set_active_idx(c_coefficient_of_one);
}

void Tvx_vcl_deviation_coeff::load_rc()
{
    f_box->set_caption(vx_res_get_wstr(c_bld_deviations));
    for (unsigned i = 0; i < c_coefficients.size(); ++i)
        f_box->set_item_captions(static_cast<int>(i), std::wstring(c_coefficients[i].text) +
                                                          vx_res_get_wstr(c_bld_deviation_word));
}

double Tvx_vcl_deviation_coeff::get_coeff() const
{
    bool const is_chosen = f_box->get_select_box()->GetItemIndex() >= 0;
    return c_coefficients[is_chosen ? f_box->get_active_idx() : c_coefficient_of_one].value;
}

void Tvx_vcl_deviation_coeff::set_coeff(double coeff)
{
    unsigned id = c_coefficient_of_one;
    for (unsigned i = 0; i < c_coefficients.size(); ++i)
        if (std::abs(coeff - c_coefficients[i].value) < c_near)
            id = i;
    f_box->set_active_idx(id);
}

// ---- first step

void Tvx_vcl_log_start_panel::create()
{
    Tvx_vcl_panel::create();
    f_box = fill_with_box(this);
    f_box->set_on_change(make_closure<&Tvx_vcl_log_start_panel::on_box_change>(this));
    update_select_box();
    set_base_index(0);
}

void Tvx_vcl_log_start_panel::load_rc()
{
    f_box->set_caption(vx_res_get_wstr(c_bld_first_step));
}

int Tvx_vcl_log_start_panel::get_base_index() const
{
    return static_cast<int>(f_box->get_active_idx()) - 1;
}

void Tvx_vcl_log_start_panel::set_base_index(int index)
{
    f_box->set_active_idx(static_cast<unsigned>(index + 1));
}

void Tvx_vcl_log_start_panel::update_select_box()
{
    unsigned const chosen = f_box->get_active_idx();
    f_box->clear();
    unsigned id = 0;
    for (auto const &text : vx::task::range_scale_classify_log::fetch_logbase(f_digit_count))
        f_box->add_item(text, ++id);
    f_box->set_active_idx(chosen);
}

// ---- kinds of classification

void Tvx_vcl_rng_type_select_panel::create()
{
    f_offers_natural = vx_rng_type_get_offer_natural();
    Tvx_vcl_choice_panel::create();
}

std::span<Tvx_builder_choice const> Tvx_vcl_rng_type_select_panel::choices() const
{
    return std::span(c_kinds).first(c_kinds.size() - (f_offers_natural ? 0 : 1));
}

int Tvx_vcl_rng_type_select_panel::group_caption() const
{
    return c_bld_method;
}

int Tvx_vcl_rng_type_select_panel::box_caption() const
{
    return c_bld_kind;
}

int Tvx_vcl_rng_type_select_panel::get_rng_type() const
{
    return static_cast<int>(get_box()->get_active_idx());
}

void Tvx_vcl_rng_type_select_panel::set_rng_type(int type)
{
    get_box()->set_active_idx(static_cast<unsigned>(type));
}
