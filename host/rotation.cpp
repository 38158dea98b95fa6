#include "host/rotation.h"

#include "captions/attr_dialogs.h"
#include "captions/style_manager.h"
#include "data/editor_source/data_source.h"
#include "host/captions.h"
#include "host/layer_info.h"
#include "style_manager/rotation/rotate_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_life.h"
#include "platform/styles/vx_style_keys.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>
#include <utility>

namespace {
constexpr QSize c_sample_size(32, 20);
constexpr int c_text_width = 300;

/// The manager that a layer's rotation belongs to; null for layers that have none.
void *rotated_mngr(Ivx_layer *layer)
{
    if (void *const points = vx_tos_2crd_lr2d_get_stl_mngr(layer))
        return points;
    return vx_lr2d_is_shp(layer) ? vx_shp_lr2d_get_stl_mngr_ptr(layer) : nullptr;
}

bool can_rotate(void *mngr)
{
    char const *const type = vx_stl_mngr_get_style_type(mngr);
    std::string_view const key = type ? type : "";
    return key == c_pnt_style || key == c_pln_style || key == c_pgn_style;
}

bool ask_rotation(void *mngr, Tvx_data_source const &data, int x, int y)
{
    return Tvx_rotate_form::dialog(x, y, mngr, data.on_data_open, data.on_data_close, data.on_data_get_np,
                                   data.on_data_get_no, data.on_data_get_prop, data.on_data_get_capt_prop,
                                   data.on_data_get_stat, data.on_data_get_str, data.on_data_get_val);
}

std::wstring field_of(void *mngr)
{
    std::wstring name;
    vx_stl_mngr_get_rotate_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
    return name;
}

/// What the settings of rotation hold, and nothing else: whoever shows the styles of the manager keeps
/// pointers to them.
void take_rotation(void *to, void *from)
{
    vx_stl_mngr_set_rotate_flag(to, vx_stl_mngr_get_rotate_flag(from));
    vx_stl_mngr_set_rotate_spot_flag(to, vx_stl_mngr_get_rotate_spot_flag(from));
    vx_stl_mngr_set_rotate_hatch_flag(to, vx_stl_mngr_get_rotate_hatch_flag(from));
    vx_stl_mngr_set_rotate_prop_name(to, vx::text::to_bytes(field_of(from)).c_str());
    vx_stl_mngr_set_rotate_start(to, vx_stl_mngr_get_rotate_start(from));
    vx_stl_mngr_set_rotate_dir(to, vx_stl_mngr_get_rotate_dir(from));
}

QString caption_of(int number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}

/// How the manager draws: its mode, and the field that the scale in force goes by.
QString drawn_by(void *mngr)
{
    std::wstring field;
    Tvx_std_wstring_adapter const receiver(field);
    int caption = c_stl_mode_simple;
    switch (vx_stl_mngr_get_mode(mngr)) {
    case c_stl_mngr_mode_value:
        caption = c_stl_mode_values;
        vx_stl_mngr_get_val_prop_name_w(mngr, receiver);
        break;
    case c_stl_mngr_mode_range:
        caption = c_stl_mode_ranges;
        vx_stl_mngr_get_rng_prop_name_w(mngr, receiver);
        break;
    case c_stl_mngr_mode_rule:
        caption = c_stl_mode_rules;
        break;
    default:
        break;
    }
    QString const mode = caption_of(caption);
    return field.empty() ? mode : mode + QStringLiteral(": ") + QString::fromStdWString(field);
}

bool run_advanced(void * /*user*/, HWND /*parent*/, void *mngr, wchar_t const *file_name)
{
    Tvx_advanced_dialog dialog(mngr, QString::fromWCharArray(file_name), QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
}
} // namespace

bool vx_layer_can_rotate(Ivx_layer *layer)
{
    return can_rotate(rotated_mngr(layer));
}

bool vx_layer_rotation_dialog(Ivx_layer *layer, int x, int y)
{
    void *const mngr = rotated_mngr(layer);
    if (!can_rotate(mngr))
        return false;
    Tvx_data_source data;
    data.initialize(vx_lr2d_get_lr_type(layer));
    std::wstring name;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(name));
    data.set_filename(name.c_str());
    data.set_data_ptr(vx_lr2d_get_data_ptr(layer));
    return ask_rotation(mngr, data, x, y);
}

