#pragma once

#include "style_manager/api/data_events.h"

/// A table of one numeric field whose values are 0, 1, 4, 9 ...
struct squares
{
    static constexpr unsigned c_count = 100;

    static bool open(void *, TObject *) { return true; }
    static void close(void *, TObject *) {}
    static unsigned count_fields(void *, TObject *) { return 1; }
    static unsigned count(void *, TObject *) { return c_count; }
    static char const *field(void *, TObject *, unsigned, bool &usable, bool &numeric)
    {
        usable = numeric = true;
        return "AREA";
    }
    static char const *text(void *, TObject *, unsigned, unsigned, bool &defined)
    {
        defined = false;
        return "";
    }
    static double value(void *, TObject *, unsigned, unsigned object, bool &defined)
    {
        defined = object % 10 != 7;
        return double(object) * object;
    }
    static Tvx_data_events events()
    {
        Tvx_data_events data;
        data.open = {&open, nullptr};
        data.close = {&close, nullptr};
        data.get_np = {&count_fields, nullptr};
        data.get_no = {&count, nullptr};
        data.get_prop = {&field, nullptr};
        data.get_str = {&text, nullptr};
        data.get_val = {&value, nullptr};
        return data;
    }
};
