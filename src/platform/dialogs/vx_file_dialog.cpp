#include "platform/dialogs/vx_file_dialog.h"

#include "captions/dialogs.h"

#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtCore/QDate>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtCore/QStringLiteral>
#include <QtCore/QTime>
#include <QtGui/QFileSystemModel>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QDialog>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionViewItem>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTreeView>

#include <algorithm>
#include <string>
#include <vector>

namespace {
QString caption(int number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}

/// A pair of the filter.
struct file_kind
{
    QString caption;
    QStringList masks;

    /// As the dialog has it. Brackets in the caption would be taken for masks.
    [[nodiscard]] QString text() const
    {
        QString plain = caption;
        if (auto const bracket = plain.lastIndexOf(u'('); bracket > 0)
            plain.truncate(bracket);
        return QStringLiteral("%1 (%2)").arg(plain.trimmed(), masks.join(u' '));
    }
};

std::vector<file_kind> kinds_of(UnicodeString const &filter)
{
    std::vector<file_kind> kinds;
    QStringList const parts = vx_qt_string(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        file_kind kind{parts[i], {}};
        for (auto const &mask : parts[i + 1].split(u';', Qt::SkipEmptyParts)) {
            QString const trimmed = mask.trimmed();
            kind.masks.push_back(trimmed == u"*.*" ? QStringLiteral("*") : trimmed);
        }
        // Every pair stays, since the pairs are known by their numbers.
        if (kind.masks.isEmpty())
            kind.masks.push_back(QStringLiteral("*"));
        kinds.push_back(kind);
    }
    if (kinds.empty())
        kinds.push_back({caption(c_dlg_all_files), {QStringLiteral("*")}});
    return kinds;
}

UnicodeString completed(Tvx_file_dialog_prm const &prm, int filter_index, QString const &chosen)
{
    UnicodeString name = vx_unicode_string(chosen);
    if (prm.on_complete_name)
        prm.on_complete_name(filter_index, name);
    return name;
}

/// False when the user does not want the file of this name to be replaced.
bool may_take(Tvx_file_dialog_prm const &prm, UnicodeString const &name)
{
    QFileInfo const file(vx_qt_string(name));
    return !prm.overwrite_prompt || !file.exists() ||
           vx_yesno(caption(c_dlg_replace).arg(file.fileName()).toStdWString().c_str());
}

/// Dates as the language of the captions writes them, whatever the system speaks.
QString date_text(QDateTime const &date)
{
    return QLocale(QString::fromUtf8(vx_options_get_language())).toString(date, QLocale::ShortFormat);
}

class date_delegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, QModelIndex const &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        auto const path = index.data(QFileSystemModel::FilePathRole).toString();
        option->text = date_text(QFileInfo(path).lastModified());
    }
};

class file_dialog final : public QFileDialog
{
public:
    file_dialog(QWidget *parent, Tvx_file_dialog_prm const &prm)
        : QFileDialog(parent), f_prm(prm), f_kinds(kinds_of(prm.filter))
    {
        setAcceptMode(prm.save ? AcceptSave : AcceptOpen);
        setFileMode(prm.save        ? AnyFile
                    : prm.directory ? Directory
                    : prm.several   ? ExistingFiles
                                    : ExistingFile);
        setOption(ShowDirsOnly, asks_directory());
        setOption(DontUseCustomDirectoryIcons);
        setWindowTitle(prm.title.IsEmpty() ? caption(prm.save ? c_dlg_save : c_dlg_open)
                                           : vx_qt_string(prm.title));
        setLabelText(Accept, prm.accept_caption.IsEmpty()
                                 ? caption(prm.save ? c_dlg_save_button : c_dlg_open_button)
                                 : vx_qt_string(prm.accept_caption));
        setLabelText(Reject, caption(c_dlg_cancel));
        QStringList filters;
        for (auto const &kind : f_kinds)
            filters.push_back(kind.text());
        setNameFilters(filters);
        int const index = prm.filter_index;
        if (index >= 1 && index <= static_cast<int>(f_kinds.size()))
            selectNameFilter(filters[index - 1]);
        if (prm.save)
            setDefaultSuffix(vx_qt_string(prm.default_ext));
        // The name box is there when the window is ours, not the platform's.
        f_name_box = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (!prm.overwrite_prompt || f_name_box)
            setOption(DontConfirmOverwrite); // our own window asks in the user's language
        go_to_start();
        if (f_name_box)
            make_room();
        connect(this, &QFileDialog::filterSelected, this, &file_dialog::filter_selected);
    }

