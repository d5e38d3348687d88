// Items that come and go by the thousand, and behind all others.

#include "controls/lists/list_model.h"
#include "controls/lists/list_view.h"
#include "support/waiting.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <random>

namespace velorama {
namespace {

using Mode = QAbstractItemModelTester::FailureReportingMode;

QString key(int number) {
    return QStringLiteral("/pics/%1.jpg").arg(number);
}

/// Keys, with "*" behind a selected one and "!" behind the current one.
std::string look(const ListView& list) {
    QString all;
    for (int i = 1; i <= list.Count(); ++i) {
        const ListItem& item = *list.item(i);
        EXPECT_EQ(item.Index(), i);
        EXPECT_TRUE(item.Key().isEmpty() || list.item(item.Key()) == &item);
        all += item.Key() + item.Text() + QString::number(item.Icon());
        all += item.Selected() ? QStringLiteral("*") : QString();
        all += &item == list.SelectedItem() ? QStringLiteral("! ") : QStringLiteral(" ");
    }
    all += QString::number(list.SelectedCount());
    return all.toStdString();
}

class ListRuns : public testing::Test {
protected:
    /// The same on both lists.
    void fill(int count) {
        for (ListView* each : {&list, &plain}) {
            each->Clear();
            for (int i = 1; i <= count; ++i) {
                each->Add(i, key(i), QStringLiteral("text"), i % 3);
            }
        }
    }
    void choose(int current, const std::vector<int>& places) {
        list.select(places, current);
        plain.select(places, current);
    }
    void remove(const std::vector<int>& places) {
        list.Remove(places);
        for (auto place = places.rbegin(); place != places.rend(); ++place) {
            plain.Remove(*place);
        }
    }

    ListView list;
    ListView plain;
    std::mt19937 random{5};
};

TEST_F(ListRuns, SeveralGoAsOneAfterTheOther) {
    for (int round = 0; round < 300; ++round) {
        const auto count = static_cast<int>(random() % 9);
        fill(count);
        std::vector<int> selected;
        std::vector<int> places;
        for (int i = 0; i <= count + 1; ++i) {
            (random() % 2 == 0) ? selected.push_back(i) : places.push_back(i);
            if (random() % 4 == 0 && (places.empty() || places.back() != i)) {
                places.push_back(i);
            }
        }
        choose(count == 0 ? 0 : 1 + static_cast<int>(random() % static_cast<unsigned>(count)),
               selected);
        const qint64 before = list.changes();
        remove(places);
        ASSERT_EQ(look(list), look(plain)) << round;
        ASSERT_EQ(list.changes() != before, list.Count() != count);
    }
}

TEST_F(ListRuns, OfTheCurrentItemTheNextThatStaysBecomesCurrentOrTheLast) {
    fill(6);
    choose(3, {});
    remove({3, 4});
    EXPECT_EQ(list.SelectedItem()->Key(), key(5));
    fill(6);
    choose(3, {});
    remove({1, 3});
    EXPECT_EQ(list.SelectedItem()->Key(), key(4));
    fill(6);
    choose(5, {});
    remove({4, 5, 6});
    EXPECT_EQ(list.SelectedItem()->Key(), key(3));
    remove({1, 2, 3});
    EXPECT_EQ(list.SelectedItem(), nullptr);
}

TEST_F(ListRuns, SeveralComeAsOneAfterTheOther) {
    for (int round = 0; round < 200; ++round) {
        const auto count = static_cast<int>(random() % 6);
        fill(count);
        choose(count, {count});
        std::vector<ListEntry> entries;
        for (auto number = static_cast<int>(random() % 5); number > 0; --number) {
            const auto which = 100 + number;
            entries.push_back({which % 2 == 0 ? QString() : key(which), QStringLiteral("new"), 7});
        }
        const int place = 1 + static_cast<int>(random() % 2) * count;
        list.Add(place, entries);
        int at = place;
        for (const ListEntry& entry : entries) {
            plain.Add(at++, entry.key, entry.text, entry.icon);
        }
        ASSERT_EQ(look(list), look(plain)) << round;
    }
}

TEST_F(ListRuns, KeysThatAreThereAndPlacesOutsideArePassedOver) {
    fill(2);
    list.Add(2, {{key(1), {}, 0}, {key(8), {}, 0}, {key(8), {}, 0}, {key(2), {}, 0}});
    plain.Add(2, key(8), {}, 0);
    EXPECT_EQ(look(list), look(plain));
    list.Add(0, {{key(9), {}, 0}});
    list.Add(5, {{key(9), {}, 0}});
    list.Remove(std::vector<int>{-1, 0, 4});
    EXPECT_EQ(look(list), look(plain));
}

// -- in sight --

class RowsInSight : public ListRuns {
protected:
    static constexpr int many = 1500;
    RowsInSight() {
        list.resize(600, 300);
        fill(many);
        list.show();
        QCoreApplication::processEvents();
    }
    int rows() const { return list.model()->rowCount(); }
    void append(int count) {
        for (int i = 0; i < count; ++i) {
            const int next = list.Count() + 1;
            list.Add(next, key(next), QString(), 0);
            QCoreApplication::processEvents();
        }
    }

    QSignalSpy resets{list.model(), &QAbstractItemModel::modelReset};
};

TEST_F(RowsInSight, ThoseThatComeBehindLeaveTheOthersWhereTheyAre) {
    const QAbstractItemModelTester tester(list.model(), Mode::Fatal);
    ASSERT_EQ(rows(), many);
    resets.clear();
    append(60);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_TRUE(test::comesTrue([this] { return rows() == many + 60; }));
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(RowsInSight, AreThereForWhoeverWorksWithThem) {
    list.Add(many + 1, key(many + 1), QString(), 0);
    list.setSelectedItem(many + 1);
    EXPECT_EQ(list.currentIndex().row(), many);
    list.Add(many + 2, key(many + 2), QString(), 0);
    list.item(many + 2)->setSelected(true);
    EXPECT_EQ(list.currentIndex().row(), many + 1);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(many + 1));
    list.Add(many + 3, key(many + 3), QString(), 0);
    list.select({many + 3}, 1);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(many + 2));
    list.Add(many + 4, key(many + 4), QString(), 0);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.SelectedItem()->Key(), key(many + 4));
}

TEST_F(RowsInSight, ChangedBeforeTheyAreShownOrGoneAreNoHarm) {
    const QAbstractItemModelTester tester(list.model(), Mode::Fatal);
    list.Add(many + 1, key(many + 1), QString(), 0);
    list.item(many + 1)->setText(QStringLiteral("late"));
    EXPECT_EQ(rows(), many);
    list.Remove(many + 1);
    EXPECT_TRUE(test::comesTrue([this] { return rows() == many; }));
    append(1);
    list.Clear();
    QCoreApplication::processEvents();
    EXPECT_EQ(rows(), 0);
}

}  // namespace
}  // namespace velorama
