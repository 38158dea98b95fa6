#pragma once

#include <string>

/// What the desk says, in the languages of the editor that it knows.
enum class desk_text
{
    fields,
    shelf,
    labels,
    texts,
    desk,
    values,  ///< "%1": how many different values a field has
    numbers, ///< "%1", "%2": the least and the greatest
    layer,
    objects,
    field_count,
    telling, ///< "%1" of "%2" fields
    extent,
    only_telling,
    put,
    take,
};

/// The text, with values in its places.
std::wstring desk_say(desk_text text, std::wstring const &first = {}, std::wstring const &second = {});
/// A number as people write it: no more digits than tell something.
std::wstring desk_number(double value);
