#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <vector>

/// The styles of one group of a library's tree on a picture, as a catalogue shows them: rows of samples with
/// number and caption below. Samples have 4 pixels to a millimetre, each of them 2 pixels of the picture.
class Tvx_style_sheet
{
public:
    struct entry
    {
        void *style; ///< indexed style of a library
        QString caption;
    };
    /// `name` is that of its file, without suffix.
    Tvx_style_sheet(QString name, std::vector<entry> entries);

    [[nodiscard]] QString const &name() const { return f_name; }
    [[nodiscard]] std::size_t count() const { return f_entries.size(); }
    [[nodiscard]] entry const &at(std::size_t index) const { return f_entries[index]; }
    [[nodiscard]] QImage draw() const;
    /// The sample of an entry alone, with so many pixels for each of its own.
    [[nodiscard]] QImage draw_sample(std::size_t index, int pixel_scale) const;
    /// Where the picture has the sample of an entry, in its pixels.
    [[nodiscard]] QRect sample_place(std::size_t index) const;

private:
    [[nodiscard]] QRect cell(std::size_t index) const;

    QString f_name;
    std::vector<entry> f_entries;
    int f_columns;
    QSize f_sample;
};

/// A sheet for each item of a library's tree that has styles below itself, in the order of the tree, named
/// `<prefix>-<number of its first style>`. The library must outlive them.
[[nodiscard]] std::vector<Tvx_style_sheet> vx_style_sheets(void *lib, QString const &prefix);

/// Writes the sheets of the library files, or of all libraries of the process if there are none, into a
/// folder, as PNG files that begin with the name of the library's file. True if all went well; else a line on
/// the error output says what did not.
[[nodiscard]] bool vx_style_sheets_write(QStringList const &library_files, QString const &directory);
