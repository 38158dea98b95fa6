#pragma once

#include "platform/styles/detail/style_model.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The scales behind the opaque pointers.
namespace vx::styles {
/// A support of the curve that gives the opacity over the span of a scale: both from 0 to 1.
struct opacity_pt
{
    double position = 0;
    double opacity = 1;
    bool operator==(opacity_pt const &) const = default;
};
using opacity_curve = std::vector<opacity_pt>;
/// Opaque everywhere.
[[nodiscard]] opacity_curve default_opacity_curve();
/// Empty unless the points are a curve: ascending positions from 0 to 1, opacities in 0 to 1.
[[nodiscard]] opacity_curve make_opacity_curve(double const *positions, double const *opacities,
                                               unsigned count);

enum class gradient
{
    color,
    hue,
    transparency,
    size
};
/// Gives the rows strictly between `first` and `last`, in either order, what lies between those two. `row(i)`
/// is the `stl_prm` of row i of `count` rows; ends outside the rows, or next to each other, change nothing.
template <class Row>
void run_gradient(gradient kind, unsigned first, unsigned last, unsigned count, variant_of_style variant,
                  Row row);
void blend_row(gradient kind, any_style &target, any_style const &first, any_style const &last, double t);

struct val_entry
{
    explicit val_entry(style_kind kind) : prm(kind) {}
    std::wstring text;
    std::wstring caption;
    scale_prm prm;
    bool marked = false;  ///< set by the scale, which counts
    bool exposed = false; ///< a pointer into it has been given away: never shared again
};

/// The entries of a value scale, in blocks. Copies share blocks, and blocks share entries, until one of them
/// writes to an entry or gives a pointer into it away.
class val_entries
{
public:
    using list = std::vector<std::shared_ptr<val_entry>>;

    val_entries() = default;
    val_entries(val_entries const &source);
    val_entries &operator=(val_entries const &source) = delete;
    val_entries(val_entries &&) = default;
    val_entries &operator=(val_entries &&) = default;
    ~val_entries() = default;

    [[nodiscard]] std::size_t size() const { return f_size; }
    [[nodiscard]] bool empty() const { return f_size == 0; }
    [[nodiscard]] val_entry const &operator[](std::size_t index) const
    {
        return *f_blocks[index / c_block]->entries[index % c_block];
    }
    /// To write to, at once.
    [[nodiscard]] val_entry &edit(std::size_t index);
    /// To give a pointer into it away.
    [[nodiscard]] val_entry &expose(std::size_t index);
    void append(std::shared_ptr<val_entry> entry);
    /// Whether texts, captions and styles are those of `other`; what is shared is not looked at.
    [[nodiscard]] bool same(val_entries const &other) const;
    /// All entries at once, for changes of their number and order: they are taken out and put back.
    [[nodiscard]] list take();
    void put(list entries);

private:
    static constexpr std::size_t c_block = 256;
    struct block
    {
        list entries;
        bool exposed = false; ///< one of the entries is
    };
    [[nodiscard]] block &own_block(std::size_t index);

    std::vector<std::shared_ptr<block>> f_blocks; ///< all full but the last
    std::size_t f_size = 0;
};

struct other_entry
{
    explicit other_entry(style_kind kind) : prm(kind) {}
    std::wstring caption;
    scale_prm prm;
    bool operator==(other_entry const &) const = default;
};

/// A value scale; a rule scale as well. Copies of a scale share their entries until one of them writes to an
/// entry, or gives a pointer into it away: such an entry keeps its address for its life, and each later copy
/// of the scale has one of its own.
class val_scale
{
public:
    explicit val_scale(style_kind kind) : other(kind), opacity(default_opacity_curve()), f_kind(kind) {}
    val_scale(val_scale const &source);
    val_scale &operator=(val_scale const &source);
    /// Takes the entries of `source` over.
    val_scale &operator=(val_scale &&source);
    ~val_scale() = default;

