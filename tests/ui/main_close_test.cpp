#include "controls/boxes/label.h"
#include "core/frm_helpmessagebox.h"
#include "support/busy_threads.h"
#include "ui/window_world.h"

#include <QLabel>

namespace velorama {
namespace {

class CloseTest : public test::WithWindow {
protected:
    /// Opens an album of two slides and takes one away; what the album holds on disk.
    QByteArray modifyAlbum() {
        path = album(2);
        start(path);
        commands().remove.trigger();
        EXPECT_TRUE(commands().save.isEnabled());
        return contentOf(path);
    }
    /// The same in a list that belongs to no album.
    void modifyUnnamed() {
        browse({QStringLiteral("a.bmp")});
        start();
        commands().addAll.trigger();
        EXPECT_TRUE(commands().save.isEnabled());
    }
    void addToLists() {
        music().lstMUSIC->addItem(QStringLiteral("/music/a.mp3"));
        albumControls().lvwALBUMS->Add(QStringLiteral("/albums/z.vlr"), QStringLiteral("z"));
    }
    void expectListsSaved() {
        EXPECT_EQ(stored("mfrmPRGMAINAUD\\Items Total", "lstMUSICList Total"), QStringLiteral("1"));
        EXPECT_EQ(stored("mfrmPRGMAINAUD\\Details", "lstMUSIC0"), QStringLiteral("/music/a.mp3"));
        const QByteArray last = "lvwALBUMS" + QByteArray::number(albums().size());
        EXPECT_EQ(stored("mfrmPRGMAIN\\Items Total", "lvwALBUMSList Total"),
                  QString::number(albums().size()));
        EXPECT_EQ(stored("mfrmPRGMAIN\\Details", last.constData()), albums().last());
    }
    /// What the close of the window asks, and which button answers.
    QStringList closeWith(const char* button) {
        test::Presser answer{QLatin1String(button)};
        window->close();
        return answer.forms;
    }

    const QStringList oneQuestion{QStringLiteral("frmHELPMESSAGEBOX")};
    QString path;
};

TEST_F(CloseTest, AnUnmodifiedAlbumIsNoQuestion) {
    start(album(2));
    SaveCancelled = true;
    addToLists();
    EXPECT_EQ(closeWith("btnCANCEL"), QStringList());
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_FALSE(SaveCancelled);
    expectListsSaved();
}

TEST_F(CloseTest, CancelKeepsTheWindowButTheListsAreSaved) {
    const QByteArray before = modifyAlbum();
    addToLists();
    EXPECT_EQ(closeWith("btnCANCEL"), oneQuestion);
    EXPECT_FALSE(window->isUnloaded());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(contentOf(path), before);
    EXPECT_TRUE(commands().save.isEnabled());
    expectListsSaved();
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "TABIDX"), QStringLiteral("absent"));
    EXPECT_EQ(closeWith("btnNO"), oneQuestion) << "it asks again the next time";
    EXPECT_TRUE(window->isUnloaded());
}

TEST_F(CloseTest, YesSavesTheAlbumAndCloses) {
    modifyAlbum();
    EXPECT_EQ(closeWith("btnYES"), oneQuestion);
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_TRUE(contentOf(path).startsWith("1| \r\n"));
    EXPECT_TRUE(asked.empty());
}

TEST_F(CloseTest, NoClosesAndLeavesTheFile) {
    const QByteArray before = modifyAlbum();
    addToLists();
    EXPECT_EQ(closeWith("btnNO"), oneQuestion);
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(contentOf(path), before);
    expectListsSaved();
}

TEST_F(CloseTest, YesWithoutAFileAsksForOneAndCloses) {
    modifyUnnamed();
    chosen = test::temporaryFolder() + QStringLiteral("/new.vlr");
    EXPECT_EQ(closeWith("btnYES"), oneQuestion);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(asked.front().save);
    EXPECT_TRUE(contentOf(chosen).startsWith("1\r\n"));
    EXPECT_TRUE(window->isUnloaded());
}

