#include "host/library_dialog.h"

#include "host/captions.h"
#include "host/layer_info.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/storage/vx_style_lib_file.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/styles/vx_style_lib.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr int c_most_number = 999'999'999;
constexpr int c_edit_width = 280;
constexpr QSize c_sample_size(32, 20);
constexpr char const *c_separator = " / ";

struct style_of_prm
{
    char const *type = nullptr;
    void *style = nullptr;
};

style_of_prm style_in(void *prm)
{
    if (void *style = vx_stl_prm_get_pnt_style_ptr(prm, false))
        return {c_pnt_style, style};
    if (void *style = vx_stl_prm_get_pln_style_ptr(prm, false))
        return {c_pln_style, style};
    if (void *style = vx_stl_prm_get_pgn_style_ptr(prm, false))
        return {c_pgn_style, style};
    return {};
}

QString text_of(wchar_t const *text)
{
    return QString::fromWCharArray(text);
}

/// Adds the groups below an item, each with the captions that lead to it.
void add_groups(QComboBox &box, void *item, QStringList const &way)
{
    void *const items = vx_style_item_get_style_items_ptr(item);
    for (unsigned i = 0; i < vx_style_items_get_size(items); ++i) {
        void *const child = vx_style_items_get_style_item_ptr(items, i);
        if (vx_style_item_get_index(child) >= 0)
            continue;
        QStringList const further = way + QStringList(text_of(vx_style_item_get_caption_w(child)));
        box.addItem(further.join(c_separator), further);
        add_groups(box, child, further);
    }
}

/// A label whose access key leads to the field.
void add_row(QFormLayout &form, Tvx_map_caption caption, QWidget *field)
{
    field->setMinimumWidth(c_edit_width);
    form.addRow(vx_map_caption(caption), field);
}
} // namespace

bool Tvx_library_dialog::can_take(void *stl_prm)
{
    return style_in(stl_prm).style != nullptr;
}

Tvx_library_dialog::Tvx_library_dialog(void *stl_prm, QString const &caption, QWidget *parent)
    : QDialog(parent), f_prm(stl_prm), f_libs(vx_style_libs_create()), f_library(new QComboBox(this)),
      f_group(new QComboBox(this)), f_caption(new QLineEdit(caption, this)), f_number(new QSpinBox(this)),
      f_note(new QLabel(this)),
      f_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(QStringLiteral("library_dialog"));
    setWindowTitle(vx_map_caption(c_map_library_title));
    vx_xml_data_load_user_style_libs(f_libs);
    for (QComboBox *box : {f_library, f_group}) {
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
    }
    f_library->setObjectName(QStringLiteral("library"));
    f_group->setObjectName(QStringLiteral("group"));
    f_caption->setObjectName(QStringLiteral("caption"));
    f_number->setObjectName(QStringLiteral("number"));
    for (unsigned i = 0; i < vx_style_libs_get_size(f_libs); ++i)
        f_library->addItem(text_of(vx_style_lib_get_name_w(vx_style_libs_get_lib_ptr(f_libs, i))));
    if (f_library->count() == 0)
        f_library->setEditText(vx_map_caption(c_map_library_new));
    f_number->setRange(0, c_most_number);
    f_group->lineEdit()->setPlaceholderText(vx_map_caption(c_map_library_group_example));
    f_note->setWordWrap(true);

    auto *sample = new QLabel(this);
    sample->setPixmap(vx_style_symbol(stl_prm).pixmap(c_sample_size, devicePixelRatioF()));
    auto *form = new QFormLayout;
    form->addRow(vx_map_caption(c_map_library_style), sample);
    add_row(*form, c_map_library_library, f_library);
    add_row(*form, c_map_library_group, f_group);
    add_row(*form, c_map_library_caption, f_caption);
    add_row(*form, c_map_library_number, f_number);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(f_note);
    column->addWidget(f_buttons);
    f_buttons->button(QDialogButtonBox::Ok)->setText(vx_host_caption(c_cap_ok));
    f_buttons->button(QDialogButtonBox::Cancel)->setText(vx_host_caption(c_cap_cancel));

    connect(f_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(f_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(f_library, &QComboBox::editTextChanged, this, [this] { show_library(); });
    connect(f_caption, &QLineEdit::textChanged, this, [this] { update_controls(); });
    connect(f_number, &QSpinBox::valueChanged, this, [this] { update_controls(); });
    f_caption->setFocus();
    f_caption->selectAll();
    show_library();
}

Tvx_library_dialog::~Tvx_library_dialog()
{
    vx_style_libs_destroy(f_libs);
}

QString Tvx_library_dialog::chosen_name() const
{
    return f_library->currentText().trimmed();
}

QString Tvx_library_dialog::style_caption() const
{
    return f_caption->text().trimmed();
}

void *Tvx_library_dialog::library() const
{
    // Of two of one name the one that was chosen.
    int const chosen = f_library->currentIndex();
    int const place = chosen >= 0 && f_library->itemText(chosen) == chosen_name()
                          ? chosen
                          : f_library->findText(chosen_name(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    return place < 0 ? nullptr : vx_style_libs_get_lib_ptr(f_libs, static_cast<unsigned>(place));
}

QStringList Tvx_library_dialog::groups() const
{
    QString const text = f_group->currentText().trimmed();
    if (int const known = f_group->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive); known >= 0)
        return f_group->itemData(known).toStringList();
    QStringList way;
    for (QString const &part : text.split('/', Qt::SkipEmptyParts))
        if (QString const group = part.trimmed(); !group.isEmpty())
            way.append(group);
    return way;
}

void Tvx_library_dialog::show_library()
{
    QString const typed = f_group->currentText();
    f_group->clear();
    if (void *const lib = library())
        add_groups(*f_group, vx_style_lib_get_root_item_ptr(lib), {});
    f_group->setEditText(typed);
    f_number->setValue(vx_style_lib_draw_index(library()));
    update_controls();
}

void Tvx_library_dialog::update_controls()
{
    bool const taken = vx_style_lib_has_index(library(), f_number->value());
    bool const is_new = !library() && !chosen_name().isEmpty();
    f_note->setText(taken    ? vx_map_caption(c_map_library_number_taken)
                    : is_new ? vx_map_caption(c_map_library_begins).arg(chosen_name())
                             : QString());
    f_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(!taken && !chosen_name().isEmpty() && !style_caption().isEmpty());
}

void Tvx_library_dialog::accept()
{
    auto const [type, style] = style_in(f_prm);
    vx::owned<void, &vx_wstrings_destroy> const way(vx_wstrings_create());
    for (QString const &group : groups())
        vx_wstrings_add(way.get(), group.toStdWString().c_str());
    if (vx_xml_data_put_user_style(nullptr, vx_style_lib_get_file_w(library()),
                                   chosen_name().toStdWString().c_str(), type, style, f_number->value(),
                                   way.get(), style_caption().toStdWString().c_str()))
        QDialog::accept();
}
