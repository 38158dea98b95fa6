#pragma once

#include <vector>

/// A modal dialog of the gallery, opened by a button of its own. Each object with static storage in a file of
/// this folder adds one.
class gallery_dialog
{
public:
    /// `open` runs the dialog with values to look at. Caption: a literal, also the name of its picture.
    gallery_dialog(int order, wchar_t const *caption, void (*open)());
    gallery_dialog(gallery_dialog const &) = delete;
    gallery_dialog &operator=(gallery_dialog const &) = delete;

    [[nodiscard]] wchar_t const *caption() const { return f_caption; }
    void open() const { f_open(); }

    /// In their order.
    [[nodiscard]] static std::vector<gallery_dialog const *> const &all();

private:
    int f_order;
    wchar_t const *f_caption;
    void (*f_open)();
};
