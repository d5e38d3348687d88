#include "core/frm_helpmessagebox.h"

#include "controls/boxes/label.h"
#include "controls/buttons/symbol_picture.h"
#include "controls/geometry/twips.h"
#include "support/services.h"
#include "support/test_world.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace velorama {
namespace {

const QString windowKey =
    QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\frmHELPMESSAGEBOX\\Window");
const QString album = QStringLiteral("/home/ann/Summer.vlr");

class MessageBox : public testing::Test {
protected:
    using Look = std::function<void(frmHELPMESSAGEBOX& form)>;

    /// Runs `look` once the next form is up, and closes by the title bar what it leaves up.
    void whenUp(const Look& look) {
        QTimer::singleShot(0, qApp, [this, look] {
            const QPointer<frmHELPMESSAGEBOX> form =
                qobject_cast<frmHELPMESSAGEBOX*>(QApplication::activeModalWidget());
            ASSERT_TRUE(form);
            ++looks;
            look(*form);
            if (form && form->isVisible()) {
                form->close();
            }
        });
    }
    qint32 ask(const Look& look) {
        whenUp(look);
        return gStatus->MessageBoxQuestionOpen(6, album);
    }
    void tell(const Look& look) {
        whenUp(look);
        gStatus->MessageBoxOpen(8, album);
    }
    static QPushButton* button(const QWidget* bar, const char* name) {
        return bar->findChild<QPushButton*>(QString::fromUtf8(name));
    }
    static void press(QWidget* target) { QTest::mouseClick(target, Qt::LeftButton); }
    QByteArray stored(const char* name) const {
        const auto value = store.value(Hive::CurrentUser, windowKey, QString::fromUtf8(name));
        return value ? value->data : QByteArray("(none)");
    }
    void put(const char* name, const char* data) {
        store.setValue(Hive::CurrentUser, windowKey, QString::fromUtf8(name),
                       {ValueType::Text, data});
    }

    test::Services services;
    MemoryRegistryStore& store = services.store;
    int looks = 0;
};

TEST_F(MessageBox, Message8SaysThatTheFileCannotBeOpened) {
    tell([](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("frmHELPMESSAGEBOX"));
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Help"));
        EXPECT_EQ(form.lblDESCRIPTION->text(), QStringLiteral("The file cannot be opened."));
        EXPECT_EQ(form.lblFILENAME->Caption(), album);
        EXPECT_EQ(form.lblHELPTEXT->text(),
                  QStringLiteral("The file may no longer exist or has not been saved yet."));
        EXPECT_EQ(form.imgINFOICON->Symbol(), QStringLiteral("information"));
        EXPECT_TRUE(form.cframBTNBARO->isVisible());
        EXPECT_FALSE(form.cframBTNBARYN->isVisible());
        EXPECT_FALSE(form.cframBTNBARYNC->isVisible());
    });
    EXPECT_EQ(looks, 1);
}

TEST_F(MessageBox, Question6AsksWhetherToSave) {
    ask([](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.lblDESCRIPTION->text(),
                  QStringLiteral("Do you wish to save before you close?"));
        EXPECT_EQ(form.lblFILENAME->Caption(), album);
        EXPECT_EQ(form.lblHELPTEXT->text(),
                  QStringLiteral("Press Yes to save, press No to close the file, or cancel to "
                                 "return."));
        EXPECT_EQ(form.imgINFOICON->Symbol(), QStringLiteral("question"));
        EXPECT_FALSE(form.cframBTNBARO->isVisible());
        EXPECT_FALSE(form.cframBTNBARYN->isVisible());
        EXPECT_TRUE(form.cframBTNBARYNC->isVisible());
    });
    EXPECT_EQ(looks, 1);
}

TEST_F(MessageBox, AnEmptyPathLeavesTheFileLineEmpty) {
    whenUp([](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.lblFILENAME->Caption(), QString());
        EXPECT_TRUE(form.lblFILENAME->isVisible());
        EXPECT_EQ(form.lblDESCRIPTION->text(),
                  QStringLiteral("Do you wish to save before you close?"));
    });
    gStatus->MessageBoxQuestionOpen(6, QString());
    EXPECT_EQ(looks, 1);
}

