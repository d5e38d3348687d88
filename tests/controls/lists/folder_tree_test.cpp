#include "controls/lists/folder_tree.h"

#include "controls/lists/folder_model.h"
#include "support/default_locale.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama {
namespace {

using Mode = QAbstractItemModelTester::FailureReportingMode;

void make(const QString& folder, const QStringList& names) {
    for (const QString& name : names) {
        EXPECT_TRUE(QDir(folder).mkpath(name));
    }
}

// The tree as it stands, one row a line, indented by depth.
QString printed(const QTreeView& view, const QModelIndex& parent, int depth = 0) {
    QString text;
    for (int row = 0; row < view.model()->rowCount(parent); ++row) {
        const QModelIndex index = view.model()->index(row, 0, parent);
        text += QString(depth, u'.') + index.data().toString() + u' ';
        if (view.isExpanded(index)) {
            text += printed(view, index, depth + 1);
        }
    }
    return text;
}

class Tree : public testing::Test {
protected:
    Tree() : base(test::temporaryFolder()) {
        make(base,
             {QStringLiteral("beach/day 1"), QStringLiteral("beach/Day 2"), QStringLiteral("Alps"),
              QStringLiteral("alps"), QStringLiteral("Zoo"), QStringLiteral(".hidden/inside")});
        tree.resize(300, 500);
    }
    QString in(const char* name) const { return base + u'/' + QString::fromUtf8(name); }
    QModelIndex current() const { return tree.currentIndex(); }
    QModelIndex node(const char* name) const {
        for (int row = 0; row < tree.model()->rowCount(current().parent()); ++row) {
            const QModelIndex index = tree.model()->index(row, 0, current().parent());
            if (index.data().toString() == QString::fromUtf8(name)) {
                return index;
            }
        }
        return {};
    }
    /// Where a click meets the folder, which is scrolled to first: beside it stand the folders of
    /// other tests, as many as ran before.
    QPoint placeOf(const char* name) {
        tree.scrollTo(node(name));
        return tree.visualRect(node(name)).center();
    }
    QStringList told() {
        QStringList paths;
        for (const QList<QVariant>& call : changes) {
            paths.append(call.at(0).toString());
        }
        changes.clear();
        return paths;
    }

