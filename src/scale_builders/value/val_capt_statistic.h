#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

#include <cstring>
#include <set>
#include <string>
#include <vector>

/// A value of a field and the caption that goes with it, without blanks at their ends, in the system code
/// page.
class VX_API Tvx_val_capt_item
{
public:
    [[nodiscard]] std::string const &get_val() const { return f_val; }
    void set_val(char const *text);
    [[nodiscard]] std::string const &get_capt() const { return f_capt; }
    void set_capt(char const *text);
    /// The value has been used.
    [[nodiscard]] bool get_marked() const { return f_marked; }
    void set_marked(bool marked) { f_marked = marked; }
    /// The value as a number, where it has been read as one and is one.
    [[nodiscard]] bool get_dbl_def() const { return f_dbl_def; }
    [[nodiscard]] double get_dbl() const { return f_dbl; }
    void set_dbl(bool is_defined, double value);

private:
    std::string f_val;
    std::string f_capt;
    bool f_marked = false;
    bool f_dbl_def = false;
    double f_dbl = 0;
};

/// The bytewise order of the values.
struct Tvx_val_capt_item_ptr_less
{
    bool operator()(Tvx_val_capt_item const *a, Tvx_val_capt_item const *b) const
    {
        return std::strcmp(a->get_val().c_str(), b->get_val().c_str()) < 0;
    }
};

/// The different values of a field with their captions, which it owns.
class VX_API Tvx_val_capt_statistic : public Tvx_basic_obj
{
public:
    Tvx_val_capt_statistic();
    ~Tvx_val_capt_statistic() override;
    Tvx_val_capt_statistic(Tvx_val_capt_statistic const &) = delete;
    Tvx_val_capt_statistic &operator=(Tvx_val_capt_statistic const &) = delete;

    /// Whether values that are added are read as numbers too.
    [[nodiscard]] bool get_numeric_flag() const { return f_numeric_flag; }
    void set_numeric_flag(bool flag) { f_numeric_flag = flag; }
    [[nodiscard]] unsigned get_size() const { return static_cast<unsigned>(f_items.size()); }
    /// The items in order, null at the end.
    [[nodiscard]] Tvx_val_capt_item *get_first();
    [[nodiscard]] Tvx_val_capt_item *get_next();
    void clear();
    void set_all_marked(bool marked);

    /// A new item; the one that is there if the value is.
    Tvx_val_capt_item *add(char const *text);
    /// The item of this value, null if there is none.
    [[nodiscard]] Tvx_val_capt_item *find(char const *text);
    /// The first item whose value is the same number; null if there is none, or the text is no number.
    [[nodiscard]] Tvx_val_capt_item *find_as_dbl(char const *text);
    /// By the text and, where values are numbers, then by the number.
    [[nodiscard]] Tvx_val_capt_item *find_any_way(char const *text);

private:
    using items = std::set<Tvx_val_capt_item *, Tvx_val_capt_item_ptr_less>;

    items f_items;
    items::const_iterator f_cursor;
    Tvx_val_capt_item f_sought;
    std::vector<Tvx_val_capt_item *> f_by_number; ///< by number, then by order; empty until it is asked for
    bool f_numeric_flag = false;
};