TEST_F(MessageBox, TheButtonsHaveTheirCaptions) {
    frmHELPMESSAGEBOX form(*gStatus, nullptr);
    const struct {
        const QWidget* bar;
        const char* barName;
        QList<std::pair<const char*, const char*>> buttons;
    } rows[] = {
        {form.cframBTNBARO, "cframBTNBARO", {{"btnOK", "&Close "}}},
        {form.cframBTNBARYN, "cframBTNBARYN", {{"btnYES", "&Yes"}, {"btnNO", "&No "}}},
        {form.cframBTNBARYNC,
         "cframBTNBARYNC",
         {{"btnYES", "&Yes"}, {"btnNO", "&No "}, {"btnCANCEL", "Cancel "}}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.bar->objectName(), QString::fromUtf8(row.barName));
        EXPECT_TRUE(row.bar->isHidden());
        EXPECT_EQ(row.bar->findChildren<QPushButton*>().size(), row.buttons.size());
        for (const auto& [name, caption] : row.buttons) {
            ASSERT_TRUE(button(row.bar, name)) << row.barName << ' ' << name;
            EXPECT_EQ(button(row.bar, name)->text(), QString::fromUtf8(caption));
        }
    }
}

TEST_F(MessageBox, EachButtonOfTheQuestionGivesItsCode) {
    const struct {
        const char* name;
        qint32 code;
    } rows[] = {{"btnYES", 6}, {"btnNO", 7}, {"btnCANCEL", 2}};
    for (const auto& row : rows) {
        const qint32 answer =
            ask([&row](frmHELPMESSAGEBOX& form) { press(button(form.cframBTNBARYNC, row.name)); });
        EXPECT_EQ(answer, row.code) << row.name;
        EXPECT_EQ(gStatus->MessageBoxClick(), row.code) << row.name;
    }
    EXPECT_EQ(looks, 3);
}

TEST_F(MessageBox, CloseWritesNothingButTheFirstUnloadDoes) {
    const auto close = [](frmHELPMESSAGEBOX& form) { press(button(form.cframBTNBARO, "btnOK")); };
    tell(close);
    EXPECT_EQ(gStatus->MessageBoxClick(), 2);
    gStatus->setMessageBoxClick(7);
    tell(close);
    EXPECT_EQ(gStatus->MessageBoxClick(), 7);
}

TEST_F(MessageBox, TheTitleBarAnswersCancelOnTheFirstQuestionOnly) {
    const auto titleBar = [](frmHELPMESSAGEBOX& form) { form.close(); };
    EXPECT_EQ(ask(titleBar), 2);
    ask([](frmHELPMESSAGEBOX& form) { press(button(form.cframBTNBARYNC, "btnYES")); });
    EXPECT_EQ(ask(titleBar), 6);
    gStatus->setMessageBoxClick(0);
    EXPECT_EQ(ask(titleBar), 2);
}

struct KeyRow {
    char key;
    /// 0: the form stays.
    qint32 code;
};

/// Each key on the bar's default button, after an answer that no key gives.
void typeKeys(QWidget* frmHELPMESSAGEBOX::*bar, const QList<KeyRow>& rows) {
    for (const KeyRow& row : rows) {
        gStatus->setMessageBoxClick(5);
        frmHELPMESSAGEBOX form(*gStatus, nullptr);
        (form.*bar)->show();
        bool stayed = false;
        QTimer::singleShot(0, &form, [&] {
            QTest::keyClick((form.*bar)->findChild<QPushButton*>(), row.key);
            stayed = form.isVisible();
            EXPECT_EQ(gStatus->MessageBoxClick(), row.code == 0 ? 5 : row.code) << int(row.key);
            form.close();
        });
        form.showModal();
        EXPECT_EQ(stayed, row.code == 0) << int(row.key);
    }
}