Tvx_advanced_dialog::Tvx_advanced_dialog(void *mngr, QString file_name, QWidget *parent)
    : QDialog(parent), f_mngr(mngr), f_life(vx_stl_mngr_life(mngr)), f_copy(vx_stl_mngr_clone(mngr)),
      f_file_name(std::move(file_name)), f_rotation(new QLabel(this))
{
    setObjectName(QStringLiteral("advanced_dialog"));
    setWindowTitle(vx_map_caption(c_map_advanced_title));
    auto *const sample = new QLabel(this);
    sample->setPixmap(
        vx_style_symbol(vx_stl_mngr_get_simple_sp_ptr(f_copy)).pixmap(c_sample_size, devicePixelRatioF()));
    f_rotation->setTextFormat(Qt::PlainText);
    f_rotation->setWordWrap(true);
    f_rotation->setMinimumSize(c_text_width, 2 * f_rotation->fontMetrics().lineSpacing());
    f_rotation->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    f_rotation->setObjectName(QStringLiteral("rotation_text"));
    auto *const mode = new QLabel(drawn_by(f_copy), this);
    mode->setTextFormat(Qt::PlainText);
    auto *const button = new QPushButton(vx_map_caption(c_map_rotation), this);
    button->setObjectName(QStringLiteral("rotation"));
    button->setEnabled(can_rotate(f_copy));
    auto *const form = new QFormLayout;
    form->addRow(vx_map_caption(c_map_advanced_style), sample);
    form->addRow(vx_map_caption(c_map_advanced_drawn), mode);
    form->addRow(vx_map_caption(c_map_advanced_rotation), f_rotation);
    form->addRow(QString(), button);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(vx_host_caption(c_cap_ok));
    buttons->button(QDialogButtonBox::Cancel)->setText(vx_host_caption(c_cap_cancel));
    auto *const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(buttons);
    connect(button, &QPushButton::clicked, this, [this] { on_rotation(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    button->setAutoDefault(false);
    button->setFocus();
    show_rotation();
}

Tvx_advanced_dialog::~Tvx_advanced_dialog()
{
    vx_stl_mngr_destroy(f_copy);
}

void Tvx_advanced_dialog::show_rotation()
{
    bool const on = vx_stl_mngr_get_rotate_flag(f_copy) || vx_stl_mngr_get_rotate_spot_flag(f_copy) ||
                    vx_stl_mngr_get_rotate_hatch_flag(f_copy);
    std::wstring const field = field_of(f_copy);
    if (!on || field.empty())
        return f_rotation->setText(vx_map_caption(c_map_advanced_none));
    // Zero positions count from the right, counter-clockwise; the captions have them axis by axis.
    constexpr int c_line_of_start[] = {0, 2, 1, 3};
    QStringList const places = caption_of(c_rot_zero_places).split('\n');
    QStringList const directions = caption_of(c_rot_directions).split('\n');
    int const start = std::clamp(vx_stl_mngr_get_rotate_start(f_copy), 0, 3);
    f_rotation->setText(vx_map_caption(c_map_advanced_by)
                            .arg(QString::fromStdWString(field), places.value(c_line_of_start[start]),
                                 directions.value(vx_stl_mngr_get_rotate_dir(f_copy) != 0 ? 1 : 0)));
}

void Tvx_advanced_dialog::on_rotation()
{
    Tvx_data_source data;
    std::wstring const name = f_file_name.toStdWString();
    vx::owned<Ivx_attr_data, &vx_attr_data_release> table;
    if (vx_tos4_is_file_w(name.c_str())) {
        data.initialize(c_lr_key_tos_2crd);
        data.set_filename(name.c_str());
    } else if (!name.empty()) {
        data.initialize(c_lr_key_shp_pnt);
        table.reset(vx_attr_data_create(name.c_str()));
        data.set_data_ptr(vx_attr_data_safe_upcast(table.get()));
    }
    QPoint const at = findChild<QPushButton *>(QStringLiteral("rotation"))->mapToGlobal(QPoint());
    if (ask_rotation(f_copy, data, at.x(), at.y()))
        show_rotation();
}

void Tvx_advanced_dialog::accept()
{
    if (!f_life.expired())
        take_rotation(f_mngr, f_copy);
    QDialog::accept();
}

Tvx_advanced_dialog_in_force::Tvx_advanced_dialog_in_force()
{
    vx_dlg_table table = vx_dlg_set_table(nullptr);
    table.style_advanced = &run_advanced;
    vx_dlg_set_table(&table);
}

Tvx_advanced_dialog_in_force::~Tvx_advanced_dialog_in_force()
{
    vx_dlg_table table = vx_dlg_set_table(nullptr);
    table.style_advanced = nullptr;
    vx_dlg_set_table(&table);
}