    [[nodiscard]] int filter_index() const
    {
        auto const index = nameFilters().indexOf(selectedNameFilter());
        return index < 0 ? 1 : static_cast<int>(index) + 1;
    }
    [[nodiscard]] QString chosen() const { return selectedFiles().value(0); }

private:
    [[nodiscard]] bool asks_directory() const { return f_prm.directory && !f_prm.save; }
    void go_to_start()
    {
        QFileInfo const start(vx_qt_string(f_prm.file_name));
        if (asks_directory() && start.isDir()) {
            setDirectory(start.absoluteFilePath());
            return;
        }
        if (f_prm.file_name.IsEmpty()) {
            if (!fs_last_directory.isEmpty())
                setDirectory(fs_last_directory);
            return;
        }
        bool const has_directory = vx_qt_string(f_prm.file_name).contains(u'/');
        if (has_directory && start.dir().exists())
            setDirectory(start.absolutePath());
        else if (!fs_last_directory.isEmpty())
            setDirectory(fs_last_directory);
        selectFile(start.fileName());
    }
    /// Enough for the places, and for times that are not cut.
    void make_room()
    {
        resize(c_width, c_height);
        if (auto *splitter = findChild<QSplitter *>(QStringLiteral("splitter")))
            splitter->setSizes({c_places_width, c_width - c_places_width});
        if (auto *const files = findChild<QTreeView *>(QStringLiteral("treeView")))
            files->setItemDelegateForColumn(c_date_column, new date_delegate(files));
        fit_columns();
        // The list comes when the folder has been read.
        if (auto *model = findChild<QFileSystemModel *>())
            connect(model, &QFileSystemModel::directoryLoaded, this, &file_dialog::fit_columns,
                    Qt::QueuedConnection);
    }
    /// Sizes, types and dates are not cut; the names have the rest.
    void fit_columns()
    {
        auto *const files = findChild<QTreeView *>(QStringLiteral("treeView"));
        if (!files)
            return;
        int rest = files->maximumViewportSize().width() -
                   files->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, files);
        for (int const column : {c_size_column, c_type_column, c_date_column}) {
            files->resizeColumnToContents(column);
            if (column == c_date_column)
                files->header()->resizeSection(
                    column, std::max(files->columnWidth(column), date_width(files->fontMetrics())));
            rest -= files->columnWidth(column);
        }
        files->header()->resizeSection(c_name_column, std::max(rest, c_least_name_width));
    }
    /// Of a long date in the form in which the list shows them, with its margins.
    static int date_width(QFontMetrics const &metrics)
    {
        QDateTime const date(QDate(2020, 12, 28), QTime(22, 58, 58));
        return metrics.horizontalAdvance(date_text(date)) + metrics.averageCharWidth() * 3;
    }
    void filter_selected()
    {
        if (!f_prm.on_filter_changed)
            return;
        UnicodeString const former =
            vx_unicode_string(f_name_box ? f_name_box->text() : QFileInfo(chosen()).fileName());
        UnicodeString name = former;
        f_prm.on_filter_changed(filter_index(), name);
        if (name == former)
            return;
        if (f_name_box)
            f_name_box->setText(vx_qt_string(name));
        else
            selectFile(vx_qt_string(name));
    }
    /// In our own window: everything that there is to say about the name, before the window closes.
    void accept() override
    {
        QStringList const names = selectedFiles();
        bool const enters = QFileInfo(chosen()).isDir();
        if (f_name_box && !enters &&
            !(f_prm.save ? complete_name()
                         : std::ranges::all_of(names, [this](auto const &name) { return find_file(name); })))
            return;
        QFileDialog::accept();
    }
    bool complete_name()
    {
        UnicodeString const name = completed(f_prm, filter_index(), chosen());
        if (!(name == vx_unicode_string(chosen())))
            f_name_box->setText(vx_qt_string(name));
        return may_take(f_prm, name);
    }
    [[nodiscard]] bool find_file(QString const &name) const
    {
        QFileInfo const file(name);
        if (asks_directory() ? file.isDir() : file.exists())
            return true;
        vx_show_wwarning(caption(asks_directory() ? c_dlg_no_folder : c_dlg_no_file)
                             .arg(file.fileName())
                             .toStdWString()
                             .c_str());
        return false;
    }
    void done(int result) override
    {
        if (result == QDialog::Accepted)
            fs_last_directory = asks_directory() ? chosen() : QFileInfo(chosen()).absolutePath();
        QFileDialog::done(result);
    }

    static constexpr int c_width = 800;
    static constexpr int c_height = 480;
    static constexpr int c_places_width = 140;
    static constexpr int c_least_name_width = 160;
    static constexpr int c_name_column = 0;
    static constexpr int c_size_column = 1;
    static constexpr int c_type_column = 2;
    static constexpr int c_date_column = 3;
    static QString fs_last_directory;

    Tvx_file_dialog_prm const &f_prm;
    std::vector<file_kind> f_kinds;
    QLineEdit *f_name_box = nullptr;
};
QString file_dialog::fs_last_directory;

