#include "data/source/field_dict.h"

#include "extension/binding/string_visitors.h"

#include "platform/basic/vx_datasource.h"

namespace vx::data {
field_dict::~field_dict()
{
    vx_datasource_end(f_handle);
}

bool field_dict::init(vx::dict handle)
{
    vx_datasource_end(f_handle);
    f_handle = handle;
    return valid();
}

std::vector<std::wstring> field_dict::keys() const
{
    std::vector<std::wstring> out;
    vx::stdwstring_list_visitor visitor(out);
    f_handle.with_keys(visitor);
    return out;
}

std::vector<std::pair<std::wstring, std::wstring>> field_dict::items() const
{
    std::vector<std::pair<std::wstring, std::wstring>> out;
    field_dict_item_visitor visitor(out);
    f_handle.with_items(visitor);
    return out.empty() ? fetch_items() : out;
}

bool field_dict::fetch_value(std::wstring const &key, std::wstring &value) const
{
    std::wstring found;
    vx::stdwstring_visitor visitor(found);
    if (!f_handle.get_value(key.c_str(), visitor))
        return false;
    value = std::move(found);
    return true;
}

std::vector<std::pair<std::wstring, std::wstring>> field_dict::fetch_items() const
{
    std::vector<std::pair<std::wstring, std::wstring>> out;
    for (auto &key : keys()) {
        std::wstring value;
        if (fetch_value(key, value))
            out.emplace_back(std::move(key), std::move(value));
    }
    return out;
}

void field_dict_item_visitor::visit(wchar_t const *key, wchar_t const *caption)
{
    if (key)
        f_target.emplace_back(key, caption ? caption : L"");
}
} // namespace vx::data
