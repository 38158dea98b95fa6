#pragma once

#include "style_manager/api/style_events.h"

#include "platform/toolkit/core/types.h"

#include <list>
#include <memory>
#include <unordered_map>

class TBitmap;

/// The examples of styles that a grid has shown last. An example is kept with a copy of what it shows, so
/// that a changed style never shows its old one.
class Tvx_style_samples
{
public:
    Tvx_style_samples();
    ~Tvx_style_samples();
    Tvx_style_samples(Tvx_style_samples const &) = delete;
    Tvx_style_samples &operator=(Tvx_style_samples const &) = delete;

    /// The example in that size of logical pixels, with `scale` by `scale` of its own in each, on a ground of
    /// `back`, painted by the event only where it is not at hand. Lives until the next call.
    [[nodiscard]] TBitmap *get(TObject *sender, Tvx_draw_style_event const &draw, void *stl_prm, bool sel,
                               TSize size, int scale, TColor back);
    void clear();

private:
    struct sample;
    /// What tells examples apart besides the content of the style.
    struct key
    {
        void *stl_prm;
        bool sel;
        TColor back;
        friend bool operator==(key const &, key const &) = default;
    };
    struct key_hash
    {
        std::size_t operator()(key const &k) const;
    };
    using sample_list = std::list<std::pair<key, std::unique_ptr<sample>>>;

    sample_list f_samples; ///< the one last shown first
    std::unordered_map<key, sample_list::iterator, key_hash> f_places;
};
