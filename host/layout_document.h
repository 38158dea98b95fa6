#pragma once

#include "host/layout_elements.h"

#include <QAbstractListModel>
#include <QElapsedTimer>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

struct Ivx_scn_2d;

/// A page layout as its window works on it: the model of the list of elements, the topmost first, and the way
/// back through what was done.
///
/// An element keeps its id while it is moved, replaced and brought back, so others remember ids. Its *look*
/// is a number that is another one whenever it has to be drawn anew; moving it does not change that.
class Tvx_layout_document : public QAbstractListModel
{
    Q_OBJECT

public:
    /// What was done, for steps that follow each other at once and are one step of the way back.
    enum step
    {
        c_step_single,
        c_step_move,
        c_step_resize,
        c_step_map,
    };

    /// The layout stays its list's and must outlive the document.
    explicit Tvx_layout_document(Ivx_scn_2d *layout, QObject *parent = nullptr);

    [[nodiscard]] Ivx_scn_2d *layout() const { return f_layout; }
    [[nodiscard]] int count() const;
    /// -1 outside.
    [[nodiscard]] int id_at(int row) const;
    [[nodiscard]] int row_of(int id) const;
    /// Null when there is none. The element stays the layout's, and only until the next change.
    [[nodiscard]] Ivx_layer *element(int id) const;
    [[nodiscard]] int look_of(int id) const;
    [[nodiscard]] QString name_of(int id) const;
    [[nodiscard]] Tvx_box_d2 box_of(int id) const;
    /// Size of the sheet.
    [[nodiscard]] Tvx_box_d2 page_box() const;
    /// The frame that the element belongs to, or itself; -1 for none.
    [[nodiscard]] int frame_of(int id) const;
    /// A name that no element but `id` has, made of this one.
    [[nodiscard]] QString free_name(QString const &name, int id = -1) const;

    /// Puts the element on top, with a name of its own; its id.
    int add(Tvx_layout_element_ptr element);
    bool replace(int id, Tvx_layout_element_ptr element);
    /// A page stays.
    bool remove(int id);
    /// Moves the element so that it ends up in this row, above the page.
    bool move_to(int id, int row);
    bool rename(int id, QString const &name);
    bool set_visible(int id, bool visible);
    /// Ends by `finish_step`: what is done before is one step.
    void set_box(int id, Tvx_box_d2 const &box);
    void change(int id, std::function<void(Ivx_layer *)> const &change);
    void finish_step(step kind, int id);
    /// Whatever `work` does is one step.
    void as_one_step(std::function<void()> const &work);
    /// What was done since the last step is undone.
    void give_up_step();

    /// A scene has another name: so it is called in what undo brings back, too.
    void rename_scene(QString const &from, QString const &to);
    /// The layout ends; the document is empty from now on.
    void detach();

    [[nodiscard]] bool can_undo() const { return f_at > 0; }
    [[nodiscard]] bool can_redo() const { return f_at + 1 < f_states.size(); }
    void undo();
    void redo();

    [[nodiscard]] int rowCount(QModelIndex const &parent = {}) const override;
    [[nodiscard]] QVariant data(QModelIndex const &index, int role) const override;
    bool setData(QModelIndex const &index, QVariant const &value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(QModelIndex const &index) const override;

signals:
    /// The page shows something else, and the map has to be saved.
    void changed();
    /// A step was done, or undone.
    void history_changed();
    /// By other hands than those of who edits its properties: box, name, visibility, what a frame shows, the
    /// name of the frame that the element belongs to.
    void element_changed(int id);
    /// As it was before, by undo or redo.
    void element_restored(int id);
    void element_removed(int id);

private:
    struct entry
    {
        int id;
        int look;
        int version; ///< another one after each change
    };
    /// An element as it was; kept together by the states in which it is the same.
    struct kept_element
    {
        entry what;
        std::shared_ptr<Ivx_layer> layer;
    };
    using state = std::vector<kept_element>;

    [[nodiscard]] int place_of(int id) const;
    /// After each change of what stands where.
    void find_places();
    [[nodiscard]] state make_state() const;
    void restore(state const &to);
    void touch(int place, bool looks_other);
    void tell_row(int place);
    /// Elements that name a frame go with its name.
    void rename_references(QString const &from, QString const &to);
    void push(step kind, int id);

    Ivx_scn_2d *f_layout;
    std::vector<entry> f_entries;          ///< of the layout's layers, from the lowest
    std::unordered_map<int, int> f_places; ///< in them, by ids
    std::vector<state> f_states;
    std::size_t f_at = 0;
    step f_last_step = c_step_single;
    int f_last_id = -1;
    bool f_collects = false; ///< steps are one
    bool f_has_collected = false;
    QElapsedTimer f_since_step;
    int f_last_number = 0;
};
