#include "scale_builders/value/val_statistic.h"

#include "scale_builders/value/val_texts_priv.h"

#include <algorithm>
#include <functional>
#include <utility>

char const *Tvx_val_statistic::get_first()
{
    f_cursor = 0;
    return f_texts.empty() ? nullptr : f_texts.front().c_str();
}

char const *Tvx_val_statistic::get_next()
{
    f_cursor = std::min(f_cursor + 1, f_texts.size());
    return f_cursor == f_texts.size() ? nullptr : f_texts[f_cursor].c_str();
}

void Tvx_val_statistic::clear()
{
    f_texts.clear();
    f_cursor = 0;
}

void Tvx_val_statistic::add(char const *text)
{
    auto const added = vx_trimmed_right(text);
    if (f_texts.empty() || f_texts.back() < added) {
        f_texts.emplace_back(added);
        return;
    }
    auto const place = std::ranges::lower_bound(f_texts, added, std::less<>());
    if (*place != added)
        f_texts.emplace(place, added);
}

void Tvx_val_statistic::set_sorted(std::vector<std::string> &&texts)
{
    f_texts = std::move(texts);
    f_cursor = 0;
}

bool Tvx_val_statistic::find(char const *text) const
{
    return std::ranges::binary_search(f_texts, vx_trimmed_right(text), std::less<>());
}

void Tvx_val_statistic::assign(Tvx_val_statistic const &other)
{
    if (&other == this)
        return;
    f_texts = other.f_texts;
    f_cursor = 0;
}
