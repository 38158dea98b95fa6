#include "desk_texts.h"

#include "platform/basic/vx_options.h"

#include <cwchar>
#include <string_view>

namespace {
// In the order of desk_text.
constexpr wchar_t const *c_english[] = {
    L"Fields",
    L"Shelf",
    L"Names",
    L"Texts",
    L"Desk",
    L"%1 values",
    L"%1 to %2",
    L"Layer",
    L"Objects:",
    L"Fields:",
    L"%1 of %2 tell something",
    L"Extent:",
    L"Offer only fields that tell something",
    L"Put the layer's style on the shelf",
    L"Give the layer the style on the shelf",
};
constexpr wchar_t const *c_russian[] = {
    L"Поля",
    L"Полка",
    L"Имена",
    L"Тексты",
    L"Стол",
    L"значений: %1",
    L"от %1 до %2",
    L"Слой",
    L"Объектов:",
    L"Полей:",
    L"полезных %1 из %2",
    L"Охват:",
    L"Предлагать только полезные поля",
    L"Положить стиль слоя на полку",
    L"Дать слою стиль с полки",
};

void replace(std::wstring &text, wchar_t const *place, std::wstring const &value)
{
    if (auto const at = text.find(place); at != std::wstring::npos)
        text.replace(at, 2, value);
}
} // namespace

std::wstring desk_say(desk_text text, std::wstring const &first, std::wstring const &second)
{
    bool const is_russian = std::string_view(vx_options_get_language()) == "ru";
    std::wstring said = (is_russian ? c_russian : c_english)[static_cast<int>(text)];
    replace(said, L"%2", second);
    replace(said, L"%1", first);
    return said;
}

std::wstring desk_number(double value)
{
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%.6g", value);
    return text;
}
