#pragma once

#include "data/editor_source/tos_prop_work.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

struct Tvx_color_channel;
struct Tvx_histogramm_data;
class Tvx_typed_stl_mngr_edit;

/// Base of the pages of layers over a property file. It answers the pull events of its editors from that
/// file, which is open only while an editor reads.
class VX_API Tvx_tos_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    explicit Tvx_tos_lr2d_edit(TComponent *owner);

    [[nodiscard]] Ivx_layer *get_tos_lr2d() const { return get_lr2d(); }

    /// The pull events, as `Tvx_tos_prop_work` answers them.
    bool on_data_open(TObject *sender);
    void on_data_close(TObject *sender);
    unsigned on_data_get_np(TObject *sender);
    unsigned on_data_get_no(TObject *sender);
    char const *on_data_get_prop(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    char const *on_data_get_capt_prop(TObject *sender, unsigned prop);
    wchar_t const *on_data_get_wprop(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    wchar_t const *on_data_get_capt_wprop(TObject *sender, unsigned prop);
    bool on_data_get_stat(TObject *sender, unsigned prop, double &min, double &max, double &average,
                          double &stddev, bool &ok);
    bool on_data_get_histogramm(TObject *sender, unsigned prop, Tvx_histogramm_data *histogram);
    char const *on_data_get_str(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    double on_data_get_val(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    void on_data_get_prop_file_name(TObject *sender, unsigned prop, Ivx_string_adp *out);

    /// The same for a colour channel, whose record keeps what was worked out: statistics are made where it
    /// has none, a histogram where it has none or one between other bounds than the channel asks for. False,
    /// with `ok` false, where that cannot be.
    bool on_data_get_channel_stat(TObject *sender, unsigned prop, Tvx_color_channel *channel, double &min,
                                  double &max, double &average, double &stddev, bool &ok);
    bool on_data_get_channel_histogramm(TObject *sender, unsigned prop, Tvx_color_channel *channel,
                                        Tvx_histogramm_data *histogram);
    /// Works both out anew, whatever is known.
    bool on_data_upd_histogramm(TObject *sender, unsigned prop, Tvx_color_channel *channel);

protected:
    /// Gives the editor of a style manager its data.
    void feed(Tvx_typed_stl_mngr_edit *edit);
    /// Called by `update_controls` of the leaf: who still reads the file of another layer learns that it is
    /// gone.
    void let_go_of_former_file();

private:
    [[nodiscard]] std::wstring file_name() const;

    Tvx_tos_prop_work f_prop_work;
    Ivx_layer *f_file_layer = nullptr; ///< the one that was shown last; not touched
};
