#include "platform/styles/detail/scale_model.h"

#include "platform/base/detail/white_space.h"
#include "platform/base/text_codec.h"
#include "platform/base/text_hash.h"
#include "platform/basic/detail/vx_oklab.h"

#include <queue>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>

namespace vx::styles {
namespace {
template <class T>
std::vector<std::unique_ptr<T>> clone_all(std::vector<std::unique_ptr<T>> const &source)
{
    std::vector<std::unique_ptr<T>> copy;
    copy.reserve(source.size());
    for (auto const &item : source)
        copy.push_back(std::make_unique<T>(*item));
    return copy;
}

template <class T>
void move_item(std::vector<T> &items, unsigned from, unsigned to)
{
    auto const at = [&](unsigned i) { return items.begin() + static_cast<std::ptrdiff_t>(i); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
}

/// Doubles that are the same setting: a NaN equals a NaN.
bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool operator==(rng_end const &a, rng_end const &b)
{
    return same(a.value, b.value) && a.caption == b.caption && a.prm == b.prm;
}
} // namespace

opacity_curve default_opacity_curve()
{
    return {{0, 1}, {1, 1}};
}

opacity_curve make_opacity_curve(double const *positions, double const *opacities, unsigned count)
{
    if (!positions || !opacities || count < 2 || positions[0] != 0 || positions[count - 1] != 1)
        return {};
    opacity_curve curve(count);
    for (unsigned i = 0; i < count; ++i) {
        bool const ascending = i == 0 || positions[i] > positions[i - 1];
        if (!ascending || !(opacities[i] >= 0 && opacities[i] <= 1))
            return {};
        curve[i] = {positions[i], opacities[i]};
    }
    return curve;
}

void blend_row(gradient kind, any_style &target, any_style const &first, any_style const &last, double t)
{
    Tvx_color const own = target.color();
    switch (kind) {
    case gradient::color: {
        Tvx_color color = color::mix(first.color(), last.color(), t);
        color.a = own.a;
        target.set_color(color);
        return;
    }
    case gradient::hue:
        target.set_color(color::with_mixed_hue(own, first.color(), last.color(), t));
        return;
    case gradient::transparency: {
        Tvx_color color = own;
        color.a = static_cast<std::uint8_t>(std::lround(std::lerp(first.color().a, last.color().a, t)));
        target.set_color(color);
        return;
    }
    case gradient::size:
        target.set_size(std::lerp(first.size(), last.size(), t));
        return;
    }
}

// ---- value scale
namespace {
bool is_marked(std::shared_ptr<val_entry> const &entry)
{
    return entry->marked;
}
} // namespace

val_entries::val_entries(val_entries const &source) : f_blocks(source.f_blocks), f_size(source.f_size)
{
    for (auto &shared : f_blocks) {
        if (!shared->exposed)
            continue;
        auto own = std::make_shared<block>(block{shared->entries});
        for (auto &entry : own->entries)
            if (entry->exposed) {
                entry = std::make_shared<val_entry>(*entry);
                entry->exposed = false;
            }
        shared = std::move(own);
    }
}

/// A block that is shared has no exposed entry.
val_entries::block &val_entries::own_block(std::size_t index)
{
    auto &wanted = f_blocks[index / c_block];
    if (wanted.use_count() > 1)
        wanted = std::make_shared<block>(*wanted);
    return *wanted;
}

val_entry &val_entries::edit(std::size_t index)
{
    auto &entry = own_block(index).entries[index % c_block];
    if (entry.use_count() > 1)
        entry = std::make_shared<val_entry>(*entry);
    return *entry;
}

val_entry &val_entries::expose(std::size_t index)
{
    val_entry &entry = edit(index);
    entry.exposed = true;
    own_block(index).exposed = true;
    return entry;
}

void val_entries::append(std::shared_ptr<val_entry> entry)
{
    if (f_size % c_block == 0)
        f_blocks.push_back(std::make_shared<block>());
    block &last = own_block(f_size++);
    last.exposed = last.exposed || entry->exposed;
    last.entries.push_back(std::move(entry));
}

val_entries::list val_entries::take()
{
    list all;
    all.reserve(f_size);
    for (auto &block : f_blocks) {
        if (block.use_count() > 1)
            all.insert(all.end(), block->entries.begin(), block->entries.end());
        else
            std::ranges::move(block->entries, std::back_inserter(all));
    }
    f_blocks.clear();
    f_size = 0;
    return all;
}

void val_entries::put(list entries)
{
    f_blocks.clear();
    f_blocks.reserve(entries.size() / c_block + 1);
    f_size = 0;
    for (auto &entry : entries)
        append(std::move(entry));
}

bool val_entries::same(val_entries const &other) const
{
    if (f_size != other.f_size)
        return false;
    for (std::size_t i = 0; i < f_blocks.size(); ++i)
        if (f_blocks[i] != other.f_blocks[i] &&
            !std::ranges::equal(
                f_blocks[i]->entries, other.f_blocks[i]->entries, [](auto const &x, auto const &y) {
                    return x == y || (x->text == y->text && x->caption == y->caption && x->prm == y->prm);
                }))
            return false;
    return true;
}

val_entry *val_scale::edit(unsigned index)
{
    return index < size() ? &f_entries.edit(index) : nullptr;
}

val_entry *val_scale::expose(unsigned index)
{
    return index < size() ? &f_entries.expose(index) : nullptr;
}

val_scale::val_scale(val_scale const &source)
    : other(source.other), opacity(source.opacity), f_entries(source.f_entries), f_active(source.f_active),
      f_marked(source.f_marked), f_kind(source.f_kind)
{
}

val_scale &val_scale::operator=(val_scale const &source)
{
    if (this == &source)
        return *this;
    other = source.other;
    opacity = source.opacity;
    f_kind = source.f_kind;
    take_over(val_entries(source.f_entries), source.f_marked, source.f_active);
    return *this;
}

val_scale &val_scale::operator=(val_scale &&source)
{
    other = source.other;
    opacity = std::move(source.opacity);
    f_kind = source.f_kind;
    take_over(std::move(source.f_entries), source.f_marked, source.f_active);
    source.take_over({}, 0, -1);
    return *this;
}

void val_scale::take_over(val_entries entries, unsigned marked, int active)
{
    f_entries = std::move(entries);
    f_marked = marked;
    f_index.clear();
    set_active(active);
}

void val_scale::resize(unsigned size)
{
    f_index.clear();
    if (size < this->size()) {
        auto entries = f_entries.take();
        f_marked -= static_cast<unsigned>(std::count_if(entries.begin() + size, entries.end(), is_marked));
        entries.resize(size);
        f_entries.put(std::move(entries));
    }
    // Who reads a file asks for one more again and again. Many at once lie one behind the other in memory.
    val_entries::list added(size - this->size());
    for (auto &entry : added)
        entry = std::make_shared<val_entry>(f_kind);
    for (auto &entry : added)
        f_entries.append(std::move(entry));
    set_active(f_active);
}

unsigned val_scale::insert(unsigned index)
{
    index = std::min(index, size());
    f_index.clear();
    auto fresh = std::make_shared<val_entry>(f_kind);
    if (index == size()) {
        f_entries.append(std::move(fresh));
    } else {
        auto entries = f_entries.take();
        entries.insert(entries.begin() + index, std::move(fresh));
        f_entries.put(std::move(entries));
    }
    if (f_active >= static_cast<int>(index))
        ++f_active;
    return index;
}

void val_scale::erase(unsigned index)
{
    if (index >= size())
        return;
    set_marked(index, false);
    f_index.clear();
    auto entries = f_entries.take();
    entries.erase(entries.begin() + index);
    f_entries.put(std::move(entries));
    if (f_active == static_cast<int>(index))
        f_active = -1;
    else if (f_active > static_cast<int>(index))
        --f_active;
}

void val_scale::erase_marked()
{
    val_entry const *active = f_active >= 0 ? at(static_cast<unsigned>(f_active)) : nullptr;
    if (active && active->marked)
        active = nullptr;
    f_index.clear();
    auto entries = f_entries.take();
    std::erase_if(entries, is_marked);
    f_entries.put(std::move(entries));
    f_marked = 0;
    f_active = -1;
    for (unsigned i = 0; active && i < size(); ++i)
        if (at(i) == active)
            f_active = static_cast<int>(i);
}

void val_scale::move(unsigned from, unsigned to)
{
    if (from >= size() || to >= size() || from == to)
        return;
    f_index.clear();
    auto entries = f_entries.take();
    move_item(entries, from, to);
    f_entries.put(std::move(entries));
    int const a = f_active;
    int const f = static_cast<int>(from);
    int const t = static_cast<int>(to);
    if (a == f)
        f_active = t;
    else if (f < t && a > f && a <= t)
        --f_active;
    else if (f > t && a >= t && a < f)
        ++f_active;
}

void val_scale::set_order(int const *order, unsigned count)
{
    std::vector<unsigned> place;
    auto entries = f_entries.take();
    bool const done = reorder(entries, order, count, &place);
    f_entries.put(std::move(entries));
    if (!done)
        return;
    f_index.clear();
    if (f_active >= 0)
        f_active = static_cast<int>(place[static_cast<unsigned>(f_active)]);
}

void val_scale::set_text(unsigned index, std::wstring_view text)
{
    if (index >= size())
        return;
    f_index.clear();
    f_entries.edit(index).text = text;
}

void val_scale::set_marked(unsigned index, bool marked)
{
    if (index >= size() || f_entries[index].marked == marked)
        return;
    f_entries.edit(index).marked = marked;
    if (marked)
        ++f_marked;
    else
        --f_marked;
}

val_scale::slot &val_scale::slot_of(std::string_view text, std::uint32_t hash) const
{
    std::array<char, c_short> start{};
    bool const is_short = text.size() <= c_short;
    if (is_short)
        std::memcpy(start.data(), text.data(), text.size());
    auto const holds = [&](slot const &s) {
        return s.hash == hash && s.length == text.size() &&
               (is_short ? s.text == start : std::string_view(f_texts).substr(s.start, s.length) == text);
    };
    std::size_t const mask = f_index.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask)
        if (!f_index[i].entry || holds(f_index[i]))
            return f_index[i];
}

void val_scale::build_index() const
{
    std::size_t buckets = 16;
    while (buckets < f_entries.size() + f_entries.size() / 2)
        buckets *= 2;
    f_index.assign(buckets, {});
    f_texts.clear();
    f_seed = text::chance_seed();
    for (std::uint32_t i = 0; i < f_entries.size(); ++i) {
        std::string const text = text::wide_to_whole_utf8(text::trimmed(f_entries[i].text));
        std::uint32_t const hash = text::seeded_hash(text, f_seed);
        slot &s = slot_of(text, hash);
        if (s.entry) // the first of equal texts stays
            continue;
        s = {i + 1,
             hash,
             static_cast<std::uint32_t>(text.size()),
             static_cast<std::uint32_t>(f_texts.size()),
             {}};
        if (text.size() <= c_short)
            std::memcpy(s.text.data(), text.data(), text.size());
        else
            f_texts += text;
    }
}

int val_scale::find(std::wstring_view text) const
{
    // Most values are short and ASCII, and need no text made for them.
    std::array<char, 128> ascii;
    text = text::trimmed(text);
    if (text.size() <= ascii.size() &&
        std::ranges::all_of(text, [](wchar_t c) { return c >= 0 && c < 0x80; })) {
        std::ranges::transform(text, ascii.begin(), [](wchar_t c) { return static_cast<char>(c); });
        return find(std::string_view(ascii.data(), text.size()));
    }
    return find(text::wide_to_whole_utf8(text));
}

int val_scale::find(std::string_view utf8) const
{
    if (f_entries.empty())
        return -1;
    if (f_index.empty())
        build_index();
    utf8 = text::trimmed(utf8);
    if (utf8.empty())
        utf8 = ""; // never a null pointer
    return static_cast<int>(slot_of(utf8, text::seeded_hash(utf8, f_seed)).entry) - 1;
}

bool operator==(val_scale const &a, val_scale const &b)
{
    if (a.f_kind != b.f_kind || !(a.other == b.other) || a.opacity != b.opacity)
        return false;
    return a.f_entries.same(b.f_entries);
}

// ---- range scale
rng_scale::rng_scale(rng_scale const &source)
    : min(source.min), max(source.max), other(source.other), rng_type(source.rng_type),
      round_digits(source.round_digits), deviation_coeff(source.deviation_coeff), opacity(source.opacity),
      f_entries(clone_all(source.f_entries)), f_kind(source.f_kind)
{
}

rng_scale &rng_scale::operator=(rng_scale const &source)
{
    if (this == &source)
        return *this;
    min = source.min;
    max = source.max;
    other = source.other;
    rng_type = source.rng_type;
    round_digits = source.round_digits;
    deviation_coeff = source.deviation_coeff;
    opacity = source.opacity;
    f_kind = source.f_kind;
    f_entries = clone_all(source.f_entries);
    f_steps_valid = false;
    return *this;
}

rng_scale &rng_scale::operator=(rng_scale &&source)
{
    min = source.min;
    max = source.max;
    other = source.other;
    rng_type = source.rng_type;
    round_digits = source.round_digits;
    deviation_coeff = source.deviation_coeff;
    opacity = std::move(source.opacity);
    f_kind = source.f_kind;
    f_entries = std::move(source.f_entries);
    f_steps_valid = false;
    return *this;
}

void rng_scale::resize(unsigned size)
{
    f_steps_valid = false;
    unsigned const old = this->size();
    f_entries.resize(size);
    for (unsigned i = old; i < size; ++i)
        f_entries[i] = std::make_unique<rng_entry>(f_kind);
}

unsigned rng_scale::insert(unsigned index)
{
    index = std::min(index, size());
    f_steps_valid = false;
    f_entries.insert(f_entries.begin() + index, std::make_unique<rng_entry>(f_kind));
    return index;
}

void rng_scale::erase(unsigned index)
{
    if (index >= size())
        return;
    f_steps_valid = false;
    f_entries.erase(f_entries.begin() + index);
}

void rng_scale::erase_marked()
{
    f_steps_valid = false;
    std::erase_if(f_entries, [](auto const &entry) { return entry->marked; });
}

void rng_scale::move(unsigned from, unsigned to)
{
    if (from >= size() || to >= size() || from == to)
        return;
    f_steps_valid = false;
    move_item(f_entries, from, to);
}

void rng_scale::set_order(int const *order, unsigned count)
{
    if (reorder(f_entries, order, count))
        f_steps_valid = false;
}

void rng_scale::set_bounds(unsigned index, double min_bound, double max_bound)
{
    if (index >= size())
        return;
    f_steps_valid = false;
    f_entries[index]->min = min_bound;
    f_entries[index]->max = max_bound;
}

void rng_scale::set_span(double min_value, double max_value)
{
    f_steps_valid = false;
    min.value = min_value;
    max.value = max_value;
}

scale_prm *rng_scale::row(unsigned index)
{
    if (index == 0)
        return &min.prm;
    if (index <= size())
        return &f_entries[index - 1]->prm;
    if (index == size() + 1)
        return &max.prm;
    return index == other_row() ? &other.prm : nullptr;
}

void rng_scale::build_steps() const
{
    // Sweep over the bounds from low to high; between two of them the row is the lowest open range.
    f_uppers.clear();
    f_rows.clear();
    f_steps_valid = true;
    std::vector<double> bounds;
    std::vector<unsigned> by_min;
    for (unsigned i = 0; i < size(); ++i) {
        rng_entry const &r = *f_entries[i];
        if (!(r.min < r.max))
            continue;
        bounds.push_back(r.min);
        bounds.push_back(r.max);
        by_min.push_back(i);
    }
    std::ranges::sort(bounds);
    bounds.erase(std::unique(bounds.begin(), bounds.end()), bounds.end());
    std::ranges::sort(by_min, {}, [&](unsigned i) { return f_entries[i]->min; });
    std::priority_queue<unsigned, std::vector<unsigned>, std::greater<>> open;
    std::size_t next = 0;
    for (std::size_t b = 0; b < bounds.size(); ++b) {
        // The step that ends at bounds[b]: ranges that begin below it and end at it or above.
        while (next < by_min.size() && f_entries[by_min[next]]->min < bounds[b])
            open.push(by_min[next++]);
        while (!open.empty() && f_entries[open.top()]->max < bounds[b])
            open.pop();
        unsigned const row = open.empty() ? other_row() : open.top() + 1;
        if (!f_rows.empty() && f_rows.back() == row) {
            f_uppers.back() = bounds[b];
        } else {
            f_uppers.push_back(bounds[b]);
            f_rows.push_back(row);
        }
    }
    build_cells();
}

unsigned rng_scale::find(double value) const
{
    if (std::isnan(value))
        return other_row();
    if (value <= min.value)
        return 0;
    if (value > max.value)
        return size() + 1;
    if (!f_steps_valid)
        build_steps();
    if (f_uppers.empty() || value > f_uppers.back())
        return other_row();
    std::size_t const cell = cell_of(value);
    auto const at = [this](unsigned step) { return f_uppers.begin() + static_cast<std::ptrdiff_t>(step); };
    auto const step = std::lower_bound(at(f_cells[cell]), at(f_cells[cell + 1]), value);
    return f_rows[static_cast<std::size_t>(step - f_uppers.begin())];
}

void rng_scale::build_cells() const
{
    std::size_t const count = f_uppers.size();
    double const width = count ? f_uppers.back() - f_uppers.front() : 0;
    f_cells_per_unit = width > 0 && std::isfinite(width) ? static_cast<double>(count) / width : 0;
    if (!std::isfinite(f_cells_per_unit))
        f_cells_per_unit = 0;
    f_cells.assign(count + 1, static_cast<unsigned>(count));
    for (std::size_t step = count; step-- > 0;)
        f_cells[cell_of(f_uppers[step])] = static_cast<unsigned>(step);
    for (std::size_t cell = count; cell-- > 0;)
        f_cells[cell] = std::min(f_cells[cell], f_cells[cell + 1]);
}

std::size_t rng_scale::cell_of(double value) const
{
    if (f_cells_per_unit == 0)
        return 0;
    double const last = static_cast<double>(f_uppers.size() - 1);
    return static_cast<std::size_t>(std::clamp((value - f_uppers.front()) * f_cells_per_unit, 0.0, last));
}

bool operator==(rng_scale const &a, rng_scale const &b)
{
    return a.f_kind == b.f_kind && a.min == b.min && a.max == b.max && a.other == b.other &&
           a.rng_type == b.rng_type && a.round_digits == b.round_digits &&
           same(a.deviation_coeff, b.deviation_coeff) && a.opacity == b.opacity &&
           std::ranges::equal(a.f_entries, b.f_entries, [](auto const &x, auto const &y) {
               return same(x->min, y->min) && same(x->max, y->max) && x->caption == y->caption &&
                      x->prm == y->prm;
           });
}
} // namespace vx::styles
