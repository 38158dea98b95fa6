#include "host/layout_clipboard.h"

#include "layer_edit/layout/layout_ids.h"

#include "platform/layers/vx_scn_2d.h"
#include "platform/storage/vx_scn_2d_file.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QTemporaryDir>

namespace {
using scene_ptr = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;
using xml_ptr = vx::owned<Ivx_xml_data, &vx_xml_data_destroy>;

/// More is no element.
constexpr qint64 c_most_bytes = 64 << 20;

QString format()
{
    return QString::fromWCharArray(c_layout_lr2d_clipboard_type);
}
} // namespace

void vx_layout_clipboard_put(Ivx_layer const *element)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath("element_.sn");
    scene_ptr const scene(vx_scn_2d_create(L""));
    Tvx_layout_element_ptr copy(vx_lr2d_clone(element));
    if (!copy || !vx_scn_2d_insert(scene.get(), 0, copy.get()))
        return;
    static_cast<void>(copy.release());
    xml_ptr const xml(vx_xml_save_style_create());
    QFile file(path);
    if (!vx_xml_data_save_scn2d_w(xml.get(), path.toStdWString().c_str(), scene.get()) ||
        !file.open(QFile::ReadOnly))
        return;
    auto *const data = new QMimeData;
    data->setData(format(), file.readAll());
    QGuiApplication::clipboard()->setMimeData(data);
}

bool vx_layout_clipboard_has_any()
{
    QMimeData const *const data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat(format());
}

Tvx_layout_element_ptr vx_layout_clipboard_get()
{
    QMimeData const *const data = QGuiApplication::clipboard()->mimeData();
    QByteArray const bytes = data ? data->data(format()) : QByteArray();
    QTemporaryDir const folder;
    QFile file(folder.filePath("element_.sn"));
    if (bytes.isEmpty() || bytes.size() > c_most_bytes || !file.open(QFile::WriteOnly) ||
        file.write(bytes) != bytes.size())
        return {};
    file.close();
    scene_ptr const scene(vx_scn_2d_create(L""));
    xml_ptr const xml(vx_xml_save_style_create());
    if (!vx_xml_data_load_scn2d_w(xml.get(), file.fileName().toStdWString().c_str(), scene.get()))
        return {};
    Tvx_layout_element_ptr element(vx_scn_2d_extract(scene.get(), 0));
    return vx_layout_lr2d_is(element.get()) ? std::move(element) : Tvx_layout_element_ptr{};
}
