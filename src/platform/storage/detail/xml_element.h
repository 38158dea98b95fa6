#pragma once

#include "platform/base/color.h"
#include "platform/basic/vx_fnt_type.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
struct xml_node_struct;
struct xml_attribute_struct;
} // namespace pugi

/// XML documents as the storage writes and reads them. Writing and reading have one shape, so that one
/// description of an object serves both: `field` for an attribute, `child` for an element, `finish` at its
/// end.
namespace vx::storage {
/// An element being written. Attributes and children stand in the order of the calls.
class xml_out
{
public:
    static constexpr bool c_reads = false;

    explicit xml_out(pugi::xml_node_struct *node) : f_node(node) {}
    void field(char const *name, bool value);
    void field(char const *name, int value);
    void field(char const *name, unsigned value);
    void field(char const *name, double value);
    void field(char const *name, Tvx_color value);
    void field(char const *name, std::wstring const &value);
    /// A text of plain characters.
    void field(char const *name, std::string const &value);
    void field(char const *name, std::vector<double> const &values);
    void field(char const *name, vx_fnt_type const &font);
    /// A text in further languages: the attribute `<name>_<language>` for each.
    void field(char const *name, std::map<std::string, std::wstring> const &texts);
    /// A number that may be infinite or none.
    void bound(char const *name, double value);
    [[nodiscard]] xml_out child(char const *name);
    void finish() const {}

private:
    void text(char const *name, char const *value);
    pugi::xml_node_struct *f_node;
};

/// Whether all was right so far; once false it stays so, and the first reason is kept.
struct reading
{
    bool good = true;
    char const *place = nullptr; ///< in the bytes of the file, where the fault is; null where none is known
    std::wstring reason = {};
};

/// An element being read. Attributes that are missing leave the value alone; a value that is none of its type
/// and, at `finish`, attributes and children that nobody asked for make the reading fail. An element that was
/// not there has no attributes and no children.
class xml_in
{
public:
    static constexpr bool c_reads = true;

    xml_in(reading &state, pugi::xml_node_struct *node);
    void field(char const *name, bool &value);
    void field(char const *name, int &value);
    void field(char const *name, unsigned &value);
    void field(char const *name, double &value);
    void field(char const *name, Tvx_color &value);
    void field(char const *name, std::wstring &value);
    void field(char const *name, std::string &value);
    void field(char const *name, std::vector<double> &values);
    void field(char const *name, vx_fnt_type &font);
    /// Adds what there is; a language is two or three small letters.
    void field(char const *name, std::map<std::string, std::wstring> &texts);
    void bound(char const *name, double &value);
    /// Whether the next child is an element of this name.
    [[nodiscard]] bool at(char const *name) const;
    /// The next child, which must have this name.
    [[nodiscard]] xml_in child(char const *name);
    void finish();
    /// What the element holds does not fit together.
    void fail();
    [[nodiscard]] bool good() const { return f_state->good; }

private:
    [[nodiscard]] char const *take(char const *name);
    template <class T>
    void number(char const *name, T &value);
    /// The value of the attribute is none of its type.
    void refuse(char const *name, char const *value);
    void fail(char const *place, std::wstring reason);

    reading *f_state;
    pugi::xml_node_struct *f_node;
    pugi::xml_attribute_struct *f_attribute; ///< where the next one is expected
    pugi::xml_node_struct *f_child;
    unsigned f_at = 0;         ///< number of that attribute
    std::uint64_t f_taken = 0; ///< a bit for each attribute that was asked for; those behind share the last
};

/// Folds what would be written into a number: what is equal has the same.
class hash_out
{
public:
    static constexpr bool c_reads = false;

    explicit hash_out(std::uint64_t &sum) : f_sum(&sum) {}
    void field(char const *, bool value) { add(value); }
    void field(char const *, int value) { add(static_cast<std::uint64_t>(value)); }
    void field(char const *, unsigned value) { add(value); }
    void field(char const *, double value);
    void field(char const *, Tvx_color value);
    void field(char const *, std::wstring const &value);
    void field(char const *, std::string const &value);
    void field(char const *, std::vector<double> const &values);
    void field(char const *, vx_fnt_type const &font);
    [[nodiscard]] hash_out child(char const *) const { return *this; }
    void finish() const { add(1); }

private:
    void add(std::uint64_t value) const;
    std::uint64_t *f_sum;
};

/// What is wrong with a file; false for nothing.
struct xml_fault
{
    enum kind_type
    {
        none,
        damaged,
        newer, ///< written by a later version
        other  ///< holds something else
    };
    kind_type kind = none;
    std::size_t line = 0; ///< from 1; 0 where none can be named
    std::wstring reason = {};

    explicit operator bool() const { return kind != none; }
};

/// Largest file that is read, and written.
inline constexpr std::size_t c_xml_size_limit = std::size_t{256} << 20;
/// The most elements and attributes together.
inline constexpr std::size_t c_xml_item_limit = 16'000'000;

class xml_file
{
public:
    xml_file();
    xml_file(xml_file const &) = delete;
    xml_file &operator=(xml_file const &) = delete;
    ~xml_file();

    /// Parses and checks all that is the same in every file: size, no document type, one root of this name
    /// and nothing else, a known version, the checksum where there is one. `newest` is the highest version
    /// that is known.
    [[nodiscard]] xml_fault parse(std::string bytes, char const *root_name, int newest = 1);
    [[nodiscard]] xml_fault parse(std::string_view bytes, char const *root_name, int newest = 1)
    {
        return parse(std::string(bytes), root_name, newest);
    }
    /// The root of a parsed file.
    [[nodiscard]] xml_in root(reading &state);
    /// How the reading of a parsed file went.
    [[nodiscard]] xml_fault outcome(reading const &state) const;

    /// Begins a file. One that people merge as text goes without a checksum.
    [[nodiscard]] xml_out make(char const *root_name, int version = 1, bool with_checksum = true);
    /// The file's bytes, with their checksum if it has one; empty when it is too large to be read again.
    [[nodiscard]] std::string bytes();

private:
    struct content;
    [[nodiscard]] xml_fault fault_at(char const *place, std::wstring reason) const;

    std::unique_ptr<content> f_content;
};
} // namespace vx::storage
