#pragma once

#include "platform/toolkit/core/strings.h"

class TWinControl;

/// The items of a list box or combo box, kept in the model of its widget: of each a text and an object. No
/// change of them is a choice of the user.
class vx_item_strings : public TStrings
{
public:
    /// While `sorted` is true new items go to their place in the order of their texts.
    vx_item_strings(TWinControl *owner, bool const &sorted) : f_owner(owner), f_sorted(sorted) {}

    [[nodiscard]] int GetCount() const override;
    [[nodiscard]] UnicodeString GetStrings(int index) const override;
    void SetStrings(int index, UnicodeString const &text) override;
    [[nodiscard]] TObject *GetObjects(int index) const override;
    void SetObjects(int index, TObject *object) override;
    int AddObject(UnicodeString const &text, TObject *object) override;
    void InsertObject(int index, UnicodeString const &text, TObject *object) override;
    void Delete(int index) override;
    void Clear() override;
    /// Puts the items that are there in order.
    void Sort();

protected:
    virtual void insert_row(int index, UnicodeString const &text) = 0;
    virtual void remove_row(int index) = 0;
    virtual void remove_all_rows() = 0;
    /// Runs after each change.
    virtual void changed() {}

private:
    TWinControl *f_owner;
    bool const &f_sorted;
};
