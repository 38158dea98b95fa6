#pragma once

#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/core/win_control.h"

#include <memory>
#include <vector>

class TCustomImageList;
class TCustomListView;

/// A line of a list view: a caption, the texts of the further columns, a picture and a pointer of the
/// program.
class VX_API TListItem : public TPersistent
{
public:
    ~TListItem() override;

    /// Takes the line out of its view and ends it.
    void Delete();
    [[nodiscard]] int GetIndex() const;
    [[nodiscard]] UnicodeString GetCaption() const;
    void SetCaption(UnicodeString const &caption);
    [[nodiscard]] TStrings *GetSubItems() { return &f_sub_items; }
    [[nodiscard]] void *GetData() const { return f_data; }
    void SetData(void *data) { f_data = data; }
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    [[nodiscard]] bool GetChecked() const;
    void SetChecked(bool checked);
    [[nodiscard]] bool GetSelected() const;
    void SetSelected(bool selected);
    void MakeVisible();

private:
    friend class TCustomListView;
    friend class TListItems;

    TListItem(TCustomListView *view, void *native);
    void on_sub_items_change(TObject *sender);
    void apply_image();

    TCustomListView *f_view;
    void *f_native;
    TStringList f_sub_items;
    void *f_data = nullptr;
    int f_image_index = -1;
};

/// The lines of a list view, from 0.
class VX_API TListItems : public TPersistent
{
public:
    explicit TListItems(TCustomListView *view) : f_view(view) {}

    TListItem *Add() { return Insert(GetCount()); }
    TListItem *Insert(int index);
    void Delete(int index);
    void Clear();
    [[nodiscard]] int GetCount() const;
    /// Null outside.
    [[nodiscard]] TListItem *GetItem(int index) const;
    [[nodiscard]] TListItem *operator[](int index) const { return GetItem(index); }
    [[nodiscard]] int IndexOf(TListItem const *item) const;
    void BeginUpdate();
    void EndUpdate();

private:
    TCustomListView *f_view;
    int f_update_count = 0;
};

/// A table of lines with column headers; 250 by 150.
///
/// `OnSelectItem` runs for each line that becomes selected or loses that, `OnChange` after it, by whatever
/// way; `OnColumnClick` and `OnItemChecked` by the user alone.
class VX_API TCustomListView : public TWinControl
{
public:
    explicit TCustomListView(TComponent *owner);
    ~TCustomListView() override;

    [[nodiscard]] TListItems *GetItems() { return &f_items; }
    /// Adds a column at the right end; gives its number. The first one holds the captions and is there from
    /// the start without a text.
    int AddColumn(UnicodeString const &caption, int width);
    [[nodiscard]] int GetColumnCount() const;
    void SetColumnCaption(int column, UnicodeString const &caption);
    [[nodiscard]] int GetColumnWidth(int column) const;
    void SetColumnWidth(int column, int width);
    [[nodiscard]] bool GetShowColumnHeaders() const;
    void SetShowColumnHeaders(bool show);

    /// The selected line with the lowest number, or the one with the focus among several; null for none.
    [[nodiscard]] TListItem *GetSelected() const;
    void SetSelected(TListItem *item);
    [[nodiscard]] int GetItemIndex() const;
    void SetItemIndex(int index);
    [[nodiscard]] int GetSelCount() const;
    void ClearSelection();
    [[nodiscard]] bool GetMultiSelect() const;
    void SetMultiSelect(bool multi);
    [[nodiscard]] bool GetCheckboxes() const { return f_checkboxes; }
    void SetCheckboxes(bool value);
    [[nodiscard]] TCustomImageList *GetSmallImages() const { return f_images; }
    void SetSmallImages(TCustomImageList *images);

    closure<void(TObject *sender, TListItem *item, bool selected)> OnSelectItem;
    TNotifyEvent OnChange;
    closure<void(TObject *sender, int column)> OnColumnClick;
    closure<void(TObject *sender, TListItem *item)> OnItemChecked;

protected:
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class TListItem;
    friend class TListItems;

    void images_changed(TObject *sender);
    void selection_changed();
    [[nodiscard]] std::vector<TListItem *> selected_items() const;

    TListItems f_items{this};
    std::vector<std::unique_ptr<TListItem>> f_lines;
    std::vector<TListItem *> f_was_selected;
    TCustomImageList *f_images = nullptr;
    bool f_checkboxes = false;
    bool f_quiet = false;
};

class VX_API TListView : public TCustomListView
{
public:
    using TCustomListView::TCustomListView;
};