TEST_F(CloseTest, ACancelledSaveAsKeepsTheWindowButTheListsAreSaved) {
    modifyUnnamed();
    addToLists();
    EXPECT_EQ(closeWith("btnYES"), oneQuestion);
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_TRUE(SaveCancelled);
    EXPECT_FALSE(window->isUnloaded());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(slides().size(), 1);
    expectListsSaved();
}

TEST_F(CloseTest, TheQuestionNamesTheAlbum) {
    modifyAlbum();
    test::Presser answer{QStringLiteral("btnCANCEL")};
    QString description;
    QString file;
    answer.look = [&](const QWidget& form) {
        const auto& box = dynamic_cast<const frmHELPMESSAGEBOX&>(form);
        description = box.lblDESCRIPTION->text();
        file = box.lblFILENAME->Caption();
    };
    window->close();
    EXPECT_EQ(description, QStringLiteral("Do you wish to save before you close?"));
    EXPECT_EQ(file, path);
}

TEST_F(CloseTest, ASecondCloseDuringTheQuestionDoesNothing) {
    modifyAlbum();
    test::Presser answer{QStringLiteral("btnCANCEL")};
    answer.look = [this](const QWidget&) { window->close(); };
    window->close();
    EXPECT_EQ(answer.forms, oneQuestion);
    EXPECT_FALSE(window->isUnloaded());
}

