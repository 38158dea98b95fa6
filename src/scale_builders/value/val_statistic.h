#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

#include <string>
#include <vector>

/// The different values of a field as texts in the system code page, in bytewise order. Blanks at the end of
/// a text do not count. Texts are added fastest in their order.
class VX_API Tvx_val_statistic : public Tvx_basic_obj
{
public:
    [[nodiscard]] unsigned get_size() const { return static_cast<unsigned>(f_texts.size()); }
    /// By place in the order, from 0; throws for one that is not there. Lives until the set changes.
    [[nodiscard]] char const *get(unsigned index) const { return f_texts.at(index).c_str(); }
    /// The texts in order, null at the end. They live until the set changes.
    [[nodiscard]] char const *get_first();
    [[nodiscard]] char const *get_next();
    void clear();
    /// Null counts as empty, which is a text like any other.
    void add(char const *text);
    /// Takes over texts that are in order, different and without blanks at their ends.
    void set_sorted(std::vector<std::string> &&texts);
    [[nodiscard]] bool find(char const *text) const;
    void assign(Tvx_val_statistic const &other);

private:
    std::vector<std::string> f_texts; ///< in order
    std::size_t f_cursor = 0;
};