TEST_F(MessageBox, KeysOfYesNoCancel) {
    typeKeys(&frmHELPMESSAGEBOX::cframBTNBARYNC, {{'Y', 6},
                                                  {'N', 7},
                                                  {'C', 2},
                                                  {27, 2},
                                                  {'y', 0},
                                                  {'n', 0},
                                                  {'c', 0},
                                                  {'O', 0},
                                                  {'o', 0},
                                                  {'X', 0},
                                                  {'1', 0}});
}

TEST_F(MessageBox, KeysOfYesNo) {
    typeKeys(&frmHELPMESSAGEBOX::cframBTNBARYN,
             {{'Y', 6}, {'N', 7}, {27, 2}, {'y', 0}, {'n', 0}, {'C', 0}, {'c', 0}, {'O', 0}});
}

TEST_F(MessageBox, KeysOfClose) {
    typeKeys(&frmHELPMESSAGEBOX::cframBTNBARO,
             {{27, 2}, {'o', 0}, {'Y', 0}, {'N', 0}, {'C', 0}, {'c', 0}});
    gStatus->setMessageBoxClick(7);
    bool gone = false;
    tell([&gone](frmHELPMESSAGEBOX& form) {
        QTest::keyClick(&form, 'O');
        gone = !form.isVisible();
    });
    EXPECT_TRUE(gone);
    EXPECT_EQ(gStatus->MessageBoxClick(), 7);
}

TEST_F(MessageBox, EscapeAnswersCancelAfterAnyAnswer) {
    gStatus->setMessageBoxClick(6);
    EXPECT_EQ(ask([](frmHELPMESSAGEBOX& form) { QTest::keyClick(&form, Qt::Key_Escape); }), 2);
}

TEST_F(MessageBox, ALowerCaseYDoesNothing) {
    gStatus->setMessageBoxClick(7);
    bool stayed = false;
    EXPECT_EQ(ask([&stayed](frmHELPMESSAGEBOX& form) {
                  QTest::keyClick(form.focusWidget(), 'y');
                  stayed = form.isVisible();
              }),
              7);
    EXPECT_TRUE(stayed);
}

TEST_F(MessageBox, EnterAndSpacePressTheButtonWithTheFocus) {
    EXPECT_EQ(ask([](frmHELPMESSAGEBOX& form) {
                  EXPECT_EQ(form.focusWidget(), button(form.cframBTNBARYNC, "btnYES"));
                  EXPECT_TRUE(button(form.cframBTNBARYNC, "btnYES")->isDefault());
                  QTest::keyClick(form.focusWidget(), Qt::Key_Return);
              }),
              6);
    EXPECT_EQ(ask([](frmHELPMESSAGEBOX& form) {
                  QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
                  EXPECT_EQ(form.focusWidget(), button(form.cframBTNBARYNC, "btnNO"));
                  QTest::keyClick(form.focusWidget(), Qt::Key_Return);
              }),
              7);
    EXPECT_EQ(ask([](frmHELPMESSAGEBOX& form) {
                  QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
                  QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
                  QTest::keyClick(form.focusWidget(), Qt::Key_Space);
              }),
              2);
    gStatus->setMessageBoxClick(7);
    bool gone = false;
    tell([&gone](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.focusWidget(), button(form.cframBTNBARO, "btnOK"));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        gone = !form.isVisible();
    });
    EXPECT_TRUE(gone);
    EXPECT_EQ(gStatus->MessageBoxClick(), 7);
}

