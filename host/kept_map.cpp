#include "host/kept_map.h"

#include "platform/basic/vx_fault.h"
#include "platform/winapi/file.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace {
constexpr int c_rest_ms = 4000;
constexpr int c_longest_ms = 60000;
/// Making the copies takes at most one part in so many of the window's time.
constexpr int c_cost_parts = 100;
constexpr QLatin1String c_map_suffix(".sn");
constexpr QLatin1String c_origin_suffix(".origin");
constexpr QLatin1String c_lock_suffix(".lock");

QString beside(QString const &file, QLatin1String suffix)
{
    return file.chopped(c_map_suffix.size()) + suffix;
}

/// Null when another process has it.
std::shared_ptr<QLockFile> lock_of(QString const &file)
{
    auto lock = std::make_shared<QLockFile>(beside(file, c_lock_suffix));
    lock->setStaleLockTime(0); // it is stale when its process has ended, and not before
    return lock->tryLock() ? lock : nullptr;
}

void remove_files(QString const &file)
{
    QFile::remove(file);
    QFile::remove(beside(file, c_origin_suffix));
}

std::wstring save(QString const &file, std::string_view bytes)
{
    vx::fault fault;
    return vx_save_atomic(file.toStdWString(), bytes, fault) ? std::wstring() : vx_fault_reason(fault);
}
} // namespace

QByteArray vx_file_print(QString const &path)
{
    vx::fault fault;
    auto const bytes = vx_file_read(path.toStdWString(), fault);
    if (!bytes)
        return {};
    return QCryptographicHash::hash(QByteArrayView(bytes->data(), qsizetype(bytes->size())),
                                    QCryptographicHash::Sha1)
        .toHex();
}

Tvx_kept_map::Tvx_kept_map(QString folder, maker make)
    : f_folder(std::move(folder)), f_make(std::move(make)), f_rest_ms(c_rest_ms), f_longest_ms(c_longest_ms)
{
    f_timer.setSingleShot(true);
    connect(&f_timer, &QTimer::timeout, this, &Tvx_kept_map::write);
}

Tvx_kept_map::~Tvx_kept_map()
{
    settle();
}

void Tvx_kept_map::set_times(int rest_ms, int longest_ms)
{
    f_rest_ms = rest_ms;
    f_longest_ms = longest_ms;
}

void Tvx_kept_map::note_change()
{
    if (!std::exchange(f_is_pending, true))
        f_since.start();
    qint64 const rest = std::max<qint64>(f_rest_ms, f_cost_ms * c_cost_parts);
    qint64 const longest = std::max<qint64>(f_longest_ms, rest);
    f_timer.start(int(std::clamp<qint64>(longest - f_since.elapsed(), 0, rest)));
}

void Tvx_kept_map::forget()
{
    f_timer.stop();
    f_is_pending = false;
    settle();
    if (f_file.isEmpty())
        return;
    remove_files(std::exchange(f_file, {}));
    f_lock.reset();
}

void Tvx_kept_map::keep_now()
{
    f_timer.stop();
    settle();
    if (!f_is_pending)
        return;
    write();
    f_timer.stop();
    settle();
}

bool Tvx_kept_map::begin(origin const &of, std::wstring &reason)
{
    if (f_lock)
        return true;
    if (vx_make_directories(f_folder.toStdWString())) {
        // A map may be nobody else's business.
        QFile::setPermissions(f_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        f_lock = lock_of(f_file);
    }
    // What it is a copy of comes first, so that no copy is there without.
    reason = save(beside(f_file, c_origin_suffix), (of.print + '\n' + of.map.toUtf8()).toStdString());
    if (!reason.empty())
        f_lock.reset();
    return f_lock != nullptr;
}

void Tvx_kept_map::write()
{
    if (f_file.isEmpty())
        f_file = QDir(f_folder).filePath(QUuid::createUuid().toString(QUuid::WithoutBraces) + c_map_suffix);
    QElapsedTimer cost;
    cost.start();
    origin of;
    // The disk may be slow, and a map that is just being opened is nothing to keep.
    std::string bytes = f_writer ? std::string() : f_make(f_file, of);
    if (bytes.empty())
        return f_timer.start(f_rest_ms);
    std::wstring reason;
    if (!begin(of, reason)) {
        tell(reason);
        return f_timer.start(f_longest_ms);
    }
    f_is_pending = false;
    f_writer.reset(QThread::create(
        [this, file = f_file, content = std::move(bytes)] { f_reason = save(file, content); }));
    connect(f_writer.get(), &QThread::finished, this, &Tvx_kept_map::finish);
    f_writer->start();
    f_cost_ms = cost.elapsed();
}

void Tvx_kept_map::finish()
{
    if (!f_writer || !f_writer->wait())
        return;
    f_writer.reset();
    tell(f_reason);
    if (f_reason.empty() || std::exchange(f_is_pending, true))
        return;
    f_since.start();
    f_timer.start(f_longest_ms);
}

void Tvx_kept_map::settle()
{
    if (f_writer)
        finish();
}

void Tvx_kept_map::tell(std::wstring const &reason)
{
    if (reason.empty())
        f_is_told = false;
    else if (!std::exchange(f_is_told, true))
        emit failed(QString::fromStdWString(reason));
}

std::optional<Tvx_found_map> Tvx_kept_map::find(QStringList const &passed) const
{
    QFileInfoList const files =
        QDir(f_folder).entryInfoList({"*" + c_map_suffix}, QDir::Files | QDir::NoSymLinks, QDir::Time);
    for (QFileInfo const &info : files) {
        Tvx_found_map found{info.filePath(), {}, {}, info.lastModified(), {}};
        if (found.file == f_file || passed.contains(found.file))
            continue;
        found.lock = lock_of(found.file);
        // Its process may just have saved it.
        if (!found.lock || !QFileInfo::exists(found.file))
            continue;
        vx::fault fault;
        QByteArray const origin = QByteArray::fromStdString(
            vx_file_read(beside(found.file, c_origin_suffix).toStdWString(), fault).value_or(std::string()));
        found.print = origin.left(origin.indexOf('\n'));
        found.map = QString::fromUtf8(origin.mid(origin.indexOf('\n') + 1));
        return found;
    }
    return std::nullopt;
}

void Tvx_kept_map::adopt(Tvx_found_map const &found)
{
    forget();
    f_file = found.file;
    f_lock = found.lock;
}

void Tvx_kept_map::erase(Tvx_found_map const &found)
{
    remove_files(found.file);
}
