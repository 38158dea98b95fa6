#include "host/record_model.h"

#include "host/captions.h"

#include "platform/winapi/collation.h"

#include <QElapsedTimer>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <deque>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>

namespace {
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();
} // namespace

Tvx_record_model::Tvx_record_model(Ivx_attr_data *data, QObject *parent)
    : QAbstractTableModel(parent), f_data(vx_attr_data_retain(data)), f_table(vx_attr_files_open(data, 1, 0))
{
    for (unsigned field = 0; field < vx_attr_files_get_np(f_table.get()); ++field) {
        int const type = vx_attr_files_get_field_type(f_table.get(), field);
        if (type != c_attr_unknown && type <= c_attr_bigint)
            f_fields.push_back(field);
    }
}

int Tvx_record_model::rowCount(QModelIndex const &parent) const
{
    return parent.isValid() ? 0 : int(vx_attr_files_get_no(f_table.get()));
}

int Tvx_record_model::columnCount(QModelIndex const &parent) const
{
    return parent.isValid() ? 0 : int(f_fields.size());
}

int Tvx_record_model::row_of(unsigned record) const
{
    if (record >= unsigned(rowCount()))
        return -1;
    return f_rows.empty() ? int(record) : int(f_rows[record]);
}

bool Tvx_record_model::is_number(unsigned field) const
{
    int const type = vx_attr_files_get_field_type(f_table.get(), field);
    return type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
}

QVariant Tvx_record_model::data(QModelIndex const &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
        return {};
    unsigned const field = f_fields[std::size_t(index.column())];
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter | (is_number(field) ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole)
        return {};
    bool has = false;
    wchar_t const *const text = vx_attr_files_peek_wstr(f_table.get(), field, record_of(index.row()), &has);
    return has ? QVariant(QString::fromWCharArray(text)) : QVariant();
}

QVariant Tvx_record_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole && section < rowCount() ? QVariant(record_of(section) + 1)
                                                               : QVariant();
    if (section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return QString::fromWCharArray(
            vx_attr_files_get_field_name_w(f_table.get(), f_fields[std::size_t(section)]));
    return role == Qt::ToolTipRole ? QVariant(vx_map_caption(c_map_hint_column)) : QVariant();
}

/// Asks from time to time whether to go on, and ends what is being done where not.
class Tvx_record_model::patience
{
public:
    struct is_over
    {
    };
    explicit patience(std::function<bool()> const &goes_on) : f_goes_on(goes_on) { f_since_asked.start(); }

    static constexpr int c_interval_ms = 20;

    void step()
    {
        if (++f_steps % c_steps == 0)
            ask();
    }
    void ask()
    {
        if (!f_goes_on || f_since_asked.elapsed() < c_interval_ms)
            return;
        if (!f_goes_on())
            throw is_over();
        f_since_asked.restart();
    }

private:
    static constexpr unsigned c_steps = 256;
    std::function<bool()> const &f_goes_on;
    QElapsedTimer f_since_asked;
    unsigned f_steps = 0;
};

namespace {
/// A key of an ordered text. Most differ in the beginning, which is compared as one number.
struct text_key
{
    std::uint64_t beginning;
    std::string_view bytes;
    unsigned number;

    friend bool operator<(text_key const &a, text_key const &b)
    {
        return a.beginning != b.beginning ? a.beginning < b.beginning : a.bytes < b.bytes;
    }
};

std::uint64_t beginning_of(std::string_view bytes)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof value; ++i)
        value = value << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    return value;
}

/// Bytes one behind the other in large pieces: a million allocations take as long to be given back as to be
/// made, and nobody is asked on the way.
class byte_store
{
public:
    std::string_view keep(std::string_view bytes)
    {
        if (f_pieces.empty() || f_pieces.back().capacity() - f_pieces.back().size() < bytes.size()) {
            f_pieces.emplace_back();
            f_pieces.back().reserve(std::max(bytes.size(), c_piece));
        }
        std::string &piece = f_pieces.back();
        std::size_t const at = piece.size();
        piece += bytes;
        return std::string_view(piece).substr(at);
    }

private:
    static constexpr std::size_t c_piece = 1 << 20;
    std::deque<std::string> f_pieces;
};
} // namespace

std::vector<double> Tvx_record_model::number_keys(unsigned field, patience &wait) const
{
    std::vector<double> keys(std::size_t(rowCount()), c_none);
    for (unsigned record = 0; record < keys.size(); ++record) {
        bool has = false;
        double const value = vx_attr_files_get_dbl(f_table.get(), field, record, &has);
        if (has)
            keys[record] = value;
        wait.step();
    }
    constexpr double c_exact = 9007199254740992.0; // past it only texts have all digits
    if (vx_attr_files_get_field_type(f_table.get(), field) == c_attr_bigint &&
        std::ranges::any_of(keys, [](double key) { return std::abs(key) >= c_exact; }))
        make_exact(keys, field, wait);
    return keys;
}

