#include "ui/window_world.h"

namespace velorama {
namespace {

class MainSettingsTest : public test::WithWindow {
protected:
    static void setColours(const char* background, const char* gradient) {
        setToolSetting("picBACKGROUND", QLatin1String(background));
        setToolSetting("picGRADCOLOR", QLatin1String(gradient));
    }
    static void setInterval(int seconds) {
        setStored("frmCONFIG\\Items", "INTERVAL", QString::number(seconds));
    }
    static QString intervalOf(const QWidget& dialog) {
        return dialog.findChild<updown*>(QStringLiteral("udnINTERVAL"))->Text();
    }
    /// The interval that the dialog shows when this runs it.
    template <typename Action>
    QString shown(const char* button, Action run) {
        QString interval = QStringLiteral("not shown");
        // The display of the tests has no window manager to tell the fixed size to.
        test::expectMessage(QStringLiteral("propagateSizeHints"));
        test::Presser presser{QLatin1String(button)};
        presser.look = [&](const QWidget& form) {
            EXPECT_EQ(form.objectName(), QStringLiteral("frmTOOLSSETTINGS"));
            EXPECT_TRUE(form.isModal());
            EXPECT_EQ(form.parentWidget(), window.get());
            interval = intervalOf(form);
        };
        run();
        EXPECT_EQ(presser.forms.size(), 1);
        return interval;
    }
    QString shownByMenu(const char* button = "btnCANCEL") {
        return shown(button, [this] { commands().settings.trigger(); });
    }
};

TEST_F(MainSettingsTest, ComesUpModalByMenuAndByButton) {
    setInterval(7);
    start();
    EXPECT_EQ(shownByMenu(), QStringLiteral("7"));
    EXPECT_EQ(shown("btnCANCEL", [this] { slideBar().cbtnCONTROLS[8]->click(); }),
              QStringLiteral("7"));
}

TEST_F(MainSettingsTest, LoadsAnewAfterCancelAndAfterOk) {
    setInterval(7);
    start();
    EXPECT_EQ(shownByMenu("btnCANCEL"), QStringLiteral("7"));
    setInterval(9);
    EXPECT_EQ(shownByMenu("btnOK"), QStringLiteral("9"));
    EXPECT_EQ(stored("frmCONFIG\\Items", "INTERVAL"), QStringLiteral("9"));
    setInterval(11);
    EXPECT_EQ(shownByMenu(), QStringLiteral("11"));
}

TEST_F(MainSettingsTest, StaysLoadedOnceTheShowHasAskedForItsColours) {
    setColours("255", "16711680");
    setInterval(7);
    start(album(1));
    EXPECT_EQ(window->findChild<frmTOOLSSETTINGS*>(), nullptr);
    commands().start.trigger();
    ASSERT_TRUE(window->slideShow());
    window->slideShow()->Unload();
    const auto* dialog = window->findChild<frmTOOLSSETTINGS*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(dialog->isUnloaded());
    EXPECT_EQ(dialog->background(), 255);
    EXPECT_EQ(dialog->gradient(), 16711680);
    // The next show finds it as it was loaded; who opens it sees the settings of today.
    setInterval(9);
    setColours("1", "2");
    EXPECT_EQ(window->settings().background(), 255);
    EXPECT_EQ(shownByMenu(), QStringLiteral("9"));
    EXPECT_EQ(window->settings().background(), 1);
    EXPECT_EQ(window->settings().gradient(), 2);
}

TEST_F(MainSettingsTest, AfterAShowItDescribesTheAlbumThatIsOpenNow) {
    const auto noted = [](const QString& path, const char* note) {
        QByteArray text = contentOf(path);
        text.insert(text.indexOf('\r'), QByteArray("|") + note + ' ');
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return path;
    };
    const QString one = noted(album(1), "A day out");
    const QString two = noted(album(1, QStringLiteral("two.vlr")), "Two days");
    setStored("mfrmPRGMAIN\\Items Total", "lvwALBUMSList Total", QStringLiteral("2"));
    setStored("mfrmPRGMAIN\\Details", "lvwALBUMS1", one);
    setStored("mfrmPRGMAIN\\Details", "lvwALBUMS2", two);
    start(one);
    commands().start.trigger();
    ASSERT_TRUE(window->slideShow());
    window->slideShow()->Unload();
    window->album().openFromList(two);
    QString description;
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    test::Presser presser{QStringLiteral("btnCANCEL")};
    presser.look = [&](const QWidget& form) {
        description = form.findChild<QLineEdit*>(QStringLiteral("txtDESC"))->text();
    };
    commands().settings.trigger();
    EXPECT_EQ(description, QStringLiteral("Two days"));
}

TEST_F(MainSettingsTest, ItIsGivenTheOpenAlbum) {
    const QString path = album(1);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0|A day out \r\n\r\n");
    file.close();
    setStored("mfrmPRGMAIN\\Items Total", "lvwALBUMSList Total", QStringLiteral("1"));
    setStored("mfrmPRGMAIN\\Details", "lvwALBUMS1", path);
    start(path);
    const auto description = [this] {
        return window->settings().findChild<QLineEdit*>(QStringLiteral("txtDESC"))->text();
    };
    EXPECT_EQ(description(), QStringLiteral("A day out"));
    shownByMenu();
    commands().newAlbum.trigger();
    EXPECT_EQ(description(), QString());
}

// -- the show --

TEST_F(MainSettingsTest, StartSavesTheSlidesAndShowsThem) {
    start(album(2));
    setStored("frmSLIDESHOW\\Items", "Items", QStringLiteral("9"));
    commands().start.trigger();
    const QPointer<frmSLIDESHOW> show = window->slideShow();
    ASSERT_TRUE(show);
    EXPECT_TRUE(show->isVisible());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(stored("frmSLIDESHOW\\Items", "Items"), QStringLiteral("2"));
    EXPECT_EQ(stored("frmSLIDESHOW\\Selection", "2"), slides().at(1));
    show->Unload();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MainSettingsTest, ThePlayButtonShowsThemToo) {
    start(album(2));
    slideBar().cbtnCONTROLS[6]->click();
    const QPointer<frmSLIDESHOW> show = window->slideShow();
    ASSERT_TRUE(show);
    EXPECT_TRUE(show->isVisible());
    show->Unload();
}

TEST_F(MainSettingsTest, WithoutSlidesNothingStarts) {
    start();
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_FALSE(window->slideShow());
}

}  // namespace
}  // namespace velorama