/// The dialog of the host, or our own, which has asked about the completed name already.
bool ask(HWND parent, int x, int y, Tvx_file_dialog_prm *prm)
{
    auto *owner = vx::dialogs::owner_window(parent);
    prm->file_names.clear();
    if (auto const &table = vx::dialogs::table(); table.file)
        return table.file(table.user, owner, x, y, prm);
    // It goes with its owner if that ends meanwhile.
    QPointer<file_dialog> const dialog(new file_dialog(vx_qt_widget(owner), *prm));
    if (x != 0 || y != 0)
        dialog->move(vx_qt_point(vx::dialogs::place_at({x, y}, {dialog->width(), dialog->height()})));
    bool const accepted = dialog->exec() == QDialog::Accepted && dialog && !dialog->chosen().isEmpty();
    if (accepted) {
        prm->filter_index = dialog->filter_index();
        prm->file_name = vx_unicode_string(dialog->chosen());
        for (auto const &name : dialog->selectedFiles())
            prm->file_names.push_back(vx_unicode_string(name));
    }
    delete dialog;
    return accepted;
}

/// A window of the platform's or the host's completes no name: one that it did not ask about is asked about
/// here, and after a "no" the question for a name comes again.
bool run(HWND parent, int x, int y, Tvx_file_dialog_prm *prm)
{
    Tvx_file_dialog_prm answer = *prm;
    while (ask(parent, x, y, &answer)) {
        UnicodeString const name =
            answer.save ? completed(answer, answer.filter_index, vx_qt_string(answer.file_name))
                        : answer.file_name;
        if (!(name == answer.file_name) && !may_take(answer, name))
            continue;
        prm->filter_index = answer.filter_index;
        prm->file_name = name;
        // A host that knows of one name only has chosen that.
        prm->file_names = prm->several && !answer.file_names.empty() ? answer.file_names : std::vector{name};
        return true;
    }
    return false;
}

struct ending_completer
{
    std::wstring ending;

    void complete(int, UnicodeString &name)
    {
        if (!name.str().ends_with(ending))
            name += ending;
    }
};

/// What the names of a suffix end in.
std::wstring ending_of(wchar_t const *suffix)
{
    std::wstring ending = suffix ? suffix : L"";
    if (!ending.empty() && ending.find(L'.') == std::wstring::npos)
        ending.insert(0, 1, L'.');
    return ending;
}

UnicodeString ask_for_suffix(HWND parent, int x, int y, wchar_t const *suffix, wchar_t const *title,
                             wchar_t const *file_name, bool save)
{
    ending_completer completer{ending_of(suffix)};
    auto const &ending = completer.ending;
    Tvx_file_dialog_prm prm;
    prm.save = save;
    prm.title = title ? title : L"";
    prm.file_name = file_name ? file_name : L"";
    if (!ending.empty()) {
        QString const files = caption(c_dlg_files_of).arg(QString::fromStdWString(ending));
        prm.filter = files.toStdWString() + L"|*" + ending;
        if (!save)
            prm.filter += L"|" + UnicodeString(vx_res_get_wstr(c_dlg_all_files)) + L"|*";
    }
    prm.on_complete_name = make_closure<&ending_completer::complete>(&completer);
    return run(parent, x, y, &prm) ? prm.file_name : UnicodeString();
}
} // namespace

bool vx_file_dialog(HWND parent, int x, int y, Tvx_file_dialog_prm *prm)
{
    return prm && run(parent, x, y, prm);
}

UnicodeString vx_open_file_dialog(HWND parent, int x, int y, wchar_t const *suffix, wchar_t const *title,
                                  wchar_t const *file_name)
{
    return ask_for_suffix(parent, x, y, suffix, title, file_name, false);
}

UnicodeString vx_save_file_dialog(HWND parent, int x, int y, wchar_t const *suffix, wchar_t const *title,
                                  wchar_t const *file_name)
{
    return ask_for_suffix(parent, x, y, suffix, title, file_name, true);
}
