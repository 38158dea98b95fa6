#pragma once

#include "host/gallery/gallery_dialog.h"
#include "host/gallery/gallery_form.h"
#include "support/tab_round.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_options.h"
#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/controls/page_control.h"

#include <QtGui/QImage>
#include <QtWidgets/QApplication>

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// Everything that the gallery shows, page by page and dialog by dialog.
namespace vx_test {
namespace input = vx::user_input;

struct shown
{
    std::string name;   ///< for messages
    TWinControl *scope; ///< the page, or the dialog's form
};

/// All pages of page controls that lie in the scope show their page of this number, those that have one.
/// False if none has.
inline bool turn_inner_pages(TWinControl *scope, int index)
{
    bool turned = false;
    for (int i = 0; i < scope->GetControlCount(); ++i) {
        auto *const child = dynamic_cast<TWinControl *>(scope->GetControls(i));
        if (!child || !child->GetVisible())
            continue;
        auto *const pages = dynamic_cast<TPageControl *>(child);
        if (pages && index < pages->GetPageCount() && pages->GetPages(index)->GetTabVisible()) {
            pages->SetActivePageIndex(index);
            turned = true;
        }
        turned = turn_inner_pages(child, index) || turned;
    }
    return turned;
}

/// Runs `look` on the scope, once for each page of the page controls in it.
inline void visit(std::string const &name, TWinControl *scope, std::function<void(shown const &)> const &look)
{
    int inner = 0;
    do {
        input::wait_idle();
        look({inner == 0 ? name : name + " " + std::to_string(inner + 1), scope});
    } while (turn_inner_pages(scope, ++inner));
}

/// Runs `look` on each page of the gallery and on each dialog that is a form of the toolkit, while it is
/// open.
inline void visit_gallery(std::function<void(shown const &)> const &look)
{
    gallery_form form;
    form.Show();
    for (int i = 0; i < form.pages()->GetPageCount(); ++i) {
        form.pages()->SetActivePageIndex(i);
        TTabSheet *const page = form.pages()->GetPages(i);
        visit(page->GetCaption().to_utf8(), page, look);
    }
    for (gallery_dialog const *const dialog : gallery_dialog::all()) {
        input::on_next_modal([&](input::modal_window const &window) {
            if (window.form())
                visit("dialog " + UnicodeString(dialog->caption()).to_utf8(), window.form(), look);
            window.reject();
        });
        dialog->open();
        input::wait_idle();
        EXPECT_EQ(input::pending_modals(), 0) << "dialog " << UnicodeString(dialog->caption()).to_utf8();
        input::forget_pending_modals();
    }
}

/// Puts the focus where a round may begin.
inline void begin_round(TWinControl *scope)
{
    for (TWinControl *above = scope->GetParent(); above; above = above->GetParent())
        if (dynamic_cast<TPageControl *>(above))
            return above->SetFocus();
    // A dialog has put it on its first control already; that shows from the first key on.
    input::press(VK_TAB);
    input::press(VK_TAB, {ssShift});
}

inline QImage picture(QWidget *widget)
{
    return widget->grab().toImage();
}
} // namespace vx_test
