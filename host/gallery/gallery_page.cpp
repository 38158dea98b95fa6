#include "host/gallery/gallery_page.h"

#include <algorithm>

namespace {
std::vector<gallery_page const *> &pages()
{
    static std::vector<gallery_page const *> list;
    return list;
}
} // namespace

gallery_page::gallery_page(int order, wchar_t const *caption, void (*fill)(TWinControl *page))
    : f_order(order), f_caption(caption), f_fill(fill)
{
    auto const before = [](gallery_page const *a, gallery_page const *b) { return a->f_order < b->f_order; };
    pages().insert(std::upper_bound(pages().begin(), pages().end(), this, before), this);
}

std::vector<gallery_page const *> const &gallery_page::all()
{
    return pages();
}