    QString base;
    FolderTree tree;
    QSignalSpy changes{&tree, &FolderTree::NodeChange};
};

TEST_F(Tree, SettingThePathOpensTheTreeAndTellsOnce) {
    tree.setPath(in("beach/Day 2"));
    EXPECT_EQ(told(), QStringList(in("beach/Day 2")));
    EXPECT_EQ(tree.Path(), in("beach/Day 2"));
    EXPECT_EQ(current().data().toString(), QStringLiteral("Day 2"));
    EXPECT_TRUE(tree.isExpanded(current().parent()));
    EXPECT_EQ(printed(tree, current().parent().parent()),
              QStringLiteral("Alps alps beach .day 1 .Day 2 Zoo "));
}

TEST_F(Tree, FoldersStandAsTheUsersLanguageSortsThem) {
    const test::DefaultLocale locale(QStringLiteral("de_DE"));
    make(base, {QStringLiteral("Reise/Tag 10"), QStringLiteral("Reise/Tag 9"),
                QStringLiteral("Reise/Übrig"), QStringLiteral("Reise/Ufer"),
                QStringLiteral("Reise/Vögel")});
    tree.setPath(in("Reise/Tag 10"));
    EXPECT_EQ(printed(tree, current().parent()), QStringLiteral("Tag 9 Tag 10 Übrig Ufer Vögel "));
}

TEST_F(Tree, AFolderOfVeryManyFilesIsLookedThroughWhenItIsOpened) {
    make(base, {QStringLiteral("Shoot/Few"), QStringLiteral("Shoot/Many"),
                QStringLiteral("Shoot/Hidden/.inside"), QStringLiteral("Shoot/Linked")});
    QFile::link(in("Zoo"), in("Shoot/Linked/to"));
    for (int number = 0; number < 10'001; ++number) {
        const char* folder = number < 100 ? "Shoot/Few" : "Shoot/Many";
        QFile file(in(folder) + u'/' + QString::number(number));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    for (int number = 0; number < 200; ++number) {
        QFile file(in("Shoot/Many/x") + QString::number(number));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    tree.setPath(in("Shoot/Few"));
    const QAbstractItemModel& model = *tree.model();
    EXPECT_TRUE(test::comesTrue([&] { return !model.hasChildren(node("Few")); }));
    EXPECT_TRUE(test::comesTrue([&] { return !model.hasChildren(node("Hidden")); }));
    EXPECT_TRUE(model.hasChildren(node("Linked")));
    EXPECT_TRUE(model.hasChildren(node("Many"))) << "not known yet";
    tree.expand(node("Many"));
    EXPECT_FALSE(model.hasChildren(node("Many")));
}

TEST_F(Tree, AFolderCanBeOpenedUntilAnotherThreadHasFoundNothingInIt) {
    tree.setPath(in("Zoo"));
    const auto expander = [&](const char* name) {
        const QRect row = tree.visualRect(node(name));
        return tree.viewport()->grab(QRect(0, row.y(), row.x(), row.height())).toImage();
    };
    EXPECT_TRUE(tree.model()->hasChildren(node("Zoo"))) << "asked the disk";
    const QImage before = expander("Alps");
    EXPECT_EQ(before, expander("beach"));
    EXPECT_TRUE(test::comesTrue([&] { return expander("Alps") != before; }));
    EXPECT_TRUE(test::comesTrue([&] { return !tree.model()->hasChildren(node("Zoo")); }));
    EXPECT_EQ(expander("beach"), before);
}

TEST_F(Tree, ATooltipTellsThePathAsItIs) {
    make(base, {QStringLiteral("<b>A & B")});
    const QString path = in("<b>A & B");
    tree.setPath(path);
    QTextDocument shown;
    shown.setHtml(current().data(Qt::ToolTipRole).toString());
    EXPECT_EQ(shown.toPlainText().remove(u'\n'), path);
}

TEST_F(Tree, SettingTheSamePathTellsAgain) {
    tree.setPath(in("Zoo"));
    tree.setPath(in("Zoo"));
    EXPECT_EQ(told(), QStringList({in("Zoo"), in("Zoo")}));
}

TEST_F(Tree, SettingTheRootsPathsWorks) {
    tree.setPath(QDir::homePath());
    EXPECT_EQ(current().data().toString(), QStringLiteral("Home"));
    tree.setPath(QStringLiteral("/"));
    EXPECT_EQ(current().data().toString(), QStringLiteral("Computer"));
    EXPECT_EQ(told(), QStringList({QDir::homePath(), QStringLiteral("/")}));
}

TEST_F(Tree, APathIsTakenInItsCleanForm) {
    tree.setPath(in("Zoo/"));
    EXPECT_EQ(tree.Path(), in("Zoo"));
    tree.setPath(in("ZOO"));
    EXPECT_EQ(tree.Path(), in("Zoo"));
    EXPECT_EQ(told(), QStringList({in("Zoo"), in("Zoo")}));
}

TEST_F(Tree, AMissingFolderStaysThePathAndTheTreeShowsTheNearest) {
    tree.setPath(in("beach/gone/deeper"));
    EXPECT_EQ(tree.Path(), in("beach/gone/deeper"));
    EXPECT_EQ(told(), QStringList(in("beach/gone/deeper")));
    EXPECT_EQ(current().data().toString(), QStringLiteral("beach"));
}

TEST_F(Tree, AnEmptyPathDoesNothing) {
    tree.setPath(QString());
    EXPECT_EQ(told(), QStringList());
    EXPECT_EQ(tree.Path(), QString());
}

TEST_F(Tree, HiddenFoldersShowOnlyOnTheWay) {
    tree.setPath(in("Zoo"));
    EXPECT_FALSE(node(".hidden").isValid());
    tree.setPath(in(".hidden/inside"));
    EXPECT_EQ(current().data().toString(), QStringLiteral("inside"));
    EXPECT_EQ(current().parent().data().toString(), QStringLiteral(".hidden"));
}

TEST_F(Tree, EachClickOnAFolderTellsOnce) {
    tree.setPath(in("Alps"));
    tree.show();
    told();
    const QPoint place = placeOf("Zoo");
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(told(), QStringList(in("Zoo")));
    EXPECT_EQ(tree.Path(), in("Zoo"));
    // Again on the same: its files may be others by now.
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(told(), QStringList(in("Zoo")));
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, place);
    EXPECT_EQ(told(), QStringList());
}

TEST_F(Tree, AClickOnTheNearestFolderOfAMissingOneTellsIt) {
    tree.setPath(in("Alps/gone"));
    tree.show();
    told();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, placeOf("Alps"));
    EXPECT_EQ(told(), QStringList(in("Alps")));
}

TEST_F(Tree, TheClickIsDoneWithWhenTheChangeIsTold) {
    tree.setPath(in("Alps"));
    tree.show();
    bool selected = false;
    QObject::connect(&tree, &FolderTree::NodeChange,
                     [&] { selected = tree.selectionModel()->isSelected(node("Zoo")); });
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, placeOf("Zoo"));
    EXPECT_TRUE(selected);
}

