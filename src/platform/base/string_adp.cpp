#include "platform/base/string_adp.h"

struct Ivx_string_adp
{
    Tvx_ansi_string_callback ansi;
    Tvx_unicode_string_callback wide;
    void *user;
};

Ivx_string_adp *vx_string_adp_create(Tvx_ansi_string_callback ansi, Tvx_unicode_string_callback wide,
                                     void *user)
{
    return new Ivx_string_adp{ansi, wide, user};
}

void vx_string_adp_destroy(Ivx_string_adp *adapter)
{
    delete adapter;
}

void vx_string_adp_feed(Ivx_string_adp *adapter, wchar_t const *text)
{
    if (!adapter)
        return;
    if (adapter->wide)
        adapter->wide(text, adapter->user);
    else if (adapter->ansi)
        adapter->ansi(text ? vx::text::to_bytes(text).c_str() : nullptr, adapter->user);
}

void vx_string_adp_feed_ansi(Ivx_string_adp *adapter, char const *text)
{
    if (!adapter)
        return;
    if (adapter->ansi)
        adapter->ansi(text, adapter->user);
    else if (adapter->wide)
        adapter->wide(text ? vx::text::to_wide(text).c_str() : nullptr, adapter->user);
}

Tvx_string_adapter_base::Tvx_string_adapter_base()
    : f_adapter(vx_string_adp_create(&vx_ansi_string_callback, &vx_unicode_string_callback, this))
{
}

Tvx_string_adapter_base::~Tvx_string_adapter_base()
{
    vx_string_adp_destroy(f_adapter);
}

void Tvx_string_adapter_base::vx_ansi_string_callback(char const *text, void *user)
{
    static_cast<Tvx_string_adapter_base *>(user)->feed(text);
}

void Tvx_string_adapter_base::vx_unicode_string_callback(wchar_t const *text, void *user)
{
    static_cast<Tvx_string_adapter_base *>(user)->feed(text);
}

void Tvx_std_wstring_adapter::feed(char const *text)
{
    f_target = text ? vx::text::to_wide(text) : std::wstring();
}

void Tvx_std_wstring_adapter::feed(wchar_t const *text)
{
    f_target = text ? text : L"";
}

void Tvx_std_string_adapter::feed(char const *text)
{
    f_target = text ? text : "";
}

void Tvx_std_string_adapter::feed(wchar_t const *text)
{
    f_target = text ? vx::text::to_bytes(text) : std::string();
}

void Tvx_unicode_string_adapter::feed(char const *text)
{
    f_target = UnicodeString(text);
}

void Tvx_unicode_string_adapter::feed(wchar_t const *text)
{
    f_target = UnicodeString(text);
}
