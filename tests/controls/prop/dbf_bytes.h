#pragma once

#include <string>
#include <vector>

/// Makes dBase files for tests.
namespace dbf_bytes {
struct field
{
    std::string name;
    char type;
    int width;
};

inline void put(std::string &bytes, unsigned value, int size)
{
    for (; size > 0; --size, value >>= 8)
        bytes.push_back(static_cast<char>(value & 255));
}

/// Each record is its fields' texts, cut or filled to their widths.
inline std::string make(std::vector<field> const &fields,
                        std::vector<std::vector<std::string>> const &records)
{
    unsigned width = 1;
    for (field const &f : fields)
        width += static_cast<unsigned>(f.width);
    std::string bytes("\x03\x7a\x01\x01", 4);
    put(bytes, static_cast<unsigned>(records.size()), 4);
    put(bytes, static_cast<unsigned>(32 * fields.size() + 33), 2);
    put(bytes, width, 2);
    bytes.append(20, '\0');
    for (field const &f : fields) {
        std::string name = f.name;
        name.resize(11);
        bytes += name + f.type + std::string(4, '\0') + static_cast<char>(f.width) + std::string(15, '\0');
    }
    bytes += '\r';
    for (auto const &record : records) {
        bytes += ' ';
        for (std::size_t i = 0; i < fields.size(); ++i) {
            std::string text = record[i];
            text.resize(static_cast<std::size_t>(fields[i].width), ' ');
            bytes += text;
        }
    }
    return bytes + '\x1a';
}
} // namespace dbf_bytes
