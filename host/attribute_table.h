#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QPushButton;
class QTableView;
class Tvx_record_model;
struct Ivx_layer;

/// The attribute table of a layer, a panel beside the map. The rows that are selected in it stand out on
/// the map, and what a click on the map selects is selected in it.
class Tvx_attribute_table : public QWidget
{
    Q_OBJECT

public:
    /// The table of the layer's data as they are; nothing of the layer itself is kept.
    explicit Tvx_attribute_table(Ivx_layer *layer, QWidget *parent = nullptr);

    /// Does long work while the window lives: `work(goes_on)` is to ask often whether to go on. At once,
    /// where it takes less than anybody would notice.
    using wait_event =
        std::function<void(bool is_long, std::function<void(std::function<bool()> const &)> const &)>;
    /// How long work is waited for; without it the window rests meanwhile.
    void set_wait(wait_event wait) { f_wait = std::move(wait); }

    [[nodiscard]] bool is_open() const;
    /// Whether the layer has other data than the table shows.
    [[nodiscard]] bool is_of_other_data(Ivx_layer *layer) const;
    /// Selects these records and no others, and scrolls to the first. Nothing is reported.
    void select_records(std::vector<unsigned> const &records);
    [[nodiscard]] std::vector<unsigned> selected_records() const;
    [[nodiscard]] QTableView *view() const { return f_view; }
    [[nodiscard]] Tvx_record_model &model() const { return *f_model; }

signals:
    /// The user selected other records.
    void selection_changed();
    /// The user went to the record.
    void record_chosen(unsigned record);
    void zoom_wanted();
    /// Esc.
    void close_wanted();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void sort(int column, Qt::SortOrder order);
    void on_selection_changed();
    void update_state();
    void copy_rows();

    Tvx_record_model *f_model;
    QTableView *f_view;
    QLabel *f_state;
    QPushButton *f_zoom;
    QPushButton *f_clear;
    bool f_filling = false;
    wait_event f_wait;
    int f_sorted_column = -1;
    Qt::SortOrder f_sorted_order = Qt::AscendingOrder;
};
