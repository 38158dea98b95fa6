#pragma once

#include <QObject>

#include <algorithm>
#include <utility>
#include <vector>

/// The objects that stand out on the map: records of one layer.
class Tvx_map_selection : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// -1 while nothing is selected.
    [[nodiscard]] int layer_id() const { return f_layer_id; }
    /// Ascending, each once.
    [[nodiscard]] std::vector<unsigned> const &records() const { return f_records; }
    [[nodiscard]] bool contains(unsigned long long record) const
    {
        return std::binary_search(f_records.begin(), f_records.end(), record);
    }
    void set(int layer_id, std::vector<unsigned> records)
    {
        std::sort(records.begin(), records.end());
        records.erase(std::unique(records.begin(), records.end()), records.end());
        if (records.empty())
            layer_id = -1;
        if (layer_id == f_layer_id && records == f_records)
            return;
        f_layer_id = layer_id;
        f_records = std::move(records);
        ++f_revision;
        emit changed();
    }
    /// Takes the record in, or out if it is in; records of another layer are given up.
    void toggle(int layer_id, unsigned record)
    {
        std::vector<unsigned> records = layer_id == f_layer_id ? f_records : std::vector<unsigned>();
        auto const found = std::find(records.begin(), records.end(), record);
        if (found == records.end())
            records.push_back(record);
        else
            records.erase(found);
        set(layer_id, std::move(records));
    }
    void clear() { set(-1, {}); }
    /// Number that changes with each change.
    [[nodiscard]] int revision() const { return f_revision; }

signals:
    void changed();

private:
    int f_layer_id = -1;
    int f_revision = 0;
    std::vector<unsigned> f_records;
};