TEST_F(CloseTest, EndsTheListingOfAPictureThatTakesLong) {
    browse({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    test::BusyThreads threads;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [this] {
        if (slideControls().prgBARSLIDES->isVisible()) {
            window->close();
        }
    });
    watch.start(0);
    start();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_TRUE(threads.isBusy());
}

// -- what the end writes --

TEST_F(CloseTest, SlidesAreWrittenAndOlderOnesBeyondThemStay) {
    const QString folder = browse({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    setStored("frmSLIDESHOW\\Selection", "3", QStringLiteral("old"));
    start();
    commands().addAll.trigger();
    closeWith("btnNO");
    EXPECT_EQ(stored("frmSLIDESHOW\\Items", "Items"), QStringLiteral("2"));
    EXPECT_EQ(stored("frmSLIDESHOW\\Selection", "1"), folder + QStringLiteral("/a.jpg"));
    EXPECT_EQ(stored("frmSLIDESHOW\\Selection", "2"), folder + QStringLiteral("/b.jpg"));
    EXPECT_EQ(stored("frmSLIDESHOW\\Selection", "3"), QStringLiteral("old"));
}

TEST_F(CloseTest, WindowPageSplitterAndWebAlbumAreWritten) {
    start();
    setLeft(*pages().pictures->picVBAR, 4000.5F);
    pages().tabPAGES->press(2);
    pages().webAlbum->udnPHOTO->setText(QStringLiteral("640"));
    window->close();
    EXPECT_EQ(stored("mfrmPRGMAIN\\Window", "Window State"), QStringLiteral("0"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\Window", "Width"), QStringLiteral("11040"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "TABIDX"), QStringLiteral("2"));
    EXPECT_EQ(toolSetting("Splitter Bar Left"), QStringLiteral("4000.5"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\webalbum", "PhotoSize"), QStringLiteral("640"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\webalbum", "BackColor"), QStringLiteral("16708836"));
}

TEST_F(CloseTest, ASizeFieldLeftEmptyIsMendedBeforeItIsWritten) {
    start();
    pages().tabPAGES->press(4);
    updown& field = *pages().webAlbum->udnPHOTO;
    field.setFocus();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    ASSERT_EQ(field.Text(), QString());
    window->close();
    EXPECT_EQ(stored("mfrmPRGMAIN\\webalbum", "PhotoSize"), QStringLiteral("100"));
}

TEST_F(CloseTest, AnEmptyListIsWrittenAsNone) {
    setStored("frmSLIDESHOW\\Items", "Items", QStringLiteral("7"));
    start();
    window->close();
    EXPECT_EQ(stored("frmSLIDESHOW\\Items", "Items"), QStringLiteral("0"));
}

TEST_F(CloseTest, TheDeviceIsClosed) {
    start();
    device.commands.clear();
    window->close();
    EXPECT_EQ(device.commands, QStringList(QStringLiteral("close CURRFILE")));
}

TEST_F(CloseTest, TheSettingsDialogAndTheShowGoAlong) {
    start(album(2));
    const QPointer<frmTOOLSSETTINGS> settings = &window->settings();
    commands().start.trigger();
    const QPointer<frmSLIDESHOW> show = window->slideShow();
    ASSERT_TRUE(show);
    window->close();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_FALSE(window->isVisible()) << "the end of the show brings it back";
    EXPECT_TRUE(!settings || settings->isUnloaded());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(show);
}

TEST_F(CloseTest, UnderTheSettingsDialogBothGo) {
    start();
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    QTimer::singleShot(0, window.get(), [this] {
        EXPECT_NE(QApplication::activeModalWidget(), nullptr);
        window->close();
    });
    slideBar().cbtnCONTROLS[8]->click();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(CloseTest, UnderTheColourDialogOfTheSettingsAllGo) {
    start();
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    CommonDialog::answerColourWith([this](const ColourDialogRequest&) {
        window->close();
        return std::nullopt;
    });
    QTimer::singleShot(0, window.get(), [this] {
        emit window->settings().findChild<cbtnddp*>(QStringLiteral("cddGRAD"))->Custom();
    });
    commands().settings.trigger();
    CommonDialog::answerColourWith({});
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(CloseTest, ADialogThatIsUpWhileTheWindowLoadsGoesAlong) {
    window = std::make_unique<mfrmPRGMAIN>(services());
    QTimer::singleShot(0, window.get(), [this] {
        QDialog dialog(window.get());
        dialog.setWindowFlags(Qt::Dialog);
        QTimer::singleShot(0, window.get(), [this] { window->close(); });
        dialog.exec();
    });
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    window->Form_Load();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(CloseTest, ListsThatAreNotReadYetAreNotStored) {
    setStored("mfrmPRGMAIN\\Items Total", "lvwALBUMSList Total", QStringLiteral("7"));
    window = std::make_unique<mfrmPRGMAIN>(services());
    QTimer::singleShot(0, window.get(), [this] { window->close(); });
    window->Form_Load();
    EXPECT_EQ(stored("mfrmPRGMAIN\\Items Total", "lvwALBUMSList Total"), QStringLiteral("7"));
}

TEST_F(CloseTest, BeforeItsValuesAreReadTheWindowStoresNone) {
    setStored("mfrmPRGMAIN\\Window", "Width", QStringLiteral("9000"));
    setStored("mfrmPRGMAIN\\View", "TABIDX", QStringLiteral("3"));
    setStored("frmSLIDESHOW\\Items", "Items", QStringLiteral("7"));
    setToolSetting("Splitter Bar Left", QStringLiteral("4000"));
    MainServices early = services();
    early.startUp = [](QWidget& form, const QString&) { form.close(); };
    window = std::make_unique<mfrmPRGMAIN>(early);
    window->Form_Load();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(stored("mfrmPRGMAIN\\Window", "Width"), QStringLiteral("9000"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "TABIDX"), QStringLiteral("3"));
    EXPECT_EQ(stored("frmSLIDESHOW\\Items", "Items"), QStringLiteral("7"));
    EXPECT_EQ(toolSetting("Splitter Bar Left"), QStringLiteral("4000"));
}

TEST_F(CloseTest, ASecondCloseAfterTheEndDoesNothing) {
    start();
    window->close();
    device.commands.clear();
    setStored("mfrmPRGMAIN\\View", "TABIDX", QStringLiteral("untouched"));
    window->close();
    EXPECT_TRUE(device.commands.isEmpty());
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "TABIDX"), QStringLiteral("untouched"));
}

TEST_F(CloseTest, InTheMidstOfAListingItEndsThat) {
    QStringList names;
    for (int i = 0; i < 60; ++i) {
        names.append(QStringLiteral("p%1.jpg").arg(i));
    }
    browse(names);
    window = std::make_unique<mfrmPRGMAIN>(services());
    QTimer::singleShot(0, window.get(), [this] { window->close(); });
    window->Form_Load();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace velorama
