#pragma once

#include "platform/base/string_adp.h"
#include "platform/base/unicode_string.h"

/// Receives the text of a toolkit object, anything with `SetText`: a control, a column of a tree.
template <class T>
class Tvx_vcl_text_adapter final : public Tvx_string_adapter_base
{
public:
    explicit Tvx_vcl_text_adapter(T *target) : f_target(target) {}
    void feed(char const *text) override { f_target->SetText(text ? UnicodeString(text) : UnicodeString()); }
    void feed(wchar_t const *text) override
    {
        f_target->SetText(text ? UnicodeString(text) : UnicodeString());
    }

private:
    T *f_target;
};
