#pragma once

#include "platform/toolkit/core/component.h"

#include <exception>

class TCustomForm;

/// The program as the toolkit sees it. Made at first use; it works inside the host's event loop, or with one
/// of its own if the process has none yet.
class VX_API TApplication : public TComponent
{
public:
    /// The one object. Makes the toolkit ready if need be; lives to the end of the process.
    static TApplication *Instance();

    [[nodiscard]] TCustomForm *GetMainForm() const { return f_main_form; }
    /// The program names its main form itself; null is accepted.
    void SetMainForm(TCustomForm *form);
    [[nodiscard]] UnicodeString GetTitle() const;
    void SetTitle(UnicodeString const &title);
    [[nodiscard]] HWND GetHandle() const;

    /// Handles the events that wait, and returns.
    void ProcessMessages();
    /// Waits for the next event and handles it.
    void HandleMessage();
    /// Shows the main form and handles events until it closes or `Terminate` is called.
    void Run();
    /// Ends `Run`, and the modal forms in it; in a loop of the host's it does nothing.
    void Terminate();
    [[nodiscard]] bool GetTerminated() const { return f_terminated; }
    [[nodiscard]] bool GetActive() const;

    /// For a `catch` block: tells of the exception that is being handled, by `OnException` or, when nobody
    /// listens or the thread is not the main one, by a message as soon as the program waits for events. What
    /// comes again and again is told once, until it has been quiet for some seconds. Throws nothing. The
    /// toolkit calls it for whatever comes out of an event handler, so no exception ends the program there.
    void HandleException(TObject *sender) noexcept;

    /// Asks for help on a context: runs `OnHelp` and gives its result; false if nobody listens.
    bool HelpContext(THelpContext context);
    [[nodiscard]] bool GetShowHint() const { return f_show_hint; }
    /// Off: no control shows its hint.
    void SetShowHint(bool value) { f_show_hint = value; }
    /// Shows at once the hint of the control under a point of the screen, the part before a bar; takes the
    /// shown one away if that control has none or shows none.
    void ActivateHint(TPoint const &cursor_pos);
    void CancelHint();
    /// The text of the last `ActivateHint`; empty after `CancelHint`.
    [[nodiscard]] UnicodeString const &GetHint() const { return f_hint; }

    /// Gets the context, shows help and tells whether it did.
    closure<bool(THelpContext context)> OnHelp;
    TNotifyEvent OnActivate;
    TNotifyEvent OnDeactivate;
    /// Gets what came out of an event handler, in the place of the message; `sender` is what
    /// `HandleException` got, the application for what the toolkit caught, and `exception` is null for what
    /// is not derived from `std::exception`.
    closure<void(TObject *sender, std::exception const *exception)> OnException;
    /// Runs when no event waits any more; `done` false asks to be called again at once.
    closure<void(TObject *sender, bool &done)> OnIdle;

protected:
    void Notification(TComponent *component, TOperation operation) override;

private:
    TApplication();

    TCustomForm *f_main_form = nullptr;
    UnicodeString f_hint;
    bool f_running = false;
    bool f_terminated = false;
    bool f_show_hint = true;
};

/// Stands for the application object, so that `Application->MainForm` reads as it always did and loading the
/// library runs no code.
struct vx_application_accessor
{
    TApplication *operator->() const { return TApplication::Instance(); }
    operator TApplication *() const { return TApplication::Instance(); }
};
inline constexpr vx_application_accessor Application{};
