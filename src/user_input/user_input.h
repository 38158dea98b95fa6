#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/types.h"

#include <memory>
#include <type_traits>
#include <utility>

class TControl;
class TWinControl;
class TCustomForm;
class TCustomGrid;
class TPageControl;
class TPopupMenu;

/// The hand of a person at the toolkit: mouse, keyboard, windows, for guided tours and tests.
///
/// Everything goes the way of real input. A click goes to whatever is under the point, so a covered or hidden
/// control is not clicked; keys go to the control that has the focus; while a modal window is open the others
/// take nothing; shortcuts and default buttons work. An operation gives true when its target got the input.
/// It gives false, and sends nothing, when a person could not have done it: the target is hidden, outside its
/// window, covered, blocked by a modal window or by an open menu, or disabled (a click on a disabled control
/// still falls to its parent).
///
/// Points are in logical pixels from the corner of the control's client area. After each operation the events
/// that it caused are worked off. Operations return after a modal loop or a menu that they opened has ended;
/// what is to happen inside is said before, with `on_next_modal` and `choose_in_next_menu`.
namespace vx::user_input {
// ---- mouse

/// Press and release, in the control's middle or at a point. The window under the point becomes the active
/// one.
VX_API bool click(TControl *control, TMouseButton button = mbLeft, TShiftState shift = {});
VX_API bool click(TControl *control, int x, int y, TMouseButton button = mbLeft, TShiftState shift = {});
/// Click, then a second press and release that count as a double click.
VX_API bool double_click(TControl *control);
VX_API bool double_click(TControl *control, int x, int y, TShiftState shift = {});
/// Half a click: the button stays down until `mouse_up`.
VX_API bool mouse_down(TControl *control, int x, int y, TMouseButton button = mbLeft, TShiftState shift = {});
/// A control that holds the mouse since its button went down gets this wherever the point lies.
VX_API bool mouse_up(TControl *control, int x, int y, TMouseButton button = mbLeft, TShiftState shift = {});
/// Moves the pointer, with the buttons that are down.
VX_API bool move(TControl *control, int x, int y, TShiftState shift = {});
/// Press at the first point, several moves on the straight line, release at the second.
VX_API bool drag(TControl *from, int x1, int y1, TControl *to, int x2, int y2, TMouseButton button = mbLeft,
                 TShiftState shift = {});
VX_API bool drag(TControl *control, int x1, int y1, int x2, int y2);
/// Turns the wheel over the control's middle by notches, away from the person (up) when positive.
VX_API bool wheel(TControl *control, int notches, TShiftState shift = {});

// ---- keyboard, into the control that has the focus

/// One key press and release for each character; a line feed is Enter, a tab character is Tab.
VX_API bool type(UnicodeString const &text);
/// A key by its `VK_` code, with ssShift, ssCtrl, ssAlt held. Gives false while no window of the program is
/// active.
VX_API bool press(int key, TShiftState shift = {});
VX_API bool press_times(int key, int times, TShiftState shift = {});
/// Clicks the edit, selects its whole text and types over it. Enter and Tab are not pressed.
VX_API bool enter_text(TWinControl *edit, UnicodeString const &text);
/// Presses Tab until the control has the focus; false if a full round does not reach it.
VX_API bool tab_to(TWinControl *control);

// ---- compound controls

/// The tab of this caption, or of this place from 0 among the tabs that are seen.
VX_API bool click_tab(TPageControl *pages, UnicodeString const &caption);
VX_API bool click_tab(TPageControl *pages, int place);
/// The cell must be in sight; fixed cells too.
VX_API bool click_cell(TCustomGrid *grid, int col, int row, TMouseButton button = mbLeft,
                       TShiftState shift = {});
VX_API bool double_click_cell(TCustomGrid *grid, int col, int row);
VX_API bool drag_cell(TCustomGrid *grid, int from_col, int from_row, int to_col, int to_row);
/// The middle of a cell in the grid's client area; (-1, -1) when it is not in sight.
[[nodiscard]] VX_API TPoint cell_point(TCustomGrid *grid, int col, int row);
/// Opens a combo box's list and clicks the line, by text or by place from 0.
VX_API bool choose_item(TWinControl *combo, UnicodeString const &text);
VX_API bool choose_item(TWinControl *combo, int place);
/// Clicks a line of a list box or check list box; it is scrolled into sight. `click_item_check` hits its
/// check mark.
VX_API bool click_item(TWinControl *list, int place, TShiftState shift = {});
VX_API bool click_item_check(TWinControl *list, int place);

// ---- menus
// A path is the captions from the top, without '&', parted by '|': L"Palette|Default".

/// Pops the menu up and picks the item. Not found or disabled: the menu is closed by Esc and false comes
/// back.
VX_API bool choose(TPopupMenu *menu, UnicodeString const &path);
/// The same in the menu bar of a form.
VX_API bool choose(TCustomForm *form, UnicodeString const &path);
/// Picks the item in the popup menu that opens next (or is open), so it is called before the click that opens
/// it. An empty path closes the menu by Esc.
VX_API void choose_in_next_menu(UnicodeString const &path);
/// Whether the last such choice found its item and could pick it.
[[nodiscard]] VX_API bool menu_choice_done();

// ---- windows

/// A modal window as a person sees it: a form of the toolkit, or a dialog or message box of the system.
class VX_API modal_window
{
public:
    explicit modal_window(vx_native_widget *native);
    /// Null for a dialog that is not a form of the toolkit.
    [[nodiscard]] TCustomForm *form() const;
    [[nodiscard]] UnicodeString title() const;
    /// The message of a message box, else empty.
    [[nodiscard]] UnicodeString text() const;
    /// Clicks the push button of this caption ('&' left out); false if none can be clicked.
    bool press_button(UnicodeString const &caption) const;
    /// Enter, Esc.
    void accept() const;
    void reject() const;
    /// Writes the picture of the window as PNG. False if it is gone or the file could not be written.
    [[nodiscard]] bool save_shot(UnicodeString const &path) const;

private:
    std::shared_ptr<void> f_native; ///< knows when the window is gone; all answers are then empty
};

using modal_action = closure<void(modal_window const &)>;

/// Runs `action` inside the loop of the modal window that opens next, once it is shown. Several wait in
/// order: one for each window. An action that leaves the window open is the caller's fault: the loop goes on
/// until something ends it.
VX_API void on_next_modal(modal_action action);
/// How many windows still have to come, and forget them.
[[nodiscard]] VX_API int pending_modals();
VX_API void forget_pending_modals();

namespace detail {
VX_API void on_next_modal(modal_action action, void (*drop)(void *object));
}

/// Form for anything callable with a `modal_window const&`, kept until it has run or is forgotten:
/// `on_next_modal([&](modal_window const& w) { w.press_button(L"Apply"); });`
template <class F>
requires(!std::is_same_v<std::decay_t<F>, modal_action>) void on_next_modal(F &&action)
{
    using kept = std::decay_t<F>;
    auto *copy = new kept(std::forward<F>(action));
    detail::on_next_modal(
        modal_action([](void *object, modal_window const &w) { (*static_cast<kept *>(object))(w); }, copy),
        [](void *object) { delete static_cast<kept *>(object); });
}

/// The close box of the window. False if a modal window blocks it or the form refused.
VX_API bool close(TCustomForm *form);

/// Works off all events until none is left.
VX_API void wait_idle();
/// Works off events until `done` gives true, at most this long. Gives the last answer.
VX_API bool wait_until(closure<bool()> done, int milliseconds = 2000);
template <class F>
requires(!std::is_same_v<std::decay_t<F>, closure<bool()>>) bool wait_until(F &&done, int milliseconds = 2000)
{
    auto *object = &done;
    return wait_until(
        closure<bool()>([](void *f) -> bool { return (*static_cast<decltype(object)>(f))(); }, object),
        milliseconds);
}

/// Writes the picture of the form, or of one control, as PNG. False if the file could not be written.
[[nodiscard]] VX_API bool save_shot(TControl *control, UnicodeString const &path);
} // namespace vx::user_input
