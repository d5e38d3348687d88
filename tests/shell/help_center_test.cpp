#include "shell/frm_helpcenter.h"

#include "core/globals.h"
#include "shell/help_world.h"

#include <QDialog>
#include <QTest>
#include <QWindow>

namespace velorama {
namespace {

class Help : public test::WithServer {
protected:
    Help() {
        page("/help/vrhelp/index.html", "index page");
        page("/help/vrhelp/menuhelpgettingstarted.html", "started page");
        page("/help/vrhelp/menuhelpsupport.html", "support page");
        page("/help/home/index.html", "home page");
        main.winId();
    }
    void page(const char* path, const QByteArray& body) {
        server.answer(QString::fromLatin1(path), body);
    }
    frmHELPCENTER& form() { return *center.form(); }
    /// The page and its refresh, which follows at once.
    void settle() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !form().webWINDOW->isLoading(); }, 20000));
    }
    void openIndex() {
        gLibrary->subHELPCENTERPAGEINDEX();
        ASSERT_NE(center.form(), nullptr);
        settle();
    }
    void press(cbtn* button) {
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }
    QString shown() { return form().webWINDOW->toPlainText(); }
    static int helpWindows() {
        int count = 0;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            count += window->isVisible() && window->objectName() == QLatin1String("frmHELPCENTER");
        }
        return count;
    }

    QWidget main;
    HelpCenter center{&main};
};

TEST_F(Help, TheWindowReadsAsDesigned) {
    openIndex();
    EXPECT_EQ(form().windowTitle(), QStringLiteral("Help"));
    EXPECT_EQ(form().lblHEADERCAPTION->text(), QStringLiteral("Help Center"));
    EXPECT_FALSE(form().isModal());
    const struct {
        const cbtn* button;
        const char* name;
        const char* text;
        const char* tooltip;
    } rows[] = {
        {form().cbtnSTARTED, "cbtnSTARTED", "Getting Started", "Open the Getting Started page"},
        {form().cbtnEMAIL, "cbtnEMAIL", "E-mail", "Send an Email"},
        {form().cbtnHOME, "cbtnHOME", "Index", "Go to Home page"},
        {form().cbtnCLOSE, "cbtnCLOSE", "Close", "Close Help Center"},
        {form().cbtnBACK, "cbtnBACK", "Back", "Go Back"},
        {form().cbtnFORWARD, "cbtnFORWARD", "Forward", "Go Forward"},
    };
    int left = 0;
    for (const auto& row : rows) {
        EXPECT_EQ(row.button->objectName(), QString::fromLatin1(row.name));
        EXPECT_EQ(row.button->text(), QString::fromLatin1(row.text));
        EXPECT_EQ(row.button->toolTip(), QString::fromLatin1(row.tooltip));
        EXPECT_GT(row.button->x(), left) << row.name;
        left = row.button->x();
    }
}

TEST_F(Help, TheFirstRequestNavigatesAndShowsTheWindow) {
    EXPECT_EQ(center.form(), nullptr);
    openIndex();
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(shown(), QStringLiteral("index page"));
    EXPECT_EQ(form().webWINDOW->LocationURL(),
              server.address(QStringLiteral("/help/vrhelp/index.html")));
}

TEST_F(Help, ASecondRequestOnlyNavigates) {
    openIndex();
    const frmHELPCENTER* first = center.form();
    gLibrary->subHELPCENTERPAGEOPEN(QStringLiteral("menuhelpsupport.html"));
    settle();
    EXPECT_EQ(center.form(), first);
    EXPECT_EQ(helpWindows(), 1);
    EXPECT_EQ(shown(), QStringLiteral("support page"));
}

TEST_F(Help, EachPageIsRefreshedOnceItIsComplete) {
    openIndex();
    const QString path = QStringLiteral("/help/vrhelp/index.html");
    EXPECT_EQ(server.asked, QStringList({path, path}));
}

TEST_F(Help, TheWindowsActivationRefreshes) {
    openIndex();
    const auto before = server.asked.size();
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(&form(), &activate);
    settle();
    EXPECT_EQ(server.asked.size(), before + 1);
}

TEST_F(Help, TheButtonsOpenTheirPages) {
    openIndex();
    press(form().cbtnSTARTED);
    EXPECT_EQ(shown(), QStringLiteral("started page"));
    press(form().cbtnEMAIL);
    EXPECT_EQ(shown(), QStringLiteral("support page"));
    press(form().cbtnHOME);
    EXPECT_EQ(shown(), QStringLiteral("home page"));
    EXPECT_EQ(form().webWINDOW->LocationURL(),
              server.address(QStringLiteral("/help/home/index.html")));
}