TEST_F(Tree, ArrowKeysBrowse) {
    tree.setPath(in("Alps"));
    tree.show();
    told();
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(told(), QStringList(in("alps")));
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(told(), QStringList(in("beach")));
    QTest::keyClick(&tree, Qt::Key_Right);
    EXPECT_TRUE(tree.isExpanded(current()));
    EXPECT_EQ(told(), QStringList());
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(told(), QStringList(in("beach/day 1")));
}

TEST_F(Tree, KeyDownComesBeforeTheTreesOwnHandling) {
    tree.setPath(in("Alps"));
    tree.show();
    QString pathAtKey;
    int code = 0;
    int mask = 0;
    QObject::connect(&tree, &FolderTree::KeyDown, [&](int keyCode, int shift) {
        pathAtKey = tree.Path();
        code = keyCode;
        mask = shift;
    });
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(pathAtKey, in("Alps"));
    EXPECT_EQ(code, 40);
    QTest::keyClick(&tree, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(code, 46);
    EXPECT_EQ(mask, 2);
}

TEST_F(Tree, TheAsteriskOpensOneLevelOnly) {
    make(base, {QStringLiteral("beach/day 1/morning")});
    tree.setPath(in("beach"));
    QTest::keyClick(&tree, Qt::Key_Asterisk);
    EXPECT_EQ(printed(tree, current()), QStringLiteral("day 1 Day 2 "));
}

TEST_F(Tree, ClosingAFolderAboveMakesThatOneCurrent) {
    tree.setPath(in("beach/day 1"));
    told();
    tree.collapse(current().parent());
    EXPECT_EQ(told(), QStringList(in("beach")));
}

TEST_F(Tree, AFolderIsReadAgainWhenItIsOpenedAgain) {
    tree.setPath(in("beach/day 1"));
    tree.setPath(in("beach"));
    tree.collapse(current());
    make(base, {QStringLiteral("beach/day 1b")});
    ASSERT_TRUE(QDir(in("beach/Day 2")).removeRecursively());
    tree.expand(current());
    EXPECT_EQ(printed(tree, current()), QStringLiteral("day 1 day 1b "));
}

TEST_F(Tree, ALinkToAFolderAboveDoesNoHarm) {
    QFile::link(base, in("Zoo/loop"));
    tree.setPath(in("Zoo/loop/Zoo/loop/beach"));
    EXPECT_EQ(tree.Path(), in("Zoo/loop/Zoo/loop/beach"));
    EXPECT_EQ(current().data().toString(), QStringLiteral("beach"));
}

TEST_F(Tree, FocusAloneChoosesNothing) {
    QSignalSpy focus(&tree, &FolderTree::GotFocus);
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&tree, &event);
    EXPECT_EQ(focus.size(), 1);
    EXPECT_EQ(told(), QStringList());
}

