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

QString format_of_one()
{
    return QString::fromWCharArray(c_layout_lr2d_clipboard_type);
}

QString format_of_several()
{
    return QString::fromWCharArray(c_layout_lr2d_clipboard_group_type);
}
} // namespace

void vx_layout_clipboard_put(std::vector<Ivx_layer const *> const &elements)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath("element_.sn");
    scene_ptr const scene(vx_scn_2d_create(L""));
    for (Ivx_layer const *const element : elements) {
        Tvx_layout_element_ptr copy(vx_lr2d_clone(element));
        if (copy && vx_scn_2d_insert(scene.get(), vx_scn_2d_get_count(scene.get()), copy.get()))
            static_cast<void>(copy.release());
    }
    int const count = vx_scn_2d_get_count(scene.get());
    if (count == 0)
        return;
    xml_ptr const xml(vx_xml_save_style_create());
    QFile file(path);
    if (!vx_xml_data_save_scn2d_w(xml.get(), path.toStdWString().c_str(), scene.get()) ||
        !file.open(QFile::ReadOnly))
        return;
    auto *const data = new QMimeData;
    data->setData(count == 1 ? format_of_one() : format_of_several(), file.readAll());
    QGuiApplication::clipboard()->setMimeData(data);
}

bool vx_layout_clipboard_has_any()
{
    QMimeData const *const data = QGuiApplication::clipboard()->mimeData();
    return data && (data->hasFormat(format_of_one()) || data->hasFormat(format_of_several()));
}

std::vector<Tvx_layout_element_ptr> vx_layout_clipboard_get()
{
    QMimeData const *const data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return {};
    QByteArray const bytes =
        data->data(data->hasFormat(format_of_several()) ? format_of_several() : format_of_one());
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
    std::vector<Tvx_layout_element_ptr> elements;
    while (vx_scn_2d_get_count(scene.get()) > 0) {
        Tvx_layout_element_ptr element(vx_scn_2d_extract(scene.get(), 0));
        if (vx_layout_lr2d_is(element.get()))
            elements.push_back(std::move(element));
    }
    return elements;
}
