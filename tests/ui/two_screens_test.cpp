#include "support/two_screens.h"
#include "ui/window_world.h"

namespace velorama {
namespace {

/// The main window, stored on the right screen, with a found list of a picture.
class TwoScreens : public test::OnTwoScreens<test::WithWindow> {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(OnTwoScreens::SetUp());
        if (IsSkipped()) {
            return;
        }
        browse({QStringLiteral("a.bmp")});
        setStored("mfrmPRGMAIN\\View", "TABIDX", QStringLiteral("2"));
        putPlace("mfrmPRGMAIN\\Window", {1500, 60});
        start();
        QApplication::setActiveWindow(window.get());
    }
    static void putPlace(const char* key, QPoint place) {
        setStored(key, "Left", QString::number(place.x() * 15));
        setStored(key, "Top", QString::number(place.y() * 15));
    }
    /// Where each modal form stands that `command` brings up; each is closed by the button.
    static QRect placeOf(const std::function<void()>& command, const char* closedBy) {
        QRect place;
        test::Presser presser{QLatin1String(closedBy)};
        presser.look = [&place](QWidget& form) { place = form.frameGeometry(); };
        command();
        EXPECT_EQ(presser.forms.size(), 1);
        return place;
    }
    QRect preview() {
        return placeOf([this] { commands().preview.trigger(); }, "cbtnBROWSEBTNS0");
    }
    static QRect message() {
        return placeOf([] { gStatus->MessageBoxOpen(8, QStringLiteral("/a.vlr")); }, "btnOK");
    }
};

TEST_F(TwoScreens, TheMainWindowComesBackToTheSecond) {
    EXPECT_EQ(window->pos(), QPoint(1500, 60));
}

TEST_F(TwoScreens, DialogsOpenOnTheirOwnersScreen) {
    // The platform of the tests has no window manager to tell a fixed size to.
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    EXPECT_TRUE(right().contains(preview()));
    EXPECT_TRUE(right().contains(message()));
    EXPECT_TRUE(right().contains(placeOf([this] { commands().about.trigger(); }, "btnCLOSE")));
    EXPECT_TRUE(right().contains(placeOf([this] { commands().settings.trigger(); }, "btnCANCEL")));
}

TEST_F(TwoScreens, AMessageLeftOnTheOtherScreenComesToItsOwners) {
    putPlace("frmHELPMESSAGEBOX\\Window", {100, 100});
    EXPECT_TRUE(right().contains(message()));
    putPlace("frmHELPMESSAGEBOX\\Window", {1300, 100});
    EXPECT_EQ(message().topLeft(), QPoint(1300, 100));
}

TEST_F(TwoScreens, ThePreviewComesBackWhereItWasLeftOnEither) {
    for (const QPoint place : {QPoint(1300, 40), QPoint(100, 80)}) {
        putPlace("frmPICTUREPREVIEW\\Window", place);
        EXPECT_EQ(preview().topLeft(), place);
    }
}

}  // namespace
}  // namespace velorama
