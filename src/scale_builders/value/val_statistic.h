#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

#include <functional>
#include <set>
#include <string>

/// The different values of a field as texts in the system code page, in bytewise order. Blanks at the end of
/// a text do not count.
class VX_API Tvx_val_statistic : public Tvx_basic_obj
{
public:
    [[nodiscard]] unsigned get_size() const { return static_cast<unsigned>(f_texts.size()); }
    /// The texts in order, null at the end. They live as long as they are in the set.
    [[nodiscard]] char const *get_first();
    [[nodiscard]] char const *get_next();
    void clear();
    /// Null counts as empty, which is a text like any other.
    void add(char const *text);
    [[nodiscard]] bool find(char const *text) const;
    void assign(Tvx_val_statistic const &other);

private:
    std::set<std::string, std::less<>> f_texts;
    std::set<std::string, std::less<>>::const_iterator f_cursor = f_texts.end();
};
