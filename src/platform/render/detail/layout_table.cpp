#include "captions/layout_drawing.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/render/detail/layout_text.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QRectF>
#include <QtGui/QPainter>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace vx::render {
namespace {
constexpr double c_line_mm = 0.15;
constexpr double c_most_column_mm = 60;
constexpr std::size_t c_most_columns = 64;
constexpr std::size_t c_most_characters = 200;

struct table_column
{
    std::vector<std::wstring> cells; ///< the first is the name of the field
    double width = 0;
    bool is_number = false;
};

/// The part of a data set that a table shows.
struct table_content
{
    text_look look;
    text_look head;
    double padding = 0;
    double row_height = 0;
    std::vector<table_column> columns;
    bool is_whole = true; ///< all fields that were asked for are there
};

bool is_numeric(int type)
{
    return type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
}

std::wstring cell_text(wchar_t const *text)
{
    std::wstring cell = std::wstring(text).substr(0, c_most_characters);
    std::ranges::replace_if(
        cell, [](wchar_t c) { return c < L' '; }, L' ');
    return cell;
}

/// What fits in a room, and a column more; nothing when the data cannot be read.
std::optional<table_content> content_of(Ivx_layer *table, Tvx_pnt_d2 room)
{
    std::wstring const source = element_file(table);
    if (source.empty())
        return {};
    vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(vx_attr_data_create(source.c_str()));
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const files(vx_attr_files_open(data.get(), 1, 0));
    if (!files)
        return {};
    Tvx_layout_table const what = vx_layout_table_lr2d_get(table);
    table_content content;
    content.look = content.head = look_of(vx_layout_lr2d_get_writing(table));
    content.head.font.bold = true;
    content.padding = content.look.size * 0.35;
    content.row_height = line_height(content.look) + content.padding;
    std::vector<unsigned> fields;
    for (std::wstring const &name : what.fields) {
        int const field = vx_attr_files_get_field_index_w(files.get(), name.c_str());
        if (field < 0)
            content.is_whole = false;
        else
            fields.push_back(static_cast<unsigned>(field));
    }
    for (unsigned i = 0; what.fields.empty() && i < vx_attr_files_get_np(files.get()); ++i)
        fields.push_back(i);
    if (fields.size() > c_most_columns)
        fields.resize(c_most_columns);
    double const most_rows = std::min<double>(std::max(what.rows, 0), room.y / content.row_height);
    unsigned const records = std::min(vx_attr_files_get_no(files.get()), static_cast<unsigned>(most_rows));
    double width = 0;
    for (unsigned const field : fields) {
        if (width > room.x)
            break;
        table_column &column = content.columns.emplace_back();
        column.is_number = is_numeric(vx_attr_files_get_field_type(files.get(), field));
        column.cells.push_back(cell_text(vx_attr_files_get_field_name_w(files.get(), field)));
        column.width = text_width(column.cells.front(), content.head);
        for (unsigned record = 0; record < records; ++record) {
            column.cells.push_back(cell_text(vx_attr_files_peek_wstr(files.get(), field, record, nullptr)));
            column.width = std::max(column.width, text_width(column.cells.back(), content.look));
        }
        column.width = std::min(column.width + 2 * content.padding, c_most_column_mm);
        width += column.width;
    }
    return content;
}
} // namespace

void draw_layout_table(layout_canvas &canvas, Ivx_layer *table)
{
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(table);
    auto const content = content_of(table, {box.width(), box.height()});
    if (!content) {
        canvas.fail();
        return canvas.draw_missing(box, missing_text(c_draw_no_table, element_file(table)), false);
    }
    if (!content->is_whole)
        canvas.fail();
    // Columns and rows that fit; the first column is cut to the element where not even that one does.
    std::vector<double> edges{box.min_x};
    for (table_column const &column : content->columns) {
        if (edges.size() > 1 && edges.back() + column.width > box.max_x)
            break;
        edges.push_back(std::min(edges.back() + column.width, box.max_x));
    }
    std::size_t const columns = edges.size() - 1;
    if (columns == 0)
        return;
    constexpr double c_slack = 1e-6;
    auto const room = static_cast<std::size_t>(box.height() / content->row_height + c_slack);
    std::size_t const rows = std::min(content->columns.front().cells.size(), room);
    if (rows == 0)
        return;
    double const bottom = box.min_y + static_cast<double>(rows) * content->row_height;
    {
        in_millimetres const lengths(canvas);
        QPainter &p = *vx_qt_painter(canvas.target().painter);
        Tvx_color const c = content->look.color;
        QColor const ink(c.r, c.g, c.b, c.a);
        auto const line = [&](double x, double y, double width, double height) {
            p.fillRect(QRectF(x - c_line_mm / 2, y - c_line_mm / 2, width + c_line_mm, height + c_line_mm),
                       ink);
        };
        for (std::size_t row = 0; row <= rows; ++row)
            line(box.min_x, box.min_y + static_cast<double>(row) * content->row_height,
                 edges.back() - box.min_x, 0);
        for (double const x : edges)
            line(x, box.min_y, 0, bottom - box.min_y);
    }
    for (std::size_t i = 0; i < columns; ++i) {
        table_column const &column = content->columns[i];
        double const width = edges[i + 1] - edges[i] - 2 * content->padding;
        for (std::size_t row = 0; row < rows; ++row) {
            if (canvas.is_cancelled())
                return;
            text_look const &look = row == 0 ? content->head : content->look;
            std::wstring const text = elided(column.cells[row], look, width + c_slack);
            double const left = column.is_number ? edges[i + 1] - content->padding - text_width(text, look)
                                                 : edges[i] + content->padding;
            double const top = box.min_y + static_cast<double>(row) * content->row_height;
            write_line(canvas, {left, top + content->padding / 2 + text_ascent(look)}, text, look);
        }
    }
}

Tvx_pnt_d2 layout_table_size(Ivx_layer *table)
{
    Tvx_pnt_d2 size;
    constexpr double c_endless_mm = 1e6;
    if (auto const content = content_of(table, {c_endless_mm, c_endless_mm})) {
        for (table_column const &column : content->columns)
            size.x += column.width;
        if (!content->columns.empty())
            size.y = content->row_height * static_cast<double>(content->columns.front().cells.size());
    }
    return size;
}
} // namespace vx::render