/// Puts in place of each whole number its place among the different ones.
void Tvx_record_model::make_exact(std::vector<double> &keys, unsigned field, patience &wait) const
{
    std::vector<std::int64_t> numbers(keys.size());
    for (unsigned record = 0; record < keys.size(); ++record) {
        auto const text = vx_attr_files_get_utf8(f_table.get(), field, record, nullptr);
        std::from_chars(text.data(), text.data() + text.size(), numbers[record]);
        wait.step();
    }
    std::vector<std::int64_t> sorted = numbers;
    std::ranges::sort(sorted, [&](std::int64_t a, std::int64_t b) {
        wait.step();
        return a < b;
    });
    for (std::size_t record = 0; record < keys.size(); ++record) {
        if (!std::isnan(keys[record]))
            keys[record] = double(std::ranges::lower_bound(sorted, numbers[record]) - sorted.begin());
        wait.step();
    }
}

/// The place of each cell's text among the different texts.
std::vector<double> Tvx_record_model::text_keys(unsigned field, patience &wait) const
{
    std::vector<double> keys(std::size_t(rowCount()), c_none);
    byte_store store;
    std::vector<text_key> texts;
    std::vector<int> place_of_number; // a text that comes again is ordered once
    std::vector<unsigned> text_of(keys.size());
    texts.reserve(keys.size()); // what is not used costs nothing, and moving does
    place_of_number.reserve(keys.size());
    for (unsigned record = 0; record < keys.size(); ++record) {
        wait.step();
        bool has = false;
        int const number = vx_attr_files_get_text_number(f_table.get(), field, record);
        auto const place = static_cast<std::size_t>(number);
        if (number >= 0 && place < place_of_number.size() && place_of_number[place] >= 0) {
            text_of[record] = unsigned(place_of_number[place]);
            keys[record] = 0;
            continue;
        }
        wchar_t const *const text = vx_attr_files_get_wstr(f_table.get(), field, record, &has);
        if (!has)
            continue;
        keys[record] = 0;
        text_of[record] = unsigned(texts.size());
        if (number >= 0) {
            place_of_number.resize(std::max(place_of_number.size(), place + 1), -1);
            place_of_number[place] = int(texts.size());
        }
        std::string_view const key = store.keep(vx_text_sort_key(text));
        texts.push_back({beginning_of(key), key, unsigned(texts.size())});
    }
    std::ranges::sort(texts, [&](text_key const &a, text_key const &b) {
        wait.step();
        return a < b;
    });
    // What people take for equal has one rank, so that it stays in the order of the file.
    std::vector<unsigned> rank(texts.size());
    for (std::size_t i = 0, current = 0; i < texts.size(); ++i) {
        if (i > 0 && texts[i - 1].bytes != texts[i].bytes)
            current = i;
        rank[texts[i].number] = unsigned(current);
        wait.step();
    }
    for (std::size_t record = 0; record < keys.size(); ++record) {
        if (!std::isnan(keys[record]))
            keys[record] = rank[text_of[record]];
        wait.step();
    }
    return keys;
}

bool Tvx_record_model::sort_by(int column, Qt::SortOrder order, std::function<bool()> const &goes_on)
{
    if (column >= columnCount())
        return true;
    std::vector<unsigned> records;
    std::vector<unsigned> rows;
    if (column >= 0) {
        patience wait(goes_on);
        try {
            unsigned const field = f_fields[std::size_t(column)];
            while (vx_attr_files_read_on(f_table.get(), field, patience::c_interval_ms))
                wait.ask();
            wait.ask();
            std::vector<double> const keys =
                is_number(field) ? number_keys(field, wait) : text_keys(field, wait);
            records.resize(keys.size());
            std::iota(records.begin(), records.end(), 0u);
            bool const up = order == Qt::AscendingOrder;
            std::ranges::stable_sort(records, [&](unsigned a, unsigned b) {
                wait.step();
                if (std::isnan(keys[a]) || std::isnan(keys[b]))
                    return !std::isnan(keys[a]) && std::isnan(keys[b]);
                return up ? keys[a] < keys[b] : keys[b] < keys[a];
            });
        } catch (patience::is_over const &) {
            return false;
        }
        rows.resize(records.size());
        for (std::size_t row = 0; row < records.size(); ++row)
            rows[records[row]] = unsigned(row);
    }
    beginResetModel();
    f_order = std::move(records);
    f_rows = std::move(rows);
    endResetModel();
    return true;
}
