#include "scale_builders/value/val_statistic.h"

#include "scale_builders/value/val_texts_priv.h"

char const *Tvx_val_statistic::get_first()
{
    f_cursor = f_texts.begin();
    return f_cursor == f_texts.end() ? nullptr : f_cursor->c_str();
}

char const *Tvx_val_statistic::get_next()
{
    if (f_cursor == f_texts.end() || ++f_cursor == f_texts.end())
        return nullptr;
    return f_cursor->c_str();
}

void Tvx_val_statistic::clear()
{
    f_texts.clear();
    f_cursor = f_texts.end();
}

void Tvx_val_statistic::add(char const *text)
{
    // Most come in order.
    f_texts.emplace_hint(f_texts.end(), vx_trimmed_right(text));
}

bool Tvx_val_statistic::find(char const *text) const
{
    return f_texts.contains(vx_trimmed_right(text));
}

void Tvx_val_statistic::assign(Tvx_val_statistic const &other)
{
    if (&other == this)
        return;
    f_texts = other.f_texts;
    f_cursor = f_texts.end();
}
