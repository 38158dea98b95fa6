#include "field_dict.h"

#include "platform/base/text_codec.h"

#include <ogr_feature.h>

#include <algorithm>

namespace vx::gdal {
coded_dict::coded_dict(OGRCodedFieldDomain const &domain)
{
    // The list ends with an entry without a code. A code without a meaning stands for itself.
    for (OGRCodedValue const *entry = domain.GetEnumeration(); entry && entry->pszCode; ++entry)
        f_items.emplace_back(text::utf8_to_wide(entry->pszCode),
                             text::utf8_to_wide(entry->pszValue ? entry->pszValue : entry->pszCode));
}

void coded_dict::with_keys(vx::string_visitor visitor)
{
    for (auto const &[key, value] : f_items)
        visitor.visit(key.c_str());
}

void coded_dict::with_items(vx::dict_item_visitor visitor)
{
    for (auto const &[key, value] : f_items)
        visitor.visit(key.c_str(), value.c_str());
}

bool coded_dict::get_value(wchar_t const *key, vx::string_visitor visitor)
{
    auto const found = std::find_if(f_items.begin(), f_items.end(),
                                    [&](auto const &item) { return key && item.first == key; });
    if (found == f_items.end())
        return false;
    visitor.visit(found->second.c_str());
    return true;
}
} // namespace vx::gdal
