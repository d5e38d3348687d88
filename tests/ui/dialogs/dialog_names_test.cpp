#include "shell/frm_helpabout.h"
#include "shell/frm_helpcenter.h"
#include "shell/frm_helpcheckupdate.h"
#include "ui/dialogs/frm_picturepreview.h"
#include "ui/dialogs/frm_resourcewait.h"
#include "ui/dialogs/frm_toolssettings.h"
#include "ui/window_world.h"

#include <QAccessible>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>

namespace velorama {
namespace {

/// What a screen reader and a keyboard find in each dialog.
class DialogNames : public test::WithMenus {
protected:
    DialogNames() { start(); }

    static bool isPart(const QWidget& control) {
        return qobject_cast<const QScrollBar*>(&control) != nullptr ||
               qobject_cast<const QAbstractSpinBox*>(control.parentWidget()) != nullptr ||
               control.focusProxy() != nullptr;
    }
    static QList<QWidget*> reachable(const QWidget& form) {
        QList<QWidget*> controls = form.findChildren<QWidget*>();
        controls.removeIf([](const QWidget* control) {
            return isPart(*control) || !control->isVisible() || !control->isEnabled() ||
                   (control->focusPolicy() & Qt::TabFocus) == 0;
        });
        return controls;
    }
    static void expectNamesAndRoles(QWidget& form, int least) {
        form.show();
        form.activateWindow();
        QApplication::processEvents();
        const QList<QWidget*> controls = reachable(form);
        EXPECT_GE(controls.size(), least) << form.objectName().toStdString();
        for (QWidget* control : controls) {
            const std::string name =
                form.objectName().toStdString() + " " + control->objectName().toStdString();
            QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(face, nullptr) << name;
            EXPECT_FALSE(face->text(QAccessible::Name).trimmed().isEmpty()) << name;
            EXPECT_NE(face->role(), QAccessible::NoRole) << name;
            EXPECT_NE(face->role(), QAccessible::Client) << name;
        }
        expectRoundByTab(form, controls);
        form.hide();
    }
    // The Tab key reaches each of them and comes round.
    static void expectRoundByTab(QWidget& form, const QList<QWidget*>& controls) {
        if (controls.isEmpty()) {
            return;
        }
        controls.first()->setFocus(Qt::TabFocusReason);
        QSet<QWidget*> seen;
        for (qsizetype i = 0; i < 2 * controls.size(); ++i) {
            QWidget* now = QApplication::focusWidget();
            ASSERT_NE(now, nullptr) << form.objectName().toStdString();
            seen.insert(now);
            QTest::keyClick(now, Qt::Key_Tab);
        }
        for (QWidget* control : controls) {
            EXPECT_TRUE(seen.contains(control))
                << form.objectName().toStdString() << " " << control->objectName().toStdString();
        }
    }
};

TEST_F(DialogNames, OfTheSettings) {
    frmTOOLSSETTINGS form(window.get(), QString(), *albumControls().lvwALBUMS);
    expectNamesAndRoles(form, 7);
}

TEST_F(DialogNames, OfThePreview) {
    frmPICTUREPREVIEW form(window.get());
    expectNamesAndRoles(form, 1);
}

TEST_F(DialogNames, OfAboutAndUpdate) {
    frmHELPABOUT about(window.get(), QIcon());
    expectNamesAndRoles(about, 2);
    frmHELPCHECKUPDATE update(window.get());
    expectNamesAndRoles(update, 1);
}

TEST_F(DialogNames, OfTheHelpCenter) {
    frmHELPCENTER form;
    expectNamesAndRoles(form, 4);
}

}  // namespace
}  // namespace velorama
