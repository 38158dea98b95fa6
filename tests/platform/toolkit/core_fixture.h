#pragma once

#include "user_input/user_input.h"

#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/custom_control.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"

#include <string>
#include <vector>

/// What happened, in order, one word for each event.
using event_log = std::vector<std::string>;

/// A control that can have the focus and writes down what it gets.
class probe_control : public TCustomControl
{
public:
    probe_control(TComponent *owner, TWinControl *parent, char const *name, event_log *log = nullptr)
        : TCustomControl(owner), f_log(log)
    {
        SetName(name);
        SetTabStop(true);
        SetBounds(0, 0, 40, 20);
        if (parent)
            SetParent(parent);
    }
    ~probe_control() override { note("freed"); }

    int windows = 0; ///< how often a window was made
    int resized = 0;

    using TCustomControl::RecreateWnd;

protected:
    void CreateWnd() override
    {
        TCustomControl::CreateWnd();
        ++windows;
        note("window");
    }
    void DestroyWnd() override
    {
        note("no window");
        TCustomControl::DestroyWnd();
    }
    void Resize() override
    {
        ++resized;
        TCustomControl::Resize();
    }
    void DoEnter() override
    {
        note("enter");
        TCustomControl::DoEnter();
    }
    void DoExit() override
    {
        note("exit");
        TCustomControl::DoExit();
    }

private:
    void note(char const *what)
    {
        if (f_log)
            f_log->push_back(GetName().to_utf8() + " " + what);
    }
    event_log *f_log;
};

inline std::string text_of(TRect const &r)
{
    return std::to_string(r.Left) + "," + std::to_string(r.Top) + "," + std::to_string(r.Width()) + "," +
           std::to_string(r.Height());
}
