#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/lists.h"
#include "controls/forms/order_buttons.h"

#include <string>
#include <vector>

namespace vx::layout_elements {
/// A list of lines in an order of the user's, each switched on or off. With own lines the user can add
/// lines of text, which can be changed, and delete those that are not the list's.
class ordered_list final : public Tvx_basic_pnl
{
public:
    enum class origin
    {
        given,
        gone, ///< was given once
        own
    };
    struct line
    {
        std::wstring text;
        bool is_on = true;
        origin from = origin::given;
    };

    ordered_list(TComponent *owner, bool has_own);

    /// Numbers of captions: the list's name, and with own lines of the button that adds one, of the edit for
    /// its text, and of how it shows in the list, with "%1" for the text.
    void load_res(int name, int add = 0, int text = 0, int own_line = 0);
    [[nodiscard]] std::vector<line> const &get_lines() const { return f_lines; }
    /// The line that is chosen stays so, as far as there are that many. Fires nothing.
    void set_lines(std::vector<line> lines);

private:
    [[nodiscard]] UnicodeString shown(line const &of_list) const;
    [[nodiscard]] line *current();
    void show_lines(int chosen);
    void show_current();
    void on_list_click(TObject *sender);
    void on_check_click(TObject *sender);
    void on_add_click(TObject *sender);
    void on_delete_click(TObject *sender);
    void on_move_click(TObject *sender, int by);
    void on_text_changed(TObject *sender);

    std::vector<line> f_lines;
    Tvx_check_list_box *f_list;
    Tvx_order_buttons *f_buttons;
    Tvx_string_panel *f_text = nullptr;
    int f_own_line = 0;
};
} // namespace vx::layout_elements
