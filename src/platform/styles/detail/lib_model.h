#pragma once

#include "platform/styles/detail/style_model.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// Style libraries behind the opaque pointers. Everything keeps its address while it is in its list.
namespace vx::styles {
/// A text for people: in the language of its writer, and in others by their short names ("ru").
struct spoken_text
{
    std::wstring text;
    std::map<std::string, std::wstring> others;

    /// In the language of the captions, else as its writer has it.
    [[nodiscard]] std::wstring const &spoken() const;
};

/// How a style runs through the steps of a gradient: `of`, else its leading colour, is replaced wherever the
/// style has it by colours on the way through `colors`. Without these the way is made from the colour itself.
struct style_gradient
{
    std::optional<Tvx_color> of;
    std::vector<Tvx_color> colors; ///< none, or at least two

    /// Turns the style into a step; a position past the end is the last one. With less than two steps it
    /// stays as it is.
    void apply(any_style &style, unsigned position, unsigned count) const;
};

/// A style of a library under a number and a version. Several versions of one number may stand in a list.
struct idx_style
{
    explicit idx_style(style_kind k) : kind(k), style(make_default_style(k, variant_of_style::base)) {}

    style_kind kind; ///< pnt, pln or pgn
    int index = 0;
    int version = 0;
    std::unique_ptr<any_style> style; ///< never null
    style_gradient gradient;
    std::wstring source;  ///< empty: that of the library
    std::wstring licence; ///< the same
};

/// Styles of one kind, in the order in which the library shows them.
class style_list
{
public:
    explicit style_list(style_kind k) : kind(k) {}

    /// Puts a default style in front of the first one of a higher index; styles keep index and version.
    idx_style &insert(int index, int version);
    /// The place of the first style of the index, or of the index and version; nothing if there is none.
    [[nodiscard]] std::optional<unsigned> find(int index) const;
    [[nodiscard]] std::optional<unsigned> find(int index, int version) const;

    style_kind kind; ///< pnt, pln or pgn
    std::vector<std::unique_ptr<idx_style>> styles;

private:
    void look_up() const;

    mutable std::unordered_map<std::uint64_t, unsigned> f_places; ///< by index and version
    mutable std::unordered_map<int, unsigned> f_first;            ///< by index
    mutable std::size_t f_known = 0; ///< as many styles from the front stand in the two
};

/// A node of a library's tree. It names a style by number and version; a node that only groups others names
/// -1, -1.
struct style_item
{
    spoken_text caption;
    int index = -1;
    int version = -1;
    std::vector<std::unique_ptr<style_item>> items;

    mutable std::string narrow_caption; ///< what the 8-bit getter handed out last
};

struct style_lib
{
    spoken_text name;
    std::wstring source; ///< where its styles come from
    std::wstring licence;
    std::wstring file; ///< that it was read from
    style_item root;
    style_list pnt{style_kind::pnt};
    style_list pln{style_kind::pln};
    style_list pgn{style_kind::pgn};
};

struct style_libs
{
    std::vector<std::unique_ptr<style_lib>> libs;
    std::vector<std::wstring> faults; ///< what could not be read, a sentence for each
};
} // namespace vx::styles
