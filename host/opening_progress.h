#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

class QAction;

/// Keeps the window alive while data sets are opened and read, and tells the user of it once that takes
/// longer than half a second: what is being opened, with a button that gives it up.
///
/// The window's commands rest meanwhile. It can be closed at any time, which a modal dialog would forbid.
class Tvx_opening_progress : public QObject
{
public:
    enum work
    {
        c_opening, ///< what the drivers do asks by itself whether to go on
        c_own,     ///< the one who works asks
    };
    /// `quit` can be run by its key all the time.
    Tvx_opening_progress(QWidget *parent, QAction *quit, work what = c_opening);
    ~Tvx_opening_progress() override;

    void set_text(QString const &text);
    void cancel() { f_dialog.cancel(); }
    /// Tells the user now, ahead of something long that does not ask.
    void show_now();
    /// Runs the events, and tells the user when it is time to. False when the user has given it up.
    [[nodiscard]] bool goes_on();
    /// The user has given it up.
    [[nodiscard]] bool is_cancelled() const { return f_dialog.wasCanceled(); }

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    [[nodiscard]] bool is_begun_elsewhere(QObject const *object, QEvent const &event);

    QProgressDialog f_dialog;
    QAction *f_quit;
    work f_work;
    QElapsedTimer f_since_start;
    /// Their press reached nobody, nor does their release.
    Qt::MouseButtons f_lost_buttons;
};