TEST(FolderModel, StandsUpToTheModelTester) {
    const QString base = test::temporaryFolder();
    make(base, {QStringLiteral("a/b/c"), QStringLiteral("d"), QStringLiteral(".e/f")});
    FolderModel model;
    QAbstractItemModelTester tester(&model, Mode::Fatal);
    // The tester would read folders from within the signal that tells of others.
    tester.setUseFetchMore(false);
    const std::vector<FolderRoot> roots = {{QStringLiteral("Base"), base},
                                           {QStringLiteral("A"), base + QStringLiteral("/a")}};
    model.setRoots(roots);
    EXPECT_EQ(model.path(model.find(base + QStringLiteral("/a/b")).parent()),
              base + QStringLiteral("/a"));
    EXPECT_EQ(model.rowCount(model.index(1, 0)), 1) << "by way of the deepest root";
    const QModelIndex hidden = model.find(base + QStringLiteral("/.e/f"));
    EXPECT_EQ(hidden.data().toString(), QStringLiteral("f"));
    make(base, {QStringLiteral("0"), QStringLiteral("b"), QStringLiteral("z")});
    QDir(base + QStringLiteral("/d")).removeRecursively();
    model.refresh(model.index(0, 0));
    QStringList names;
    for (int row = 0; row < model.rowCount(model.index(0, 0)); ++row) {
        names.append(model.index(row, 0, model.index(0, 0)).data().toString());
    }
    EXPECT_EQ(names.join(u' '), QStringLiteral(".e 0 a b z"));
    model.setRoots({roots[1]});
    EXPECT_EQ(model.rowCount(), 1);
}

TEST(FolderModel, AnUnreadableFolderHasNoChildren) {
    FolderModel model;
    const QString base = test::temporaryFolder();
    make(base, {QStringLiteral("closed/inside")});
    const QString closed = base + QStringLiteral("/closed");
    QFile::setPermissions(closed, QFile::Permissions());
    model.setRoots({{QStringLiteral("Closed"), closed},
                    {QStringLiteral("Gone"), base + QStringLiteral("/gone")}});
    if (!QDir(closed).isReadable()) {
        EXPECT_TRUE(test::comesTrue([&] { return !model.hasChildren(model.index(0, 0)); }));
    }
    EXPECT_TRUE(model.hasChildren(model.index(1, 0))) << "asked the disk";
    EXPECT_TRUE(test::comesTrue([&] { return !model.hasChildren(model.index(1, 0)); }));
    model.fetchMore(model.index(1, 0));
    EXPECT_EQ(model.rowCount(model.index(1, 0)), 0);
    QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// Relative luminance, and the contrast of two, as web guidelines have them.
double luminance(const QColor& colour) {
    const auto linear = [](float channel) {
        return channel <= 0.04045F ? channel / 12.92F : std::pow((channel + 0.055F) / 1.055F, 2.4F);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [less, more] = std::minmax({luminance(one), luminance(other)});
    return (more + 0.05) / (less + 0.05);
}

TEST_F(Tree, TheIconOfTheMarkedFolderIsSeenWithoutTheKeyboard) {
    tree.setPath(in("Zoo"));
    QWidget form;
    QLineEdit field(&form);
    tree.setParent(&form);
    form.resize(tree.size());
    form.show();
    form.activateWindow();
    field.setFocus();
    QApplication::processEvents();
    tree.scrollTo(current());
    ASSERT_FALSE(tree.hasFocus());
    const QImage image = tree.viewport()->grab().toImage();
    const QRect row = tree.visualRect(current());
    const QColor ground = image.pixelColor(row.right() - 3, row.center().y());
    ASSERT_NE(ground, tree.palette().color(QPalette::Base));
    double most = 0;
    constexpr int iconSide = 16;
    for (int x = row.left(); x < row.left() + iconSide; ++x) {
        for (int y = row.top(); y <= row.bottom(); ++y) {
            most = std::max(most, contrast(image.pixelColor(x, y), ground));
        }
    }
    EXPECT_GT(most, 3);
    tree.setParent(nullptr);
}

}  // namespace
}  // namespace velorama
