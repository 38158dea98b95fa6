#pragma once

#include "extension/binding/dict.h"
#include "extension/binding/dict_item_visitor.h"
#include "extension/binding/dict_visitor.h"

#include "platform/base/export.h"

#include <string>
#include <utility>
#include <vector>

namespace vx::data {
/// The value dictionary of a field: keys and their captions. Owns its handle and detaches it.
class VX_API field_dict
{
public:
    field_dict() = default;
    field_dict(field_dict const &) = delete;
    field_dict &operator=(field_dict const &) = delete;
    ~field_dict();

    /// Detaches what is held and takes the handle; true if it is not null.
    bool init(vx::dict handle);
    [[nodiscard]] bool valid() const { return static_cast<bool>(f_handle); }

    [[nodiscard]] std::vector<std::wstring> keys() const;
    /// Pairs of key and caption. A dictionary that does not list its items is asked key by key.
    [[nodiscard]] std::vector<std::pair<std::wstring, std::wstring>> items() const;
    /// False, with `value` unchanged, for a key that is not there.
    bool fetch_value(std::wstring const &key, std::wstring &value) const;

private:
    [[nodiscard]] std::vector<std::pair<std::wstring, std::wstring>> fetch_items() const;

    vx::dict f_handle;
};

/// Appends each visited pair to a list; a pair with a null key is skipped, a null caption counts as empty.
class VX_API field_dict_item_visitor final : public vx::dict_item_visitor_impl
{
public:
    explicit field_dict_item_visitor(std::vector<std::pair<std::wstring, std::wstring>> &target)
        : f_target(target)
    {
    }
    void visit(wchar_t const *key, wchar_t const *caption) override;

private:
    std::vector<std::pair<std::wstring, std::wstring>> &f_target;
};

/// Hands the visited dictionary to a `field_dict`.
class VX_API field_dict_visitor final : public vx::dict_visitor_impl
{
public:
    explicit field_dict_visitor(field_dict &target) : f_target(target) {}
    void visit(vx::dict handle) override { f_target.init(handle); }

private:
    field_dict &f_target;
};
} // namespace vx::data
