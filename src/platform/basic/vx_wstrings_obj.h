#pragma once

#include "platform/basic/vx_wstrings.h"

/// A list of wide strings that ends with its scope.
class Tvx_wstrings_obj
{
public:
    Tvx_wstrings_obj() : f_strings(vx_wstrings_create()) {}
    ~Tvx_wstrings_obj() { vx_wstrings_destroy(f_strings); }
    Tvx_wstrings_obj(Tvx_wstrings_obj const &) = delete;
    Tvx_wstrings_obj &operator=(Tvx_wstrings_obj const &) = delete;

    void add(wchar_t const *text) { vx_wstrings_add(f_strings, text); }
    [[nodiscard]] unsigned get_size() const { return vx_wstrings_get_size(f_strings); }
    /// "" outside the list; good until the list changes.
    [[nodiscard]] wchar_t const *get_str(unsigned index) const
    {
        return vx_wstrings_get_str(f_strings, index);
    }
    /// The list for the plain functions.
    [[nodiscard]] void *get_ptr() const { return f_strings; }

private:
    void *f_strings;
};
