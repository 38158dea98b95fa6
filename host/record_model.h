#pragma once

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

/// The attribute table of a data set as rows and columns. Cells are read when they are seen, so that a table
/// of a million records opens at once; only who sorts by a column reads it.
class Tvx_record_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Holds the data object. A table that cannot be read has no rows and no columns.
    explicit Tvx_record_model(Ivx_attr_data *data, QObject *parent = nullptr);

    [[nodiscard]] bool is_open() const { return f_table != nullptr; }
    [[nodiscard]] Ivx_attr_data *source() const { return f_data.get(); }
    [[nodiscard]] unsigned record_of(int row) const
    {
        return f_order.empty() ? unsigned(row) : f_order[std::size_t(row)];
    }
    /// -1 for a record that there is not.
    [[nodiscard]] int row_of(unsigned record) const;

    [[nodiscard]] int rowCount(QModelIndex const &parent = {}) const override;
    [[nodiscard]] int columnCount(QModelIndex const &parent = {}) const override;
    [[nodiscard]] QVariant data(QModelIndex const &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// By numbers where the field holds numbers, else as people order texts; cells without a value come last,
    /// what is equal stays in the order of the file. Column -1 gives the order of the file back. The model is
    /// reset.
    void sort(int column, Qt::SortOrder order) override { sort_by(column, order, {}); }
    /// The same for a long table: `goes_on` is called some 50 times a second once the column has been read,
    /// and answers whether to go on. It may run events, but must leave the model alone. False, with
    /// everything as it was, when it said no.
    bool sort_by(int column, Qt::SortOrder order, std::function<bool()> const &goes_on);

private:
    class patience;

    [[nodiscard]] bool is_number(unsigned field) const;
    [[nodiscard]] std::vector<double> number_keys(unsigned field, patience &wait) const;
    void make_exact(std::vector<double> &keys, unsigned field, patience &wait) const;
    [[nodiscard]] std::vector<double> text_keys(unsigned field, patience &wait) const;

    vx::owned<Ivx_attr_data, &vx_attr_data_release> f_data;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> f_table;
    std::vector<unsigned> f_fields; ///< those that have cells to show
    std::vector<unsigned> f_order;  ///< records by rows; empty for the order of the file
    std::vector<unsigned> f_rows;   ///< rows by records, likewise
};
