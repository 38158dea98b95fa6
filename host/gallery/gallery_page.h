#pragma once

#include <vector>

class TWinControl;

/// A page of the gallery. Each object with static storage in a file of this folder adds one.
class gallery_page
{
public:
    /// `fill` puts the controls on the page, which owns them; it runs for each gallery form. Pages stand by
    /// `order`, after those of the toolkit. Caption: a literal, also the name of the page's picture.
    gallery_page(int order, wchar_t const *caption, void (*fill)(TWinControl *page));
    gallery_page(gallery_page const &) = delete;
    gallery_page &operator=(gallery_page const &) = delete;

    [[nodiscard]] wchar_t const *caption() const { return f_caption; }
    void fill(TWinControl *page) const { f_fill(page); }

    /// In their order.
    [[nodiscard]] static std::vector<gallery_page const *> const &all();

private:
    int f_order;
    wchar_t const *f_caption;
    void (*f_fill)(TWinControl *page);
};
