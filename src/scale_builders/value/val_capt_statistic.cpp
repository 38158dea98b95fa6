#include "scale_builders/value/val_capt_statistic.h"

#include "data/filesystem/tutils.h"
#include "scale_builders/value/val_texts_priv.h"

#include <algorithm>
#include <memory>

void Tvx_val_capt_item::set_val(char const *text)
{
    f_val = vx_trimmed_right(text);
}

void Tvx_val_capt_item::set_capt(char const *text)
{
    f_capt = vx_trimmed_right(text);
}

void Tvx_val_capt_item::set_dbl(bool is_defined, double value)
{
    f_dbl_def = is_defined;
    f_dbl = value;
}

Tvx_val_capt_statistic::Tvx_val_capt_statistic() : f_cursor(f_items.end())
{
}

Tvx_val_capt_statistic::~Tvx_val_capt_statistic()
{
    clear();
}

Tvx_val_capt_item *Tvx_val_capt_statistic::get_first()
{
    f_cursor = f_items.begin();
    return f_cursor == f_items.end() ? nullptr : *f_cursor;
}

Tvx_val_capt_item *Tvx_val_capt_statistic::get_next()
{
    return f_cursor == f_items.end() || ++f_cursor == f_items.end() ? nullptr : *f_cursor;
}

void Tvx_val_capt_statistic::clear()
{
    f_by_number.clear();
    for (auto *const item : f_items)
        delete item;
    f_items.clear();
    f_cursor = f_items.end();
}

void Tvx_val_capt_statistic::set_all_marked(bool marked)
{
    for (auto *const item : f_items)
        item->set_marked(marked);
}

Tvx_val_capt_item *Tvx_val_capt_statistic::add(char const *text)
{
    auto item = std::make_unique<Tvx_val_capt_item>();
    item->set_val(text);
    if (f_numeric_flag) {
        bool is_number = false;
        double const value = Tutils::str2dbl(item->get_val(), &is_number);
        item->set_dbl(is_number, value);
    }
    f_by_number.clear();
    auto const [place, is_new] = f_items.insert(item.get());
    if (is_new)
        static_cast<void>(item.release()); // the set's
    return *place;
}

Tvx_val_capt_item *Tvx_val_capt_statistic::find(char const *text)
{
    f_sought.set_val(text);
    auto const found = f_items.find(&f_sought);
    return found == f_items.end() ? nullptr : *found;
}

Tvx_val_capt_item *Tvx_val_capt_statistic::find_as_dbl(char const *text)
{
    bool is_number = false;
    double const wanted = Tutils::str2dbl(std::string(text ? text : ""), &is_number);
    if (!is_number)
        return nullptr;
    auto const number = [](Tvx_val_capt_item const *item) { return item->get_dbl(); };
    if (f_by_number.empty()) {
        std::ranges::copy_if(f_items, std::back_inserter(f_by_number),
                             [](auto const *item) { return item->get_dbl_def(); });
        std::ranges::stable_sort(f_by_number, {}, number);
    }
    auto const found = std::ranges::lower_bound(f_by_number, wanted, {}, number);
    return found == f_by_number.end() || (*found)->get_dbl() != wanted ? nullptr : *found;
}

Tvx_val_capt_item *Tvx_val_capt_statistic::find_any_way(char const *text)
{
    auto *const item = find(text);
    return item || !f_numeric_flag ? item : find_as_dbl(text);
}
