#include "platform/toolkit/core/strings.h"

#include "platform/toolkit/bridge/qt_values.h"

#include <algorithm>
#include <stdexcept>

int vx_compare_text(UnicodeString const &a, UnicodeString const &b)
{
    return vx_qt_string(a).compare(vx_qt_string(b), Qt::CaseInsensitive);
}

int TStrings::AddObject(UnicodeString const &text, TObject *object)
{
    int const index = GetCount();
    InsertObject(index, text, object);
    return index;
}

void TStrings::AddStrings(TStrings const *source)
{
    if (!source)
        return;
    BeginUpdate();
    for (int i = 0, count = source->GetCount(); i < count; ++i)
        AddObject(source->GetStrings(i), source->GetObjects(i));
    EndUpdate();
}

int TStrings::IndexOf(UnicodeString const &text) const
{
    for (int i = 0, count = GetCount(); i < count; ++i)
        if (vx_compare_text(GetStrings(i), text) == 0)
            return i;
    return -1;
}

int TStrings::IndexOfObject(TObject const *object) const
{
    for (int i = 0, count = GetCount(); i < count; ++i)
        if (GetObjects(i) == object)
            return i;
    return -1;
}

void TStrings::Move(int from, int to)
{
    if (from == to)
        return;
    if (to < 0 || to >= GetCount())
        throw std::out_of_range("list index out of bounds");
    UnicodeString const text = GetStrings(from);
    TObject *const object = GetObjects(from);
    BeginUpdate();
    Delete(from);
    InsertObject(to, text, object);
    EndUpdate();
}

void TStrings::Exchange(int a, int b)
{
    UnicodeString const text = GetStrings(a);
    TObject *const object = GetObjects(a);
    UnicodeString const other_text = GetStrings(b);
    BeginUpdate();
    SetStrings(a, other_text);
    SetObjects(a, GetObjects(b));
    SetStrings(b, text);
    SetObjects(b, object);
    EndUpdate();
}

UnicodeString TStrings::GetText() const
{
    std::wstring text;
    for (int i = 0, count = GetCount(); i < count; ++i)
        text.append(GetStrings(i).str()).push_back(L'\n');
    return UnicodeString(std::move(text));
}

void TStrings::SetText(UnicodeString const &text)
{
    BeginUpdate();
    Clear();
    std::wstring_view rest = text.str();
    while (!rest.empty()) {
        auto const end = std::min(rest.find(L'\n'), rest.size());
        std::wstring_view line = rest.substr(0, end);
        if (!line.empty() && line.back() == L'\r')
            line.remove_suffix(1);
        Add(UnicodeString(line));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    EndUpdate();
}

void TStrings::Assign(TPersistent const *source)
{
    auto const *other = dynamic_cast<TStrings const *>(source);
    if (!other || other == this)
        return;
    BeginUpdate();
    Clear();
    AddStrings(other);
    EndUpdate();
}

void TStrings::BeginUpdate()
{
    if (f_update_count++ == 0)
        SetUpdateState(true);
}

void TStrings::EndUpdate()
{
    if (f_update_count > 0 && --f_update_count == 0)
        SetUpdateState(false);
}

void TStrings::SetUpdateState(bool)
{
}

// ---- TStringList

TStringList::item &TStringList::at(int index)
{
    if (index < 0 || index >= GetCount())
        throw std::out_of_range("list index out of bounds");
    return f_items[static_cast<std::size_t>(index)];
}

TStringList::item const &TStringList::at(int index) const
{
    return const_cast<TStringList *>(this)->at(index);
}

UnicodeString TStringList::GetStrings(int index) const
{
    return at(index).text;
}

void TStringList::SetStrings(int index, UnicodeString const &text)
{
    item &entry = at(index);
    if (f_sorted)
        throw std::logic_error("a sorted list puts its entries into place itself");
    Changing();
    entry.text = text;
    Changed();
}

TObject *TStringList::GetObjects(int index) const
{
    return at(index).object;
}

void TStringList::SetObjects(int index, TObject *object)
{
    item &entry = at(index);
    Changing();
    entry.object = object;
    Changed();
}

void TStringList::InsertObject(int index, UnicodeString const &text, TObject *object)
{
    if (f_sorted)
        throw std::logic_error("a sorted list puts its entries into place itself");
    if (index < 0 || index > GetCount())
        throw std::out_of_range("list index out of bounds");
    Changing();
    f_items.insert(f_items.begin() + index, item{text, object});
    Changed();
}

void TStringList::Delete(int index)
{
    at(index);
    Changing();
    f_items.erase(f_items.begin() + index);
    Changed();
}

void TStringList::Clear()
{
    if (f_items.empty())
        return;
    Changing();
    f_items.clear();
    Changed();
}

int TStringList::AddObject(UnicodeString const &text, TObject *object)
{
    int index = GetCount();
    if (f_sorted) {
        bool found = false;
        index = find(text, found);
        if (found && f_duplicates == dupIgnore)
            return index;
        if (found && f_duplicates == dupError)
            throw std::invalid_argument("the list does not take the same text twice");
    }
    Changing();
    f_items.insert(f_items.begin() + index, item{text, object});
    Changed();
    return index;
}

int TStringList::compare(UnicodeString const &a, UnicodeString const &b) const
{
    if (f_case_sensitive)
        return a.str().compare(b.str());
    return vx_compare_text(a, b);
}

int TStringList::find(UnicodeString const &text, bool &found) const
{
    auto const place = std::lower_bound(
        f_items.begin(), f_items.end(), text,
        [this](item const &entry, UnicodeString const &t) { return compare(entry.text, t) < 0; });
    found = place != f_items.end() && compare(place->text, text) == 0;
    return static_cast<int>(place - f_items.begin());
}

int TStringList::IndexOf(UnicodeString const &text) const
{
    if (f_sorted) {
        bool found = false;
        int const index = find(text, found);
        return found ? index : -1;
    }
    for (std::size_t i = 0; i < f_items.size(); ++i)
        if (compare(f_items[i].text, text) == 0)
            return static_cast<int>(i);
    return -1;
}

void TStringList::Sort()
{
    if (f_sorted)
        return;
    Changing();
    std::stable_sort(f_items.begin(), f_items.end(),
                     [this](item const &a, item const &b) { return compare(a.text, b.text) < 0; });
    Changed();
}

void TStringList::SetSorted(bool value)
{
    if (value)
        Sort();
    f_sorted = value;
}

void TStringList::SetCaseSensitive(bool value)
{
    if (f_case_sensitive == value)
        return;
    f_case_sensitive = value;
    if (f_sorted) {
        f_sorted = false;
        SetSorted(true);
    }
}

void TStringList::Changing()
{
    if (!IsUpdating())
        OnChanging(this);
}

void TStringList::Changed()
{
    if (!IsUpdating())
        OnChange(this);
}

void TStringList::SetUpdateState(bool updating)
{
    if (updating)
        OnChanging(this);
    else
        OnChange(this);
}
