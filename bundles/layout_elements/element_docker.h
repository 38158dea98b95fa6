#pragma once

#include "extension/binding/docker.h"
#include "rows_page.h"

#include <memory>

namespace vx::layout_elements {
/// A kind of page, and the elements that it is for.
struct page_kind
{
    wchar_t const *name;
    int caption;
    char const *key; ///< type of the elements; null for all
    rows_page *(*make)(TComponent *owner);
};
/// In the order of their tabs: what an element has of its own, then what all have.
[[nodiscard]] std::vector<page_kind> const &page_kinds();

/// The tab of a page in one window of the editor.
class element_docker final : public vx::docker_impl
{
public:
    explicit element_docker(page_kind const &kind);
    element_docker(element_docker const &) = delete;
    element_docker &operator=(element_docker const &) = delete;
    ~element_docker();

    [[nodiscard]] wchar_t const *name() const { return f_kind.name; }
    /// The editor's working copy, or null.
    void set_layer(Ivx_layer *layer);

    void with_caption(vx::string_visitor visitor) override;
    bool visible() override { return f_layer != nullptr; }
    void reattach(vx::element_view view) override { f_view = view; }

private:
    TWinControl *make(TWinControl *parent);

    page_kind const &f_kind;
    Ivx_layer *f_layer = nullptr; ///< only one that the page is for
    vx::element_view f_view;
    rows_page *f_page = nullptr; ///< of its tab
    std::weak_ptr<void const> f_page_life;
};
} // namespace vx::layout_elements
