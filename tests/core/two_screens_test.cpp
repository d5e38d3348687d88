#include "support/two_screens.h"
#include "controls/geometry/twips.h"
#include "core/cls_dlghook.h"
#include "core/cls_registry.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"

#include <QDialog>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace velorama {
namespace {

class TwoScreens : public test::OnTwoScreens<testing::Test> {
protected:
    /// Restores a form that was left with this place, in pixels, and tells where it then is.
    QRect restored(const QRect& stored, bool Full) {
        QWidget form;
        form.setObjectName(QStringLiteral("frmTEST"));
        form.resize(stored.size());
        put("Left", stored.x());
        put("Top", stored.y());
        put("Width", stored.width());
        put("Height", stored.height());
        registry.FormDimensionsSetup(form, Full);
        return form.geometry();
    }
    void put(const char* name, int pixels) {
        store.setValue(Hive::CurrentUser, keyPath(QStringLiteral("frmTEST\\Window")),
                       QLatin1String(name), {ValueType::Text, QByteArray::number(pixels * 15)});
    }

    MemoryRegistryStore store;
    test::RecordingShell shell;
    clsREGISTRY registry{store, shell};
};

TEST_F(TwoScreens, APlaceOnEitherOrOnBothIsKept) {
    for (const bool Full : {true, false}) {
        for (const int x : {0, 100, 1100, 1280, 1500, 2160}) {
            const QRect place(x, 50, 400, 300);
            EXPECT_EQ(restored(place, Full), place) << x;
        }
    }
}

TEST_F(TwoScreens, WhatReachesBeyondTheDesktopComesToTheMiddleOfItsOwnScreen) {
    for (const bool Full : {true, false}) {
        EXPECT_EQ(restored({2161, 50, 400, 300}, Full), QRect(1280 + 440, 50, 400, 300));
        EXPECT_EQ(restored({-1, 50, 400, 300}, Full), QRect(440, 50, 400, 300));
        EXPECT_EQ(restored({1500, -1, 400, 300}, Full), QRect(1500, 210, 400, 300));
        EXPECT_EQ(restored({100, 661, 400, 300}, Full), QRect(100, 330, 400, 300));
    }
}

TEST_F(TwoScreens, WhatIsLargerThanItsScreenStartsAtThatScreensEdge) {
    EXPECT_EQ(restored({1600, -1, 1300, 800}, true), QRect(1280, 0, 1300, 800));
    EXPECT_EQ(restored({1600, -1, 1300, 800}, false), QRect(1270, -40, 1300, 800));
}

TEST_F(TwoScreens, ACornerThatNoScreenShowsIsNoPlace) {
    for (const bool Full : {true, false}) {
        const QRect place = restored({1500, 800, 400, 100}, Full);
        EXPECT_TRUE(left().contains(place) || right().contains(place)) << place.x();
    }
}

TEST_F(TwoScreens, ADialogComesToTheMiddleOfItsOwnersScreen) {
    QWidget owner;
    owner.setGeometry(1700, 300, 200, 100);
    owner.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
    clsDLGHOOK hook;
    hook.subCMNDLGHOOKOPEN();
    QDialog dialog(&owner);
    dialog.resize(400, 300);
    QRect place;
    QTimer::singleShot(0, [&] {
        place = dialog.frameGeometry();
        dialog.reject();
    });
    dialog.exec();
    EXPECT_EQ(place.topLeft(), centredOnScreen(right(), place.size()));
}

}  // namespace
}  // namespace velorama