TEST_F(Help, BackAndForwardFollowTheBrowser) {
    openIndex();
    EXPECT_FALSE(form().cbtnBACK->isEnabled());
    EXPECT_FALSE(form().cbtnFORWARD->isEnabled());
    press(form().cbtnSTARTED);
    EXPECT_TRUE(form().cbtnBACK->isEnabled());
    EXPECT_FALSE(form().cbtnFORWARD->isEnabled());
    press(form().cbtnBACK);
    EXPECT_EQ(shown(), QStringLiteral("index page"));
    EXPECT_FALSE(form().cbtnBACK->isEnabled());
    EXPECT_TRUE(form().cbtnFORWARD->isEnabled());
    press(form().cbtnFORWARD);
    EXPECT_EQ(shown(), QStringLiteral("started page"));
    EXPECT_TRUE(form().cbtnBACK->isEnabled());
    EXPECT_FALSE(form().cbtnFORWARD->isEnabled());
}

TEST_F(Help, EachCommandsStateSetsBothButtons) {
    openIndex();
    const auto tell = [this](int command, bool enable) {
        emit form().webWINDOW->CommandStateChange(command, enable);
    };
    tell(1, true);
    EXPECT_TRUE(form().cbtnFORWARD->isEnabled());
    EXPECT_FALSE(form().cbtnBACK->isEnabled());
    tell(2, true);
    form().cbtnFORWARD->setEnabled(false);
    tell(-1, false);
    EXPECT_TRUE(form().cbtnFORWARD->isEnabled()) << "any command sets both from the flags";
    EXPECT_TRUE(form().cbtnBACK->isEnabled());
    tell(1, false);
    tell(2, false);
    EXPECT_FALSE(form().cbtnFORWARD->isEnabled());
    EXPECT_FALSE(form().cbtnBACK->isEnabled());
}

TEST_F(Help, WithoutAServerThePageSaysSo) {
    server.shut();
    openIndex();
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(shown().contains(QLatin1String("This page cannot be shown")));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Help, WithoutAServerItHasTheFirstStepsAndTheKeys) {
    server.shut();
    openIndex();
    for (const char* text : {"Your first show takes five steps.", "Esc ends it.", "Keep your work",
                             "make the picture the wallpaper of the desktop",
                             "leaves the show, even Shift alone", "closes the preview"}) {
        EXPECT_TRUE(shown().contains(QLatin1String(text))) << text;
    }
    EXPECT_FALSE(shown().contains(QLatin1String("All topics")));
    EXPECT_FALSE(shown().contains(QChar::ObjectReplacementCharacter)) << "a picture";
    const QString html = form().webWINDOW->toHtml();
    EXPECT_EQ(html.count(QLatin1String("<a href")), 1) << "to try again";
}

TEST_F(Help, F1GoesNoFurther) {
    openIndex();
    const auto before = server.asked.size();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    key.ignore();
    QApplication::sendEvent(form().webWINDOW, &key);
    EXPECT_TRUE(key.isAccepted());
    EXPECT_EQ(server.asked.size(), before);
}

TEST_F(Help, LinksToOtherServersOpenInTheBrowser) {
    openIndex();
    emit form().webWINDOW->OutsideLink(QUrl(QStringLiteral("http://other.invalid/a b.html")));
    emit form().webWINDOW->OutsideLink(QUrl(QStringLiteral("mailto:ann@mail.invalid")));
    EXPECT_EQ(shell.opened, QStringList({QStringLiteral("http://other.invalid/a%20b.html"),
                                         QStringLiteral("mailto:ann@mail.invalid")}));
}

TEST_F(Help, CloseUnloadsAndTheNextRequestMakesAnew) {
    openIndex();
    const QPointer<frmHELPCENTER> first = center.form();
    press(form().cbtnSTARTED);
    form().resize(700, 500);
    QTest::mouseClick(form().cbtnCLOSE, Qt::LeftButton);
    EXPECT_EQ(helpWindows(), 0);
    openIndex();
    EXPECT_EQ(helpWindows(), 1);
    EXPECT_FALSE(form().cbtnBACK->isEnabled());
    EXPECT_EQ(form().size(), QSize(700, 500)) << "where and as large as it was left";
}

TEST_F(Help, ItsPlaceIsKeptUnderItsName) {
    openIndex();
    form().resize(700, 500);
    form().close();
    const auto width = store.value(
        Hive::CurrentUser, QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\frmHELPCENTER\\Window"),
        QStringLiteral("Width"));
    ASSERT_TRUE(width);
    EXPECT_EQ(width->data, QByteArray("10500"));
}

TEST_F(Help, AskedForInADialogItStandsAboveTheDialog) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    openIndex();
    EXPECT_EQ(form().windowHandle()->transientParent(), dialog.windowHandle());
    center.unload();
    dialog.close();
    openIndex();
    EXPECT_EQ(form().windowHandle()->transientParent(), main.windowHandle());
}

TEST_F(Help, UnloadClosesItWhileAPageLoads) {
    server.behave(QStringLiteral("/help/vrhelp/index.html"), [](QTcpSocket&) {});
    gLibrary->subHELPCENTERPAGEINDEX();
    center.unload();
    EXPECT_EQ(center.form(), nullptr);
    EXPECT_EQ(helpWindows(), 0);
}

}  // namespace
}  // namespace velorama
