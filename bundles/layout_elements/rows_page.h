#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/numeric/size_panel.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

#include "platform/toolkit/controls/scroll_box.h"

#include <algorithm>
#include <functional>
#include <type_traits>
#include <vector>

namespace vx::layout_elements {
/// A value of an element as a number. Choices count from 0, flags are 0 and 1.
struct value
{
    double (*get)(Ivx_layer const *layer);
    void (*set)(Ivx_layer *layer, double number);
};

/// The field of a record that a pair of plain functions gets and sets.
template <auto Get, auto Set, auto Field>
inline constexpr value field = {
    [](Ivx_layer const *layer) { return static_cast<double>(Get(layer).*Field); },
    [](Ivx_layer *layer, double number) {
        auto record = Get(layer);
        using type = std::remove_reference_t<decltype(record.*Field)>;
        if constexpr (std::is_floating_point_v<type>)
            record.*Field = number;
        else
            record.*Field = static_cast<type>(static_cast<int>(std::clamp(number, -1e9, 1e9)));
        Set(layer, record);
    },
};

struct number_row
{
    int caption;
    int unit; ///< number of its caption, 0 for none
    int decimals;
    bool is_negative; ///< whether it can be
    value what;
};
struct choice_row
{
    int caption;
    int items; ///< number of a caption with a line for each
    value what;
};
struct flag_row
{
    int caption;
    value what;
};

/// A page of an element of a layout: rows of controls from the top, each for one value of the element. What
/// the user does goes into the element at once; what could not be taken gives way to what is in force when
/// the user leaves the row.
/// A page that is higher than its window scrolls.
class rows_page : public Tvx_basic_lr2d_edit
{
public:
    explicit rows_page(TComponent *owner);

    void load_res() override;
    void update_controls() override;
    /// All that is typed is in the element already.
    void end_edit(bool taken) override;

protected:
    static constexpr int c_label_width = 160;
    static constexpr int c_row_height = 22;

    /// The parent of the rows that are added next, until `end_group`.
    TWinControl *add_group(int caption, int height);
    void end_group() { f_parent = f_area; }
    Tvx_size_panel *add_number(number_row const &row);
    void add_choice(choice_row const &row);
    void add_flag(flag_row const &row);
    Tvx_string_panel *add_text(int caption, std::wstring (*get)(Ivx_layer const *layer),
                               void (*set)(Ivx_layer *layer, wchar_t const *text));
    Tvx_button *add_button(int caption, TNotifyEvent on_click);
    /// A page of the library's as some of the rows.
    template <class Page>
    Page *add_page()
    {
        auto *const page = new Page(this);
        place_page(page);
        return page;
    }
    /// Font, size and colour of what the element writes.
    void add_writing();

    /// A row of any control; `sender` is that of its event, which is to be `row_changed()`. Null: the
    /// control.
    void add_row(TWinControl *control, int width, std::function<void()> load, std::function<void()> show,
                 std::function<void()> take, TObject *sender = nullptr);
    [[nodiscard]] TNotifyEvent row_changed();
    void set_row_visible(TControl const *control, bool visible);
    /// What stands beside the rows shows the element too.
    virtual void show_others() {}
    /// Shows all rows but that which `typed` sends, if given.
    void show_rows(TObject const *typed = nullptr);

    void place_row(TControl *row);

private:
    struct row
    {
        TObject *sender;
        TControl *control;
        TControl *strip;
        std::function<void()> load;
        std::function<void()> show;
        std::function<void()> take;
    };
    struct group
    {
        Tvx_group_box *box;
        int caption;
    };

    void place_page(Tvx_basic_lr2d_edit *edit);
    void on_row_changed(TObject *sender);
    void on_row_left(TObject *sender);
    void on_page_changed(TObject *sender);

    TScrollBox *f_area;
    TWinControl *f_parent; ///< of the next row
    std::vector<row> f_rows;
    std::vector<group> f_groups;
    std::vector<Tvx_basic_lr2d_edit *> f_pages;
};
} // namespace vx::layout_elements
