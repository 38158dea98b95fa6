#include "platform/dialogs/vx_progress.h"

#include "captions/dialogs.h"

#include "platform/base/flag_scope.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/gauge.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/screen.h"

#include <QtGui/QWindow>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace {
using clock_type = std::chrono::steady_clock;
constexpr auto c_show_after = std::chrono::milliseconds(500);
constexpr auto c_refresh_after = std::chrono::milliseconds(40);

constexpr int c_width = 380;
constexpr int c_edge = 12;
constexpr int c_label_height = 18;
constexpr int c_gauge_height = 20;
constexpr int c_level_height = c_label_height + c_gauge_height + 10;
constexpr int c_button_width = 110;
constexpr int c_button_height = 26;

/// The window of the work that is going on: a line for each piece of it.
class progress_form final : public TForm
{
public:
    progress_form() : TForm(nullptr)
    {
        SetCaption(Application->GetTitle());
        SetBorderStyle(bsDialog);
        SetBorderIcons({biSystemMenu});
        SetPosition(poScreenCenter);
        SetClientWidth(c_width);
        OnCloseQuery = make_closure<&progress_form::on_self_close_query>(this);
        f_stop = new TButton(this);
        f_stop->SetParent(this);
        f_stop->SetCaption(vx_res_get_wstr(c_dlg_stop));
        f_stop->SetCancel(true);
        f_stop->OnClick = make_closure<&progress_form::on_stop_click>(this);
    }

    void set_levels(int count)
    {
        while (static_cast<int>(f_levels.size()) > count) {
            delete f_levels.back().caption;
            delete f_levels.back().gauge;
            f_levels.pop_back();
        }
        while (static_cast<int>(f_levels.size()) < count)
            add_level();
        SetClientHeight(2 * c_edge + count * c_level_height + c_button_height);
        f_stop->SetBounds((c_width - c_button_width) / 2, c_edge + count * c_level_height, c_button_width,
                          c_button_height);
    }
    void set_level(int level, std::wstring const &caption, int percent)
    {
        auto const &[label, gauge] = f_levels[static_cast<std::size_t>(level)];
        label->SetText(caption);
        gauge->SetAccessibleName(caption);
        gauge->SetProgress(percent);
    }
    void show()
    {
        auto *widget = vx_qt_widget(this);
        widget->setWindowModality(Qt::ApplicationModal);
        if (auto *owner = vx::dialogs::owner_window(nullptr)) {
            widget->winId();
            widget->windowHandle()->setTransientParent(vx_qt_widget(owner)->windowHandle());
        }
        Show();
    }
    [[nodiscard]] bool is_stopped() const { return f_stopped; }

private:
    struct level
    {
        TLabel *caption;
        TGauge *gauge;
    };

    void add_level()
    {
        int const top = c_edge + static_cast<int>(f_levels.size()) * c_level_height;
        auto *label = new TLabel(this);
        label->SetParent(this);
        label->SetAutoSize(false);
        label->SetShowAccelChar(false);
        label->SetBounds(c_edge, top, c_width - 2 * c_edge, c_label_height);
        auto *gauge = new TGauge(this);
        gauge->SetParent(this);
        gauge->SetBounds(c_edge, top + c_label_height, c_width - 2 * c_edge, c_gauge_height);
        f_levels.push_back({label, gauge});
    }
    void stop()
    {
        f_stopped = true;
        f_stop->SetEnabled(false);
        f_stop->SetCaption(vx_res_get_wstr(c_dlg_stopping));
    }
    void on_stop_click(TObject *) { stop(); }
    void on_self_close_query(TObject *, bool &can_close)
    {
        can_close = false;
        stop();
    }

    std::vector<level> f_levels;
    TButton *f_stop;
    bool f_stopped = false;
};
} // namespace

struct Ivx_progress
{
    std::wstring caption;
    int percent = 0;
    void *foreign = nullptr; ///< the host's, when its table is in force
};

namespace {
/// All work that is going on, the first one first.
struct work
{
    std::vector<std::unique_ptr<Ivx_progress>> levels;
    std::unique_ptr<progress_form> form; ///< once it is shown
    clock_type::time_point begun;
    clock_type::time_point refreshed;
    bool pumping = false;
};

work &current_work()
{
    static work object;
    return object;
}

/// The host's functions, or null.
vx_dlg_table const *foreign()
{
    auto const &table = vx::dialogs::table();
    bool const whole =
        table.progress_start && table.progress_set && table.progress_is_stopped && table.progress_finish;
    return whole ? &table : nullptr;
}

bool is_going_on(Ivx_progress const *progress)
{
    auto const &levels = current_work().levels;
    return std::any_of(levels.begin(), levels.end(),
                       [progress](auto const &level) { return level.get() == progress; });
}

void fill_form(work &w)
{
    w.form->set_levels(static_cast<int>(w.levels.size()));
    for (std::size_t i = 0; i < w.levels.size(); ++i)
        w.form->set_level(static_cast<int>(i), w.levels[i]->caption, w.levels[i]->percent);
}

/// Lets the user see and stop, now and then. Nothing is handled before the window is there: it is what keeps
/// the user out of the other ones.
void refresh(work &w)
{
    auto const now = clock_type::now();
    if (w.pumping || now - w.refreshed < c_refresh_after || (!w.form && now - w.begun < c_show_after))
        return;
    if (!w.form) {
        w.form = std::make_unique<progress_form>();
        fill_form(w);
        w.form->show();
    } else {
        fill_form(w);
    }
    {
        vx::flag_scope const pumping(w.pumping);
        Application->ProcessMessages();
    }
    w.refreshed = clock_type::now();
}
} // namespace

Ivx_progress *vx_progress_start(wchar_t const *caption)
{
    auto &w = current_work();
    auto started = std::make_unique<Ivx_progress>();
    started->caption = caption ? caption : L"";
    if (auto const *table = foreign())
        started->foreign = table->progress_start(table->user, vx::dialogs::owner_window(nullptr),
                                                 static_cast<int>(w.levels.size()), started->caption.c_str());
    else if (w.levels.empty())
        w.begun = w.refreshed = clock_type::now();
    w.levels.push_back(std::move(started));
    if (w.form)
        fill_form(w);
    return w.levels.back().get();
}

void vx_progress_finish(Ivx_progress *progress)
{
    if (!is_going_on(progress))
        return;
    auto &w = current_work();
    for (bool last = false; !last;) {
        auto const ended = std::move(w.levels.back());
        w.levels.pop_back();
        last = ended.get() == progress;
        if (auto const *table = foreign())
            table->progress_finish(table->user, ended->foreign);
    }
    if (w.levels.empty())
        w.form.reset();
    else if (w.form)
        fill_form(w);
}

void vx_progress_set(Ivx_progress *progress, int percent)
{
    if (!is_going_on(progress))
        return;
    progress->percent = std::clamp(percent, 0, 100);
    if (auto const *table = foreign())
        table->progress_set(table->user, progress->foreign, progress->percent, progress->caption.c_str());
    else
        refresh(current_work());
}

void vx_progress_set_caption(Ivx_progress *progress, wchar_t const *caption)
{
    if (!is_going_on(progress))
        return;
    progress->caption = caption ? caption : L"";
    vx_progress_set(progress, progress->percent);
}

bool vx_progress_is_stopped(Ivx_progress *progress)
{
    if (!is_going_on(progress))
        return false;
    auto &w = current_work();
    if (auto const *table = foreign())
        return table->progress_is_stopped(table->user, w.levels.front()->foreign);
    refresh(w);
    return w.form && w.form->is_stopped();
}
