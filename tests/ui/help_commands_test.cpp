#include "shell/frm_helpabout.h"
#include "shell/frm_helpcheckupdate.h"
#include "ui/dialogs/frm_resourcewait.h"
#include "ui/window_world.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

class HelpCommandsTest : public test::WithWindow {
protected:
    HelpCommandsTest() { start(); }

    /// What a form does when it comes up over the others; each comes up once.
    template <typename Form>
    void whenUp(const std::function<void(Form&)>& step) {
        auto* timer = new QTimer(window.get());
        QObject::connect(timer, &QTimer::timeout, timer, [timer, step] {
            if (auto* form = qobject_cast<Form*>(QApplication::activeModalWidget())) {
                delete timer;
                step(*form);
            }
        });
        timer->start(1);
    }
};

TEST_F(HelpCommandsTest, TheCheckOfAboutStandsOverItAndNamesItsCloseButtonBetweenBlanks) {
    bool told = false;
    whenUp<frmHELPABOUT>([&](frmHELPABOUT& about) {
        whenUp<frmRESOURCEWAIT>([](frmRESOURCEWAIT& wait) { wait.close(); });
        whenUp<frmHELPCHECKUPDATE>([&](frmHELPCHECKUPDATE& check) {
            told = true;
            EXPECT_EQ(check.parentWidget(), &about);
            EXPECT_EQ(check.btnNO->text(), QStringLiteral(" &Close "));
            check.reject();
        });
        about.btnUPDATES->click();
        EXPECT_TRUE(told);
        about.reject();
    });
    commands().about.trigger();
    EXPECT_TRUE(told);
}

TEST_F(HelpCommandsTest, TheCheckOfTheMenuStandsOverTheWindow) {
    bool told = false;
    whenUp<frmRESOURCEWAIT>([](frmRESOURCEWAIT& wait) { wait.close(); });
    whenUp<frmHELPCHECKUPDATE>([&](frmHELPCHECKUPDATE& check) {
        told = true;
        EXPECT_EQ(check.parentWidget(), window.get());
        EXPECT_EQ(check.btnNO->text(), QStringLiteral("&Close"));
        check.reject();
    });
    commands().updateCheck.trigger();
    EXPECT_TRUE(told);
}

}  // namespace
}  // namespace velorama
