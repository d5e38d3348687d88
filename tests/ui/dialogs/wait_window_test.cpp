#include "ui/dialogs/frm_resourcewait.h"

#include "controls/boxes/progress_bar.h"
#include "core/lib_txt.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace velorama {
namespace {

/// Runs `look` while the window is up. Whatever it leaves up is closed, so that no test hangs.
void whileWaiting(frmRESOURCEWAIT& form, const std::function<void()>& look) {
    QTimer::singleShot(0, &form, [&form, look] {
        look();
        form.close();
    });
    form.wait();
}

TEST(WaitWindow, IsOffAtFirst) {
    frmRESOURCEWAIT form;
    EXPECT_EQ(form.objectName(), QStringLiteral("frmRESOURCEWAIT"));
    EXPECT_FALSE(form.tmrWAITING.isActive());
    EXPECT_EQ(form.tmrWAITING.interval(), 1000);
    EXPECT_FALSE(form.isVisible());
}

TEST(WaitWindow, BothLabelsAskForPatience) {
    frmRESOURCEWAIT form;
    EXPECT_EQ(form.lblPLEASEWAIT1->text(), QStringLiteral("Please wait ....."));
    EXPECT_EQ(form.lblPLEASEWAIT2->text(), QStringLiteral("Please wait ....."));
    EXPECT_EQ(form.lblPLEASEWAIT1->objectName(), QStringLiteral("lblPLEASEWAIT1"));
    EXPECT_EQ(form.lblPLEASEWAIT2->objectName(), QStringLiteral("lblPLEASEWAIT2"));
    EXPECT_EQ(form.prgWAITING->objectName(), QStringLiteral("prgWAITING"));
}

TEST(WaitWindow, TheFirstTickEndsIt) {
    frmRESOURCEWAIT form;
    bool looked = false;
    whileWaiting(form, [&] {
        looked = true;
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
        EXPECT_EQ(form.windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(form.tmrWAITING.isActive());
        EXPECT_TRUE(form.lblPLEASEWAIT1->isVisible());
        EXPECT_TRUE(form.lblPLEASEWAIT2->isVisible());
        EXPECT_TRUE(form.prgWAITING->isVisible());
        EXPECT_EQ(form.prgWAITING->Value(), 0);
        form.tmrWAITING_Timer();
        EXPECT_FALSE(form.isVisible());
        EXPECT_FALSE(form.tmrWAITING.isActive());
    });
    EXPECT_TRUE(looked);
}

TEST(WaitWindow, NoKeyEndsIt) {
    frmRESOURCEWAIT form;
    whileWaiting(form, [&] {
        QTest::keyClick(&form, Qt::Key_Escape);
        QTest::keyClick(&form, Qt::Key_Return);
        EXPECT_TRUE(form.isVisible());
    });
}

TEST(WaitWindow, ClosedBeforehandItTicksNoMore) {
    frmRESOURCEWAIT form;
    whileWaiting(form, [&] { form.close(); });
    EXPECT_FALSE(form.tmrWAITING.isActive());
}

TEST(WaitWindow, ItsOwnerMayGoFirst) {
    auto* owner = new QWidget;
    auto* form = new frmRESOURCEWAIT(owner);
    QTimer::singleShot(0, owner, [owner] { delete owner; });
    form->wait();
    SUCCEED();
}

}  // namespace
}  // namespace velorama