TEST_F(MessageBox, ANumberInNeitherTableShowsTheFormAsItWasMade) {
    const auto bare = [](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.lblDESCRIPTION->text(), QString());
        EXPECT_EQ(form.lblFILENAME->Caption(), QString());
        EXPECT_EQ(form.lblHELPTEXT->text(), QString());
        EXPECT_FALSE(form.cframBTNBARO->isVisible());
        EXPECT_FALSE(form.cframBTNBARYN->isVisible());
        EXPECT_FALSE(form.cframBTNBARYNC->isVisible());
        for (const char key : {'Y', 'N', 'C', 'O', '\x1b'}) {
            QTest::keyClick(&form, key);
            EXPECT_TRUE(form.isVisible()) << int(key);
        }
        QTest::keyClick(&form, Qt::Key_Return);
        EXPECT_TRUE(form.isVisible());
    };
    // Each table has its own numbers.
    for (const qint32 number : {8, 0, -1, 7, 2147483647}) {
        gStatus->setMessageBoxClick(7);
        whenUp(bare);
        EXPECT_EQ(gStatus->MessageBoxQuestionOpen(number, album), 7) << number;
    }
    for (const qint32 number : {6, 0, -1, 9}) {
        gStatus->setMessageBoxClick(0);
        whenUp(bare);
        gStatus->MessageBoxOpen(number, album);
        EXPECT_EQ(gStatus->MessageBoxClick(), 2) << number;
    }
    EXPECT_EQ(looks, 9);
}

TEST_F(MessageBox, F1OpensTheHelpCentreAndTheFormStays) {
    QStringList opened;
    QObject::connect(gLibrary.get(), &clsLIBRARY::helpPageWanted,
                     [&opened](const QString& address) { opened << address; });
    bool stayed = false;
    ask([&stayed](frmHELPMESSAGEBOX& form) {
        QTest::keyClick(form.focusWidget(), Qt::Key_F1);
        stayed = form.isVisible();
    });
    EXPECT_TRUE(stayed);
    EXPECT_EQ(opened, QStringList({libTxt.HelpUrl + QStringLiteral("index.html")}));
}

TEST_F(MessageBox, TheFontsHaveTheirSizes) {
    const frmHELPMESSAGEBOX form(*gStatus, nullptr);
    EXPECT_EQ(form.lblDESCRIPTION->font().pointSize(), 12);
    EXPECT_EQ(form.lblFILENAME->font().pointSize(), 9);
    EXPECT_EQ(form.lblHELPTEXT->font().pointSize(), 8);
}

TEST_F(MessageBox, IsModalOverTheActiveWindow) {
    QWidget owner;
    owner.setGeometry(100, 80, 640, 420);
    owner.show();
    QApplication::setActiveWindow(&owner);
    tell([&owner](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(form.parentWidget(), &owner);
        const QPoint off = form.geometry().center() - owner.frameGeometry().center();
        EXPECT_LE(qAbs(off.x()), 4);
        EXPECT_LE(qAbs(off.y()), 4);
    });
    EXPECT_EQ(looks, 1);
}

// Another program has the focus.
TEST_F(MessageBox, WithoutAnActiveWindowItBelongsOverTheProgramsOwnThatIsShown) {
    QWidget hidden;
    QWidget hint(nullptr, Qt::ToolTip);
    test::expectMessage(QStringLiteral("raise()"));  // of the platform without a screen
    hint.show();
    QApplication::setActiveWindow(nullptr);
    tell([](frmHELPMESSAGEBOX& form) { EXPECT_EQ(form.parentWidget(), nullptr); });
    QWidget window;
    window.show();
    QApplication::setActiveWindow(nullptr);
    tell([&window](frmHELPMESSAGEBOX& form) { EXPECT_EQ(form.parentWidget(), &window); });
    EXPECT_EQ(looks, 2);
}

TEST_F(MessageBox, WithoutAnOwnerItComesUpInTheMiddleOfTheScreen) {
    frmHELPMESSAGEBOX form(*gStatus, nullptr);
    QTimer::singleShot(0, &form, [&form] {
        const QPoint off = form.geometry().center() - form.screen()->availableGeometry().center();
        EXPECT_LE(qAbs(off.x()), 4);
        EXPECT_LE(qAbs(off.y()), 4);
        form.close();
    });
    form.showModal();
}