    other_entry other;
    opacity_curve opacity;

    [[nodiscard]] style_kind kind() const { return f_kind; }
    [[nodiscard]] unsigned size() const { return static_cast<unsigned>(f_entries.size()); }
    [[nodiscard]] val_entry const *at(unsigned index) const
    {
        return index < size() ? &f_entries[index] : nullptr;
    }
    /// To write to, at once: the pointer is not kept beyond the next call.
    [[nodiscard]] val_entry *edit(unsigned index);
    /// To give a pointer into the entry away.
    [[nodiscard]] val_entry *expose(unsigned index);
    void resize(unsigned size);
    /// `index` is cut to the size.
    unsigned insert(unsigned index);
    void erase(unsigned index);
    void erase_marked();
    void move(unsigned from, unsigned to);
    /// `order[k]` is the old index of the entry for place k. Anything but a permutation changes nothing.
    void set_order(int const *order, unsigned count);
    void set_text(unsigned index, std::wstring_view text);
    void set_marked(unsigned index, bool marked);
    [[nodiscard]] unsigned marked_count() const { return f_marked; }
    [[nodiscard]] int active() const { return f_active; }
    void set_active(int index) { f_active = index >= 0 && index < static_cast<int>(size()) ? index : -1; }

    /// The first entry whose text equals `text`, both less their outer white space; -1 if there is none.
    /// O(1). Tables hold their texts in UTF-8, so that is how they are looked up.
    [[nodiscard]] int find(std::wstring_view text) const;
    [[nodiscard]] int find(std::string_view utf8) const;

    friend bool operator==(val_scale const &a, val_scale const &b);

private:
    val_entries f_entries;
    int f_active = -1;
    unsigned f_marked = 0; ///< how many entries are marked
    static constexpr std::size_t c_short = 16;
    /// Place of the open hash. A look-up of a short text touches nothing else: the slot holds the text
    /// itself.
    struct slot
    {
        std::uint32_t entry = 0; ///< index plus 1; 0 is a free slot
        std::uint32_t hash = 0;
        std::uint32_t length = 0;
        std::uint32_t start = 0;          ///< of a long text, in `f_texts`
        std::array<char, c_short> text{}; ///< a short text, behind it zeros
    };
    /// A power of two of slots; empty while it has to be built.
    mutable std::vector<slot> f_index;
    mutable std::string f_texts;      ///< UTF-8
    mutable std::uint64_t f_seed = 0; ///< by chance, so that no file can be made whose texts all collide
    style_kind f_kind;

    void build_index() const;
    [[nodiscard]] slot &slot_of(std::string_view text, std::uint32_t hash) const;
    void take_over(val_entries entries, unsigned marked, int active);
};

struct rng_entry
{
    explicit rng_entry(style_kind kind) : prm(kind) {}
    double min = 0;
    double max = 0;
    std::wstring caption;
    scale_prm prm;
    bool marked = false;
};

/// The min and max entries.
struct rng_end
{
    explicit rng_end(style_kind kind) : prm(kind) {}
    double value = 0;
    std::wstring caption;
    scale_prm prm;
    bool marked = false;
};

/// A range scale. Rows count over the whole scale: 0 the min entry, i + 1 range i, size + 1 the max entry;
/// the other entry stands behind them, row size + 2.
class rng_scale
{
public:
    explicit rng_scale(style_kind kind)
        : min(kind), max(kind), other(kind), opacity(default_opacity_curve()), f_kind(kind)
    {
    }
    rng_scale(rng_scale const &source);
    rng_scale &operator=(rng_scale const &source);
    rng_scale &operator=(rng_scale &&source);
    ~rng_scale() = default;

    rng_end min;
    rng_end max;
    other_entry other;
    int rng_type = 0;
    int round_digits = -2;
    double deviation_coeff = 1;
    opacity_curve opacity;

