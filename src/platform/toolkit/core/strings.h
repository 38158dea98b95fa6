#pragma once

#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

#include <vector>

/// A list of texts, each with an object that it does not own. Indices start at 0; a bad index throws
/// `std::out_of_range`. The lists of controls derive from it.
class VX_API TStrings : public TPersistent
{
public:
    [[nodiscard]] virtual int GetCount() const = 0;
    [[nodiscard]] virtual UnicodeString GetStrings(int index) const = 0;
    virtual void SetStrings(int index, UnicodeString const &text) = 0;
    [[nodiscard]] virtual TObject *GetObjects(int index) const = 0;
    virtual void SetObjects(int index, TObject *object) = 0;
    virtual void InsertObject(int index, UnicodeString const &text, TObject *object) = 0;
    virtual void Delete(int index) = 0;
    virtual void Clear() = 0;

    /// Gives the place of the new entry.
    virtual int AddObject(UnicodeString const &text, TObject *object);
    int Add(UnicodeString const &text) { return AddObject(text, nullptr); }
    void Insert(int index, UnicodeString const &text) { InsertObject(index, text, nullptr); }
    void AddStrings(TStrings const *source);
    /// The first equal text, without regard to case; -1 if there is none.
    [[nodiscard]] virtual int IndexOf(UnicodeString const &text) const;
    [[nodiscard]] int IndexOfObject(TObject const *object) const;
    virtual void Move(int from, int to);
    void Exchange(int a, int b);
    [[nodiscard]] UnicodeString operator[](int index) const { return GetStrings(index); }

    /// All entries, each ended by a line feed; when set, cut at line feeds, with or without a carriage
    /// return.
    [[nodiscard]] virtual UnicodeString GetText() const;
    virtual void SetText(UnicodeString const &text);
    void Assign(TPersistent const *source) override;

    /// Between these, which nest, changes are reported once, at the last `EndUpdate`.
    void BeginUpdate();
    void EndUpdate();
    [[nodiscard]] bool IsUpdating() const { return f_update_count > 0; }

protected:
    /// Runs when updating begins (true) and ends (false).
    virtual void SetUpdateState(bool updating);

private:
    int f_update_count = 0;
};

enum TDuplicates
{
    dupIgnore,
    dupAccept,
    dupError
};

class VX_API TStringList : public TStrings
{
public:
    [[nodiscard]] int GetCount() const override { return static_cast<int>(f_items.size()); }
    [[nodiscard]] UnicodeString GetStrings(int index) const override;
    void SetStrings(int index, UnicodeString const &text) override;
    [[nodiscard]] TObject *GetObjects(int index) const override;
    void SetObjects(int index, TObject *object) override;
    void InsertObject(int index, UnicodeString const &text, TObject *object) override;
    void Delete(int index) override;
    void Clear() override;
    int AddObject(UnicodeString const &text, TObject *object) override;
    [[nodiscard]] int IndexOf(UnicodeString const &text) const override;
    void Sort();

    /// A sorted list keeps itself in order; `Duplicates` counts only then.
    [[nodiscard]] bool GetSorted() const { return f_sorted; }
    void SetSorted(bool value);
    [[nodiscard]] TDuplicates GetDuplicates() const { return f_duplicates; }
    void SetDuplicates(TDuplicates value) { f_duplicates = value; }
    [[nodiscard]] bool GetCaseSensitive() const { return f_case_sensitive; }
    void SetCaseSensitive(bool value);

    /// Before and after each change, or once round `BeginUpdate` and `EndUpdate`.
    TNotifyEvent OnChanging;
    TNotifyEvent OnChange;

protected:
    virtual void Changing();
    virtual void Changed();
    void SetUpdateState(bool updating) override;

private:
    struct item
    {
        UnicodeString text;
        TObject *object;
    };
    [[nodiscard]] int compare(UnicodeString const &a, UnicodeString const &b) const;
    [[nodiscard]] int find(UnicodeString const &text, bool &found) const;
    item &at(int index);
    [[nodiscard]] item const &at(int index) const;

    std::vector<item> f_items;
    TDuplicates f_duplicates = dupIgnore;
    bool f_sorted = false;
    bool f_case_sensitive = false;
};

/// Compares without regard to case, by code point after simple folding; the sign of the result counts.
[[nodiscard]] VX_API int vx_compare_text(UnicodeString const &a, UnicodeString const &b);
