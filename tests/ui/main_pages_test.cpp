#include "ui/window_world.h"

#include <QScrollArea>
#include <QScrollBar>

namespace velorama {
namespace {

class PagesTest : public test::WithWindow {
protected:
    /// Number of the page that is up; 0 if none is or several are.
    int shown() {
        int number = 0;
        int up = 0;
        for (std::size_t i = 0; i < pages().all().size(); ++i) {
            if (!pages().all().at(i)->isHidden()) {
                number = static_cast<int>(i) + 1;
                ++up;
            }
        }
        return up == 1 ? number : 0;
    }
    void press(Qt::KeyboardModifiers held) {
        QTest::keyClick(window.get(), held & Qt::ShiftModifier ? Qt::Key_Backtab : Qt::Key_Tab,
                        held);
    }
    int restored(const QString& TABIDX) {
        setStored("mfrmPRGMAIN\\View", "TABIDX", TABIDX);
        start();
        EXPECT_EQ(pages().tabPAGES->ActiveTab(), shown());
        return shown();
    }
};

TEST_F(PagesTest, HaveTheirCaptionsInOrder) {
    start();
    const tab& strip = *pages().tabPAGES;
    EXPECT_EQ(strip.ActiveTabs(), QStringLiteral("Slideshows,Pictures,Music,WebAlbum,Help"));
    EXPECT_EQ(strip.Tabcount(), 5);
    EXPECT_EQ(strip.Caption(1), QStringLiteral("Slideshows"));
    EXPECT_EQ(strip.Caption(5), QStringLiteral("Help"));
}

TEST_F(PagesTest, EachCaptionShowsItsFrameAloneAndGivesItTheKeyboard) {
    start();
    struct Case {
        const char* caption;
        QWidget* frame;
        QWidget* focus;
    };
    const Case cases[] = {
        {"Pictures", pages().pictures, foundControls().ftvFOLDER},
        {"Slideshows", pages().slideshows, albumControls().lvwALBUMS},
        {"Music", pages().music, music().lstMUSIC},
        {"WebAlbum", pages().webAlbum, pages().webAlbum->txtTITLE},
        {"Help", pages().help, pages().help->cbtnHELP},
    };
    for (const Case& page : cases) {
        emit pages().tabPAGES->Click(QLatin1String(page.caption));
        for (const QWidget* frame : pages().all()) {
            EXPECT_EQ(frame->isVisible(), frame == page.frame) << page.caption;
        }
        EXPECT_EQ(QApplication::focusWidget(), page.focus) << page.caption;
    }
}

TEST_F(PagesTest, AnUnknownCaptionChangesNothing) {
    start();
    emit pages().tabPAGES->Click(QStringLiteral("Music"));
    for (const char* caption : {"", "3", "music", "MUSIC", "Pictures ", "Audio"}) {
        emit pages().tabPAGES->Click(QLatin1String(caption));
        EXPECT_EQ(shown(), 3) << caption;
        EXPECT_EQ(QApplication::focusWidget(), music().lstMUSIC) << caption;
    }
}

TEST_F(PagesTest, CtrlTabGoesThroughAllAndRound) {
    start();
    EXPECT_EQ(shown(), 1);
    for (const int page : {2, 3, 4, 5, 1}) {
        press(Qt::ControlModifier);
        EXPECT_EQ(shown(), page);
        EXPECT_EQ(pages().tabPAGES->ActiveTab(), page);
    }
}

TEST_F(PagesTest, CtrlShiftTabGoesBackAndRound) {
    start();
    for (const int page : {5, 4, 3, 2, 1}) {
        press(Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(shown(), page);
        EXPECT_EQ(pages().tabPAGES->ActiveTab(), page);
    }
}

TEST_F(PagesTest, TabAloneShiftTabAndCtrlAltTabStay) {
    start();
    for (const Qt::KeyboardModifiers held :
         {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::ControlModifier | Qt::AltModifier}) {
        press(held);
        EXPECT_EQ(shown(), 1);
    }
}

TEST_F(PagesTest, TheWindowSeesThePageKeyBeforeTheControlWithTheKeyboard) {
    start();
    emit pages().tabPAGES->Click(QStringLiteral("WebAlbum"));
    pages().tabPAGES->setActiveTab(4);
    QTest::keyClick(pages().webAlbum->txtTITLE, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(shown(), 5);
    EXPECT_TRUE(pages().webAlbum->txtTITLE->text().isEmpty());
}

TEST_F(PagesTest, TheFirstThreeComeBackAtTheNextStart) {
    EXPECT_EQ(restored(QStringLiteral("1")), 1);
    EXPECT_EQ(restored(QStringLiteral("2")), 2);
    EXPECT_EQ(restored(QStringLiteral("3")), 3);
}

TEST_F(PagesTest, AnythingElseComesBackOnTheFirst) {
    for (const char* number : {"4", "5", "6", "0", "-1", "-32768", "70000", "Music", "", " "}) {
        EXPECT_EQ(restored(QLatin1String(number)), 1) << number;
    }
}

TEST_F(PagesTest, ThePageIsWrittenAtTheEndWhicheverItIs) {
    for (int page = 1; page <= 5; ++page) {
        start();
        pages().tabPAGES->press(page);
        window->close();
        EXPECT_EQ(stored("mfrmPRGMAIN\\View", "TABIDX"), QString::number(page));
    }
    start();
    EXPECT_EQ(shown(), 1);
}

TEST_F(PagesTest, TheKeyboardBringsAFieldIntoSight) {
    start(album(1));
    window->resize(500, 400);
    window->activateWindow();
    pages().tabPAGES->press(4);
    QApplication::processEvents();
    QWidget* button = pages().webAlbum->cbtnWEBALBUM;
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Tab, Qt::ShiftModifier);
    QWidget* field = QApplication::focusWidget();
    ASSERT_NE(field, nullptr);
    const auto* area = pages().webAlbum->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    ASSERT_TRUE(area->widget()->isAncestorOf(field));
    const QRect place(field->mapTo(area->widget(), QPoint()), field->size());
    const QRect seen = area->viewport()->rect().translated(0, area->verticalScrollBar()->value());
    EXPECT_TRUE(seen.contains(place)) << field->objectName().toStdString();
}

TEST_F(PagesTest, HelpIsSetWideWhereThereIsRoomAndCloseWhereItWouldScroll) {
    start();
    pages().tabPAGES->press(5);
    const HelpPage& help = *pages().help;
    const QWidget& first = *help.findChild<QWidget*>(QStringLiteral("btnSTEPCHOOSE"));
    const QWidget& second = *help.findChild<QWidget*>(QStringLiteral("btnSTEPADD"));
    const auto pitch = [&] { return second.y() - first.y(); };
    window->resize(1280, 860);
    QApplication::processEvents();
    EXPECT_GE(pitch(), 36);
    window->resize(750, 520);
    QApplication::processEvents();
    EXPECT_LE(pitch(), 28);
    EXPECT_EQ(help.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

// The links, which have the keyboard then, stand below the steps.
TEST_F(PagesTest, HelpBeginsAtItsTopAndFollowsTheKeysFromThere) {
    start();
    window->resize(500, 400);
    window->activateWindow();
    const auto* area = pages().help->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    const QScrollBar& bar = *area->verticalScrollBar();
    pages().tabPAGES->press(5);
    QApplication::processEvents();
    ASSERT_GT(bar.maximum(), 0);
    EXPECT_EQ(QApplication::focusWidget(), pages().help->cbtnHELP);
    EXPECT_EQ(bar.value(), 0);
    QTest::keyClick(pages().help->cbtnHELP, Qt::Key_Tab);
    EXPECT_GT(bar.value(), 0);
    pages().tabPAGES->press(3);
    pages().tabPAGES->press(5);
    EXPECT_EQ(bar.value(), 0);
}

// What a wide window has too much stands at the right of them.
TEST_F(PagesTest, TheColumnsOfHelpStayTogetherInAWideWindow) {
    start();
    pages().tabPAGES->press(5);
    window->resize(1900, 900);
    QApplication::processEvents();
    const HelpPage& help = *pages().help;
    const auto left = [&help](const QWidget& control) {
        return control.mapTo(&help, QPoint()).x();
    };
    const QWidget* steps = help.findChild<QWidget*>(QStringLiteral("btnSTEPCHOOSE"));
    const QLabel* key = nullptr;
    for (const QLabel* label : help.findChildren<QLabel*>()) {
        if (label->text() == QLatin1String("F5")) {
            key = label;
        }
    }
    ASSERT_NE(key, nullptr);
    EXPECT_LT(left(*key), left(*steps) + 480);
    EXPECT_LT(left(*help.cbtnHELP), left(*key) + 300);
    window->resize(750, 520);
    QApplication::processEvents();
    EXPECT_GT(left(*help.cbtnHELP), left(*key));
    EXPECT_EQ(help.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

}  // namespace
}  // namespace velorama