    [[nodiscard]] style_kind kind() const { return f_kind; }
    [[nodiscard]] unsigned size() const { return static_cast<unsigned>(f_entries.size()); }
    [[nodiscard]] rng_entry *at(unsigned index) { return index < size() ? f_entries[index].get() : nullptr; }
    [[nodiscard]] rng_entry const *at(unsigned index) const
    {
        return index < size() ? f_entries[index].get() : nullptr;
    }
    void resize(unsigned size);
    unsigned insert(unsigned index);
    void erase(unsigned index);
    /// Ranges only: the min and max entries stay.
    void erase_marked();
    void move(unsigned from, unsigned to);
    void set_order(int const *order, unsigned count);
    /// Bounds are written through these, so that the index follows.
    void set_bounds(unsigned index, double min_bound, double max_bound);
    void set_span(double min_value, double max_value);

    /// Style parameters of a row, 0 to size + 2, or null.
    [[nodiscard]] scale_prm *row(unsigned index);
    [[nodiscard]] scale_prm const *row(unsigned index) const
    {
        return const_cast<rng_scale *>(this)->row(index);
    }
    [[nodiscard]] unsigned other_row() const { return size() + 2; }

    /// The row of a value. A bound belongs to the range below it: range i holds what is above its lower bound
    /// up to and including its upper bound; the min entry all up to and including the min value, the max
    /// entry all above the max value. Where ranges overlap the first one counts; a value in no range, and one
    /// that is no number, is in the other row. O(log n).
    [[nodiscard]] unsigned find(double value) const;

    friend bool operator==(rng_scale const &a, rng_scale const &b);

private:
    std::vector<std::unique_ptr<rng_entry>> f_entries;
    /// Steps from low to high: values up to and including `f_uppers[i]`, and above the one before, lie in row
    /// `f_rows[i]`.
    mutable std::vector<double> f_uppers;
    mutable std::vector<unsigned> f_rows;
    /// The span of the steps in as many cells of equal width: the first step that ends in cell c or behind
    /// it.
    mutable std::vector<unsigned> f_cells;
    mutable double f_cells_per_unit = 0;
    mutable bool f_steps_valid = false;
    style_kind f_kind;

    void build_steps() const;
    void build_cells() const;
    /// Never less for a greater value, whatever is lost in rounding: that is all the search relies on.
    [[nodiscard]] std::size_t cell_of(double value) const;
};

template <class Row>
void run_gradient(gradient kind, unsigned first, unsigned last, unsigned count, variant_of_style variant,
                  Row row)
{
    if (first > last)
        std::swap(first, last);
    if (last >= count || last - first < 2)
        return;
    // Copies of the ends: they may hold the styles that are being written when a row is handed out twice.
    auto const a = row(first).read(variant).clone();
    auto const b = row(last).read(variant).clone();
    for (unsigned i = first + 1; i < last; ++i)
        blend_row(kind, row(i).get(variant), *a, *b, static_cast<double>(i - first) / (last - first));
}

/// Puts `items` into the order `order[k]` = old index; false and no change unless `order` is a permutation.
template <class T>
bool reorder(std::vector<T> &items, int const *order, unsigned count,
             std::vector<unsigned> *new_place = nullptr)
{
    if (!order || count != items.size())
        return false;
    std::vector<unsigned> place(count, count);
    for (unsigned k = 0; k < count; ++k) {
        if (order[k] < 0 || static_cast<unsigned>(order[k]) >= count ||
            place[static_cast<unsigned>(order[k])] != count)
            return false;
        place[static_cast<unsigned>(order[k])] = k;
    }
    std::vector<T> sorted(count);
    for (unsigned k = 0; k < count; ++k)
        sorted[k] = std::move(items[static_cast<unsigned>(order[k])]);
    items = std::move(sorted);
    if (new_place)
        *new_place = std::move(place);
    return true;
}
} // namespace vx::styles
