#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QLockFile;
class QThread;

/// What there is in a file: changes with each byte of it. Empty for a file that is not there or not read.
[[nodiscard]] QByteArray vx_file_print(QString const &path);

/// A copy of unsaved work that a program left which ended before it was saved.
struct Tvx_found_map
{
    QString file;                    ///< the copy, a saved map
    QString map;                     ///< what it is a copy of; empty for a map that never had a file
    QByteArray print;                ///< of that file, as it was when the work on it began
    QDateTime time;                  ///< of the copy
    std::shared_ptr<QLockFile> lock; ///< no other process takes the copy while this lives
};

/// Keeps a copy of the unsaved map of this process, for the case that the process ends before it is saved.
///
/// The copy is written some seconds after the last change, and while changes go on now and then, by a thread;
/// without a change nothing is written. It goes as soon as the work is saved or given up. Each process has
/// copies of its own, under a lock that ends with the process, however it ends.
class Tvx_kept_map : public QObject
{
    Q_OBJECT

public:
    /// What the copy is of.
    struct origin
    {
        QString map;
        QByteArray print;
    };
    /// Gives the bytes of a map that is saved as `file`; empty when there is nothing to keep at present.
    using maker = std::function<std::string(QString const &file, origin &of)>;

    /// The folder need not be there; `make` is called while this lives.
    Tvx_kept_map(QString folder, maker make);
    /// Leaves a copy that is not to be forgotten.
    ~Tvx_kept_map() override;

    /// How long nothing changes before a copy is written, and how long changes may go on before one is.
    void set_times(int rest_ms, int longest_ms);
    /// There is work that no file has.
    void note_change();
    /// All is saved, or nobody wants it.
    void forget();
    /// Writes what is not written yet, at once.
    void keep_now();

    /// A copy that another process left, the newest that is not among `passed`.
    [[nodiscard]] std::optional<Tvx_found_map> find(QStringList const &passed) const;
    /// This process goes on with the copy, which stays until the work is saved or given up.
    void adopt(Tvx_found_map const &found);
    static void erase(Tvx_found_map const &found);

signals:
    /// No copy could be written; a reason (platform/basic/vx_fault.h). Told once until one can.
    void failed(QString const &reason);

private:
    void write();
    void finish();
    /// Waits for the thread.
    void settle();
    [[nodiscard]] bool begin(origin const &of, std::wstring &reason);
    void tell(std::wstring const &reason);

    QString f_folder;
    maker f_make;
    QTimer f_timer;
    QElapsedTimer f_since; ///< the first change that no copy has
    int f_rest_ms;
    int f_longest_ms;
    qint64 f_cost_ms = 0; ///< what the last copy took of the window's time
    bool f_is_pending = false;
    bool f_is_told = false;
    QString f_file; ///< empty without a copy
    std::shared_ptr<QLockFile> f_lock;
    std::unique_ptr<QThread> f_writer;
    std::wstring f_reason; ///< of the thread
};
