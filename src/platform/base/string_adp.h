#pragma once

#include "platform/base/export.h"
#include "platform/base/unicode_string.h"

#include <string>

/// A string adapter: the opaque thing through which plain functions of the engine hand out text. The text
/// arrives in one of the adapter's two callbacks before the function returns, 8-bit (system code page) or
/// wide as the function has it; a receiver takes both.
struct Ivx_string_adp;

using Tvx_ansi_string_callback = void (*)(char const *text, void *user);
using Tvx_unicode_string_callback = void (*)(wchar_t const *text, void *user);

/// Either callback may be null: text of its kind is then converted through the other one, or dropped without
/// any. The caller ends the adapter with `vx_string_adp_destroy`.
[[nodiscard]] VX_API Ivx_string_adp *vx_string_adp_create(Tvx_ansi_string_callback ansi,
                                                          Tvx_unicode_string_callback wide, void *user);
/// Null is accepted.
VX_API void vx_string_adp_destroy(Ivx_string_adp *adapter);
/// Hands `text`, zero-terminated or null, to the adapter's receiver. A null adapter is accepted.
VX_API void vx_string_adp_feed(Ivx_string_adp *adapter, wchar_t const *text);
VX_API void vx_string_adp_feed_ansi(Ivx_string_adp *adapter, char const *text);

/// Base of all receivers: made on the stack round one call of the engine, converts to the adapter it owns.
class VX_API Tvx_string_adapter_base
{
public:
    Tvx_string_adapter_base();
    Tvx_string_adapter_base(Tvx_string_adapter_base const &) = delete;
    Tvx_string_adapter_base &operator=(Tvx_string_adapter_base const &) = delete;

    virtual void feed(char const *text) = 0;
    virtual void feed(wchar_t const *text) = 0;

    operator Ivx_string_adp *() const { return f_adapter; }

protected:
    ~Tvx_string_adapter_base();

private:
    static void vx_ansi_string_callback(char const *text, void *user);
    static void vx_unicode_string_callback(wchar_t const *text, void *user);

    Ivx_string_adp *f_adapter;
};

/// Receives into a `std::wstring` held by reference; null clears it.
class VX_API Tvx_std_wstring_adapter final : public Tvx_string_adapter_base
{
public:
    explicit Tvx_std_wstring_adapter(std::wstring &target) : f_target(target) {}
    void feed(char const *text) override;
    void feed(wchar_t const *text) override;

private:
    std::wstring &f_target;
};

/// Receives into a `std::string` held by reference, in the system code page; null clears it.
class VX_API Tvx_std_string_adapter final : public Tvx_string_adapter_base
{
public:
    explicit Tvx_std_string_adapter(std::string &target) : f_target(target) {}
    void feed(char const *text) override;
    void feed(wchar_t const *text) override;

private:
    std::string &f_target;
};

/// Receives into a `UnicodeString` held by reference.
class VX_API Tvx_unicode_string_adapter final : public Tvx_string_adapter_base
{
public:
    explicit Tvx_unicode_string_adapter(UnicodeString &target) : f_target(target) {}
    void feed(char const *text) override;
    void feed(wchar_t const *text) override;

private:
    UnicodeString &f_target;
};
