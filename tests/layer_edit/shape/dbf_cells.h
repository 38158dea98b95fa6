#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// The cells of a field of a dBase table, read without the library; blanks at the end of a cell are not its
/// own.
inline std::vector<std::string> dbf_cells(std::string const &file, std::string const &field)
{
    std::ifstream in(file, std::ios::binary);
    std::string const bytes{std::istreambuf_iterator<char>(in), {}};
    auto const number = [&](std::size_t at, int size) {
        std::size_t value = 0;
        for (int i = size - 1; i >= 0; --i)
            value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
        return value;
    };
    std::size_t const rows = number(4, 4), head = number(8, 2), width = number(10, 2);
    std::vector<std::string> cells;
    for (std::size_t entry = 32, offset = 1; bytes[entry] != '\r'; entry += 32) {
        std::size_t const length = number(entry + 16, 1);
        if (field == &bytes[entry])
            for (std::size_t row = 0; row < rows; ++row) {
                std::string const cell = bytes.substr(head + row * width + offset, length);
                cells.push_back(cell.substr(0, cell.find_last_not_of(' ') + 1));
            }
        offset += length;
    }
    return cells;
}