TEST_F(MessageBox, StandsOnTheGroundOfAListAndBreaksItsLines) {
    tell([](frmHELPMESSAGEBOX& form) {
        QPalette palette = form.palette();
        palette.setColor(QPalette::Base, Qt::yellow);
        form.setPalette(palette);
        const QImage seen = form.picframWINDOW->grab().toImage();
        EXPECT_EQ(seen.pixelColor(2, 2), QColor(Qt::yellow));
        EXPECT_TRUE(form.lblDESCRIPTION->wordWrap());
        EXPECT_TRUE(form.lblHELPTEXT->wordWrap());
    });
    EXPECT_EQ(looks, 1);
}

TEST_F(MessageBox, HasTheSizeOfItsTextsWhateverIsStored) {
    QSize plain;
    tell([&plain](frmHELPMESSAGEBOX& form) { plain = form.size(); });
    put("Width", "12000");
    put("Height", "9000");
    put("Window State", "2");
    tell([plain](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.size(), plain);
        EXPECT_FALSE(form.isMaximized());
    });
    EXPECT_EQ(looks, 2);
}

TEST_F(MessageBox, ComesBackWhereTheUserLeftIt) {
    tell([](frmHELPMESSAGEBOX& form) { form.move(37, 51); });
    EXPECT_EQ(stored("Left"), "555");
    EXPECT_EQ(stored("Top"), "765");
    EXPECT_EQ(stored("Width"), "(none)");
    EXPECT_EQ(stored("Height"), "(none)");
    EXPECT_EQ(stored("Window State"), "(none)");
    ask([](frmHELPMESSAGEBOX& form) { EXPECT_EQ(form.pos(), QPoint(37, 51)); });
    EXPECT_EQ(stored("Left"), "555");
    EXPECT_EQ(looks, 2);
}

TEST_F(MessageBox, APlaceOffTheScreenIsNotUsed) {
    put("Left", "999999");
    put("Top", "-15");
    tell([](frmHELPMESSAGEBOX& form) {
        EXPECT_TRUE(form.screen()->geometry().contains(form.geometry()));
    });
    EXPECT_EQ(looks, 1);
}

TEST_F(MessageBox, ALongNameWidensNothing) {
    QSize plain;
    tell([&plain](frmHELPMESSAGEBOX& form) { plain = form.size(); });
    const QString name = QString(250, QLatin1Char('x')) + QStringLiteral(".vlr");
    whenUp([&](frmHELPMESSAGEBOX& form) {
        EXPECT_EQ(form.size(), plain);
        EXPECT_TRUE(form.screen()->geometry().contains(form.geometry()));
        EXPECT_EQ(form.lblFILENAME->Caption(), name);
    });
    gStatus->MessageBoxOpen(8, name);
    EXPECT_EQ(looks, 2);
}

TEST_F(MessageBox, TimersKeepFiringWhileItIsUp) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (++ticks == 3) {
            QApplication::activeModalWidget()->close();
        }
    });
    timer.start(0);
    gStatus->MessageBoxOpen(8, album);
    EXPECT_EQ(ticks, 3);
}

TEST_F(MessageBox, ItsOwnerMayGoFirst) {
    auto* owner = new QWidget;
    owner->show();
    QApplication::setActiveWindow(owner);
    whenUp([owner](frmHELPMESSAGEBOX& form) {
        ASSERT_EQ(form.parentWidget(), owner);
        delete owner;
    });
    EXPECT_EQ(gStatus->MessageBoxQuestionOpen(6, album), 2);
    EXPECT_EQ(looks, 1);
}

TEST_F(MessageBox, AMessageMayComeUpOverAQuestion) {
    EXPECT_EQ(ask([this](frmHELPMESSAGEBOX& question) {
                  tell([&question](frmHELPMESSAGEBOX& message) {
                      EXPECT_NE(&message, &question);
                      QTest::keyClick(&message, 'O');
                  });
                  EXPECT_TRUE(question.isVisible());
                  press(button(question.cframBTNBARYNC, "btnNO"));
              }),
              7);
    EXPECT_EQ(looks, 2);
}

}  // namespace
}  // namespace velorama
