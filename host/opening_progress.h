#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

/// Keeps the window alive while data sets are opened and read, and tells the user of it once that takes
/// longer than half a second: what is being opened, with a button that gives it up.
class Tvx_opening_progress
{
public:
    explicit Tvx_opening_progress(QWidget *parent);
    Tvx_opening_progress(Tvx_opening_progress const &) = delete;
    Tvx_opening_progress &operator=(Tvx_opening_progress const &) = delete;
    ~Tvx_opening_progress();

    void set_text(QString const &text);
    /// The user has given it up.
    [[nodiscard]] bool is_cancelled() const { return f_dialog.wasCanceled(); }

private:
    [[nodiscard]] bool goes_on();

    QProgressDialog f_dialog;
    QElapsedTimer f_since_start;
};
