#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// Filters: conditions on the attributes of an object, joined by logic words. AND binds more tightly than OR;
/// conditions without a word between them are joined by AND. A filter is a `void *` made here.

/// Relations.
inline constexpr wchar_t const *c_calc_filter_rel_equal = L"EQUAL";
inline constexpr wchar_t const *c_calc_filter_rel_is_close = L"IS CLOSE";
inline constexpr wchar_t const *c_calc_filter_rel_not_equal = L"NOT EQUAL";
inline constexpr wchar_t const *c_calc_filter_rel_less = L"LESS";
inline constexpr wchar_t const *c_calc_filter_rel_less_eq = L"LESS EQUAL";
inline constexpr wchar_t const *c_calc_filter_rel_greater = L"GREATER";
inline constexpr wchar_t const *c_calc_filter_rel_greater_eq = L"GREATER EQUAL";
inline constexpr wchar_t const *c_calc_filter_rel_begins_with = L"BEGINS WITH";
inline constexpr wchar_t const *c_calc_filter_rel_ends_with = L"ENDS WITH";
inline constexpr wchar_t const *c_calc_filter_rel_contains = L"CONTAINS";
inline constexpr wchar_t const *c_calc_filter_rel_not_contains = L"NOT CONTAINS";
inline constexpr wchar_t const *c_calc_filter_rel_is_null = L"NULL";
inline constexpr wchar_t const *c_calc_filter_rel_not_null = L"NOT NULL";
/// Words between conditions.
inline constexpr wchar_t const *c_calc_filter_logic_or = L"OR";
inline constexpr wchar_t const *c_calc_filter_logic_and = L"AND";
inline constexpr wchar_t const *c_calc_filter_logic_empty = L"";
/// Signs of the printed form. Relations without a sign are printed by their words.
inline constexpr wchar_t const *c_calc_filter_pretty_equal = L"=";
inline constexpr wchar_t const *c_calc_filter_pretty_not_equal = L"!=";
inline constexpr wchar_t const *c_calc_filter_pretty_less = L"<";
inline constexpr wchar_t const *c_calc_filter_pretty_less_eq = L"<=";
inline constexpr wchar_t const *c_calc_filter_pretty_greater = L">";
inline constexpr wchar_t const *c_calc_filter_pretty_greater_eq = L">=";
inline constexpr wchar_t const *c_calc_filter_pretty_logic_or = L"|";
inline constexpr wchar_t const *c_calc_filter_pretty_logic_and = L"&";
/// Fields that a topological source has besides its own.
inline constexpr wchar_t const *c_calc_filter_topo_index = L"__INDEX__";
inline constexpr wchar_t const *c_calc_filter_topo_picket = L"__PICKET__";
inline constexpr wchar_t const *c_calc_filter_topo_profile = L"__PROFILE__";
inline constexpr wchar_t const *c_calc_filter_topo_layer = L"__LAYER__";

[[nodiscard]] VX_API void *vx_calc_filter_create();
VX_API void vx_calc_filter_destroy(void *filter);
VX_API void vx_calc_filter_clear(void *filter);
[[nodiscard]] VX_API unsigned vx_calc_filter_get_size(void const *filter);

/// Appends a condition. `relation` and `logic` are words of the tables above, in any case; with another word
/// nothing is added and the result is false. `logic` joins the condition to the one that follows. `in_force`
/// 0 keeps the condition but passes it over. `match_case` 0 compares texts without regard to case.
VX_API bool vx_calc_filter_add(void *filter, int in_force, wchar_t const *field, wchar_t const *relation,
                               wchar_t const *value, wchar_t const *logic, int match_case);

/// A condition of a filter, as `vx_calc_filter_add` took it; words in upper case. The adapters may be null.
VX_API void vx_calc_filter_get(void const *filter, unsigned index, int *in_force, Ivx_string_adp *field,
                               Ivx_string_adp *relation, Ivx_string_adp *value, Ivx_string_adp *logic,
                               int *match_case);

/// The filter as a text to be stored: `"FIELD" RELATION "value" LOGIC "FIELD" ...`, a quote inside quotes
/// doubled, `OFF` in front of a condition that is not in force, `NOCASE` in front of a value that is compared
/// without regard to case, no value behind NULL and NOT NULL unless there is one. Every filter comes back
/// from it unchanged.
VX_API void vx_calc_filter_to_str(void const *filter, Ivx_string_adp *text);
/// Reads such a text; words may be in any case, field and value may stand without quotes where they hold
/// neither white space nor quotes. An empty text gives an empty filter. False, with the filter as it was,
/// when the text is none.
VX_API bool vx_calc_filter_from_str(void *filter, wchar_t const *text);
/// The filter for people: `FIELD = 5 & NAME != "text"`. Conditions out of force are left out.
VX_API void vx_calc_filter_pretty_print(void const *filter, Ivx_string_adp *text);

/// One cell of a row, as a filter asks for it.
struct Tvx_calc_cell
{
    bool known = false; ///< whether the object has a value there
    bool is_number = false;
    double number = 0;      ///< of a number cell
    std::wstring_view text; ///< of any cell, good until the row is asked again
    /// Of a number cell that holds whole numbers: the number to its last digit.
    std::optional<std::int64_t> whole = {};
};

/// Access to the attributes of one object.
class VX_API Ivx_calc_row
{
public:
    virtual ~Ivx_calc_row();
    /// Number of the field of this name, below 0 if there is none.
    [[nodiscard]] virtual int field_index(std::wstring_view name) const = 0;
    /// `text_needed` false allows the text of a number cell to be left out.
    [[nodiscard]] virtual Tvx_calc_cell cell(int field, bool text_needed) = 0;
};

/// A filter made ready for many rows of one table: fields are looked up and numbers are read once.
///
/// How a condition compares:
/// - EQUAL, NOT EQUAL: two numbers by value when the cell is one and the value reads as one, else the texts
///   without white space at their ends. Whole numbers are compared to their last digit, others to the 15
///   digits that tables show and value scales hold: so the rules made from a value scale select what its
///   entries did. NOT EQUAL is exactly what EQUAL is not.
/// - LESS and its kin: by number when the value reads as a number, and then false for a cell that is none (a
///   text cell counts as the number that all of it spells); else by the order of the texts' characters, or of
///   their letters without case.
/// - IS CLOSE: numbers that differ by at most 1e-9 of the larger one; texts equal without regard to case.
/// - BEGINS WITH and its kin: the cell as text.
/// - An object without a value, and a field that the table lacks: NULL holds, and what is said by NOT EQUAL
/// and
///   NOT CONTAINS, whatever the value; nothing else does, EQUAL "" no more than others.
/// A filter without a condition in force selects nothing.
[[nodiscard]] VX_API void *vx_calc_filter_prepare(void const *filter, Ivx_calc_row const &row);
VX_API void vx_calc_prepared_destroy(void *prepared);
[[nodiscard]] VX_API bool vx_calc_prepared_matches(void const *prepared, Ivx_calc_row &row);
/// The same for one row.
[[nodiscard]] VX_API bool vx_calc_filter_matches(void const *filter, Ivx_calc_row &row);
