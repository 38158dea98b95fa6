#pragma once

#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/toolkit/core/object.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

/// What the benchmarks of the builders' dialogs share: a table that answers their events, and the same
/// widgets put together in plain Qt.
namespace vx_bench {
using owned_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;

/// An open table, of which no column has been read.
struct table
{
    explicit table(std::wstring const &source)
        : data(vx_attr_data_create(source.c_str())), files(vx_attr_files_open(data.get(), 1, 0))
    {
        if (!files)
            std::abort();
    }
    owned_data data;
    owned_table files;

    // ---- the pull events, as the page of a layer answers them
    bool open(TObject *) { return true; }
    void close(TObject *) {}
    unsigned np(TObject *) { return vx_attr_files_get_np(files.get()); }
    unsigned no(TObject *) { return vx_attr_files_get_no(files.get()); }
    char const *prop(TObject *, unsigned i, bool &usable, bool &numeric)
    {
        int const type = vx_attr_files_get_field_type(files.get(), i);
        usable = true;
        numeric = type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
        return vx_attr_files_get_field_name(files.get(), i);
    }
    char const *str(TObject *, unsigned i, unsigned object, bool &defined)
    {
        return vx_attr_files_get_str(files.get(), i, object, &defined);
    }
    double val(TObject *, unsigned i, unsigned object, bool &defined)
    {
        return vx_attr_files_get_dbl(files.get(), i, object, &defined);
    }
};

/// What runs the window's loop ends it once the window has been painted.
inline void close_when_shown()
{
    QTimer::singleShot(0, [] {
        QApplication::processEvents();
        QApplication::activeModalWidget()->close();
    });
}

template <class Control>
Control *add_row(QVBoxLayout *column, char const *caption)
{
    auto *const row = new QHBoxLayout;
    row->addWidget(new QLabel(QString::fromUtf8(caption)));
    auto *const control = new Control;
    control->setFixedWidth(120);
    row->addWidget(control);
    column->addLayout(row);
    return control;
}

inline QVBoxLayout *add_group(QBoxLayout *layout, char const *caption)
{
    auto *const group = new QGroupBox(QString::fromUtf8(caption));
    layout->addWidget(group);
    return new QVBoxLayout(group);
}
} // namespace vx_bench
