#include "host/layer_list.h"
#include "host/layer_steps.h"

#include "platform/toolkit/bridge/qt_bridge.h"

#include <QCoreApplication>

#include <functional>
#include <gtest/gtest.h>

namespace {
/// A list of layers a, b, c from the top, and what it told.
class layer_list : public testing::Test
{
protected:
    void SetUp() override
    {
        vx_qt_ensure_application();
        for (wchar_t const *name : {L"c", L"b", L"a"})
            ids.push_back(list.add(make(name)));
        QObject::connect(&list, &Tvx_layer_list::picture_changed, [this] { ++changes; });
    }

    static Tvx_layer_list::layer_ptr make(wchar_t const *name)
    {
        Tvx_layer_list::layer_ptr layer(vx_lr2d_create("tld_lr2d"));
        vx_lr2d_set_wcaption(layer.get(), name);
        return layer;
    }

    QString order() const
    {
        QString names;
        for (int row = 0; row < list.count(); ++row)
            names += list.data(list.index(row), Qt::DisplayRole).toString();
        return names;
    }

    Tvx_layer_list list;
    std::vector<int> ids;
    int changes = 0;
};

TEST_F(layer_list, moves_layers_to_any_row)
{
    struct
    {
        int from, to;
        char const *order;
        bool moved;
    } const cases[] = {
        {0, 1, "bac", true},  {0, 2, "bca", true},   {2, 0, "cab", true},  {1, 0, "bac", true},
        {1, 2, "acb", true},  {1, 1, "abc", false},  {0, 3, "abc", false}, {-1, 0, "abc", false},
        {3, 0, "abc", false}, {0, -1, "abc", false},
    };
    for (auto const &c : cases) {
        Tvx_layer_list fresh;
        for (wchar_t const *name : {L"c", L"b", L"a"})
            ASSERT_GT(fresh.add(make(name)), 0);
        QPersistentModelIndex const tracked = fresh.index(c.from);
        EXPECT_EQ(fresh.move(c.from, c.to), c.moved);
        QString names;
        for (int row = 0; row < fresh.count(); ++row)
            names += fresh.name_at(row);
        EXPECT_EQ(names, c.order) << c.from << " to " << c.to;
        if (c.moved) {
            EXPECT_EQ(tracked.row(), c.to);
        }
    }
}

TEST_F(layer_list, an_id_stays_with_its_layer)
{
    int const a = ids[2];
    ASSERT_TRUE(list.move(0, 2));
    EXPECT_EQ(list.row_of(a), 2);
    EXPECT_EQ(list.name_at(2), "a");
    ASSERT_TRUE(list.replace(a, make(L"x")));
    EXPECT_EQ(order(), "bcx");
    EXPECT_EQ(list.row_of(a), 2);
    ASSERT_TRUE(list.remove(2));
    EXPECT_EQ(list.row_of(a), -1);
    EXPECT_FALSE(list.replace(a, make(L"y")));
    EXPECT_GT(list.add(make(L"z")), a);
}

TEST_F(layer_list, a_replaced_layer_is_shown_as_the_one_before)
{
    ASSERT_TRUE(list.setData(list.index(1), Qt::Unchecked, Qt::CheckStateRole));
    int const revision = list.revision_at(1);
    ASSERT_TRUE(list.replace(ids[1], make(L"x")));
    EXPECT_FALSE(list.is_visible(1));
    EXPECT_NE(list.revision_at(1), revision);
}

TEST_F(layer_list, tells_of_each_change_once_and_of_none_where_nothing_changes)
{
    EXPECT_TRUE(list.set_layer_visible(0, true));
    EXPECT_FALSE(list.set_layer_visible(9, false));
    EXPECT_TRUE(list.setData(list.index(0), " n\name ", Qt::EditRole));
    EXPECT_EQ(list.name_at(0), "n ame") << "one line, and the map stays as it is";
    EXPECT_FALSE(list.remove(3));
    EXPECT_FALSE(list.remove(-1));
    EXPECT_EQ(list.add(nullptr), -1);
    EXPECT_FALSE(list.replace(ids[0], nullptr));
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(list.set_layer_visible(0, false));
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(list.move(0, 1));
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(changes, 3);
}

TEST_F(layer_list, a_removed_layer_is_alive_while_its_end_is_told)
{
    QString told;
    QObject::connect(&list, &Tvx_layer_list::layer_removed,
                     [&](int id) { told += QString::number(id) + " "; });
    ASSERT_TRUE(list.removeRows(0, 2));
    EXPECT_EQ(told, QString("%1 %2 ").arg(ids[2]).arg(ids[1]));
    EXPECT_EQ(order(), "c");
}

TEST_F(layer_list, has_the_unit_of_its_lowest_layer_that_tells)
{
    EXPECT_EQ(list.map_unit(), (Tvx_map_unit{false, 1}));
    ASSERT_GT(list.add(make(L"d"), Tvx_map_unit{true, 1}), 0);
    ASSERT_GT(list.add(make(L"e"), Tvx_map_unit{false, 0.3048}), 0);
    EXPECT_EQ(list.map_unit(), (Tvx_map_unit{true, 1}));
}

TEST_F(layer_list, rows_outside_give_neutral_values)
{
    for (int const row : {-1, 3, 1000}) {
        EXPECT_EQ(list.layer_at(row), nullptr);
        EXPECT_EQ(list.id_at(row), -1);
        EXPECT_EQ(list.name_at(row), QString());
        EXPECT_FALSE(list.is_visible(row));
        EXPECT_TRUE(list.extent_at(row).is_empty());
    }
    EXPECT_EQ(list.rowCount(list.index(0)), 0);
}

TEST_F(layer_list, goes_back_to_former_states_step_by_step)
{
    Tvx_layer_steps steps(list);
    QStringList seen;
    int former = -1;
    /// Order and names, and whether the middle layer is another one, with a number never given before.
    auto const look = [&] {
        int const row = list.row_of(ids[1]);
        EXPECT_TRUE(row < 0 || list.revision_at(row) >= former);
        former = row < 0 ? former : list.revision_at(row);
        return order() + (row >= 0 && vx_lr_get_own_selected_style_flag(list.layer_at(row)) ? "*" : "");
    };
    std::function<void()> const acts[] = {
        [&] { list.remove(0); },
        [&] {
            auto changed = make(L"b");
            vx_lr_set_own_selected_style_flag(changed.get(), true);
            list.replace(ids[1], std::move(changed));
        },
        [&] { list.rename(list.row_of(ids[1]), "x"); },
        [&] { list.move(0, 1); },
        [&] { list.remove(list.row_of(ids[1])); },
        [&] { list.add(make(L"n")); },
        [&] { list.clear(); },
    };
    seen += look();
    for (auto const &act : acts) {
        act();
        list.set_layer_visible(0, false); // which is no step
        QCoreApplication::processEvents();
        seen += look();
    }
    ASSERT_EQ(seen, (QStringList{"abc", "bc", "bc*", "xc*", "cx*", "c", "nc", ""}));
    for (int turn = 0; turn < 2; ++turn) {
        for (int i = int(seen.size()) - 2; i >= 0; --i) {
            ASSERT_TRUE(steps.can_undo());
            steps.undo();
            EXPECT_EQ(look(), seen[i]);
        }
        EXPECT_FALSE(steps.can_undo());
        for (int i = 1; i < seen.size(); ++i) {
            steps.redo();
            EXPECT_EQ(look(), seen[i]);
        }
        EXPECT_FALSE(steps.can_redo());
    }
    // What is done after a step back is another way.
    steps.undo();
    list.rename(0, "m");
    QCoreApplication::processEvents();
    EXPECT_FALSE(steps.can_redo());
    steps.undo();
    EXPECT_EQ(look(), "nc");
    steps.forget();
    EXPECT_FALSE(steps.can_undo());
}
} // namespace
