#include "shell/update_check.h"

#include "controls/boxes/label.h"
#include "shell/frm_helpabout.h"
#include "shell/frm_helpcheckupdate.h"
#include "shell/help_world.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace velorama {
namespace {

using namespace std::chrono_literals;

const QString updatePath = QStringLiteral("/updates/update_vr.txt");

TEST(UpdateOutcome, ComparesTheNumbersThatTheTextsBeginWith) {
    struct Row {
        const char* current;
        const char* result;
        UpdateOutcome outcome;
    };
    const std::vector<Row> rows = {
        {"1.003002", "1.003002", UpdateOutcome::Latest},
        {"1.003002", "1.003001", UpdateOutcome::Latest},
        {"1.003002", "1.003003", UpdateOutcome::Newer},
        {"1.009999", "1.010000", UpdateOutcome::Newer},
        {"1.009000", "1.10", UpdateOutcome::Newer},
        {"1.110000", "1.10", UpdateOutcome::Latest},
        {"1.003002", "1.003003\r\n", UpdateOutcome::Newer},
        {"1.003002", "  2 is out, with more to see", UpdateOutcome::Newer},
        {"1.003002", "version 2", UpdateOutcome::Latest},
        {"1.003002", "\r\n", UpdateOutcome::Latest},
        {"1.003002", "<html>2</html>", UpdateOutcome::Latest},
        {"1.003002", "1e9999", UpdateOutcome::Latest},
        {"1.003002", "", UpdateOutcome::NoAnswer},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(updateOutcome(QString::fromLatin1(row.current), QString::fromLatin1(row.result)),
                  row.outcome)
            << row.current << " against " << row.result;
    }
}

class Updates : public test::WithServer {
protected:
    using Look = std::function<void(frmHELPCHECKUPDATE& form)>;

    /// Checks for updates and looks at the dialog.
    void check(const Look& look) {
        whenUp<frmHELPCHECKUPDATE>(look);
        UpdateCheck(fetch, [this](QWidget* owner) {
            ++waits;
            EXPECT_EQ(owner, &window);
        }).run(&window);
        EXPECT_EQ(looks, 1);
        EXPECT_EQ(waits, 1);
        EXPECT_TRUE(window.findChildren<QDialog*>().isEmpty());
    }
    void answer(const QByteArray& body, const QByteArray& status = "200 OK") {
        server.answer(updatePath, body, "text/plain", status);
    }
    static void expectNoAnswer(const frmHELPCHECKUPDATE& form) {
        EXPECT_EQ(form.lblDESCRIPTION->text(),
                  QStringLiteral("There is an error accessing, please try later."));
        EXPECT_EQ(form.lblHELPTEXT->text(),
                  QStringLiteral("If this persists please check your connection."));
        EXPECT_EQ(form.lblPROGNO->Caption(), QStringLiteral("Latest Version: "));
        EXPECT_EQ(form.btnNO->text(), QStringLiteral("&Close"));
        EXPECT_FALSE(form.btnYES->isVisible());
    }
    static void expectLatest(const frmHELPCHECKUPDATE& form, const QString& result) {
        EXPECT_EQ(form.lblDESCRIPTION->text(), QStringLiteral("You have the latest version."));
        EXPECT_EQ(form.lblHELPTEXT->text(),
                  QStringLiteral("If you need updates then please contact support."));
        EXPECT_EQ(form.lblPROGNO->Caption(), QStringLiteral("Latest Version: ") + result);
        EXPECT_EQ(form.btnNO->text(), QStringLiteral("&Close"));
        EXPECT_FALSE(form.btnYES->isVisible());
    }

    QWidget window;
    NetworkFetch fetch;
    int waits = 0;
};

TEST_F(Updates, TheDialogIsMadeForANewerVersion) {
    libTxt.VersionNumber = QStringLiteral("1.003002");
    const frmHELPCHECKUPDATE form(nullptr);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Check for Updates"));
    EXPECT_EQ(form.lblTITLE->text(), QStringLiteral("Velorama"));
    EXPECT_EQ(form.lblDESCRIPTION->text(), QStringLiteral("There is a newer version available."));
    EXPECT_EQ(form.lblPROGNO->Caption(), QStringLiteral("New Version:"));
    EXPECT_EQ(form.lblCURRENT->text(), QStringLiteral("Version: 1.003002"));
    EXPECT_EQ(form.lblHELPTEXT->text(), QStringLiteral("Press Yes to Download new version or press "
                                                       "No to return to the document."));
    EXPECT_EQ(form.btnYES->text(), QStringLiteral("&Yes"));
    EXPECT_EQ(form.btnNO->text(), QStringLiteral("&No "));
}

TEST_F(Updates, ANewerVersionIsOffered) {
    answer("1.900000");
    check([](const frmHELPCHECKUPDATE& form) {
        EXPECT_TRUE(form.isModal());
        EXPECT_EQ(form.lblDESCRIPTION->text(),
                  QStringLiteral("There is a newer version available."));
        EXPECT_EQ(form.lblPROGNO->Caption(), QStringLiteral("Latest Version: 1.900000"));
        EXPECT_EQ(form.lblHELPTEXT->text(),
                  QStringLiteral("Press Yes to Download new version or press No to return to the "
                                 "document."));
        EXPECT_TRUE(form.btnYES->isVisible());
        EXPECT_TRUE(form.btnYES->isDefault());
        EXPECT_EQ(form.btnNO->text(), QStringLiteral("&No "));
    });
    EXPECT_EQ(server.asked, QStringList({updatePath}));
    EXPECT_TRUE(shell.opened.isEmpty());
}

TEST_F(Updates, YesOpensTheHomePageAndCloses) {
    answer("1.900000");
    check([this](frmHELPCHECKUPDATE& form) {
        QTest::mouseClick(form.btnYES, Qt::LeftButton);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(shell.opened,
                  QStringList({server.address(QStringLiteral("/Velorama/index.html"))}));
    });
}

TEST_F(Updates, NoAndEscapeOnlyClose) {
    answer("1.900000");
    check([](frmHELPCHECKUPDATE& form) {
        QTest::mouseClick(form.btnNO, Qt::LeftButton);
        EXPECT_FALSE(form.isVisible());
    });
    looks = waits = 0;
    check([](frmHELPCHECKUPDATE& form) {
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_TRUE(shell.opened.isEmpty());
}

TEST_F(Updates, TheProgramsOwnVersionIsTheLatest) {
    answer(libTxt.VersionNumber.toUtf8());
    check([](const frmHELPCHECKUPDATE& form) { expectLatest(form, libTxt.VersionNumber); });
}

TEST_F(Updates, ABodyWithoutANumberIsShownAsTheLatest) {
    answer("soon\r\n");
    check([](const frmHELPCHECKUPDATE& form) { expectLatest(form, QStringLiteral("soon\r\n")); });
}

TEST_F(Updates, TextBehindTheNumberIsShownToo) {
    answer("0.9 and nothing since");
    check([](const frmHELPCHECKUPDATE& form) {
        expectLatest(form, QStringLiteral("0.9 and nothing since"));
    });
}

TEST_F(Updates, TheWordErrorAnywhereIsNoAnswer) {
    answer("1.900000 Error");
    check(expectNoAnswer);
}

TEST_F(Updates, TheWordErrorCountsInItsOwnCaseOnly) {
    answer("1.900000 error");
    check([](const frmHELPCHECKUPDATE& form) { EXPECT_TRUE(form.btnYES->isVisible()); });
}

TEST_F(Updates, AServerThatAnswersWithAnErrorIsNoAnswer) {
    answer("9.000000", "404 Not Found");
    check(expectNoAnswer);
}

TEST_F(Updates, AnEmptyFileIsNoAnswer) {
    answer("");
    check(expectNoAnswer);
}

TEST_F(Updates, ARefusedConnectionIsNoAnswer) {
    server.shut();
    check(expectNoAnswer);
}

TEST_F(Updates, ASilentServerIsNoAnswer) {
    server.behave(updatePath, [](QTcpSocket&) {});
    HttpLimits limits;
    limits.time = 100ms;
    NetworkFetch hurried(limits);
    whenUp<frmHELPCHECKUPDATE>(expectNoAnswer);
    UpdateCheck(hurried, [](QWidget*) {}).run(&window);
    EXPECT_EQ(looks, 1);
}

TEST_F(Updates, ALongAnswerLeavesTheDialogItsWidth) {
    int plain = 0;
    answer("0.5");
    check([&plain](const frmHELPCHECKUPDATE& form) { plain = form.width(); });
    looks = waits = 0;
    server.pour(updatePath, 1024LL * 1024 * 1024);
    check([plain](frmHELPCHECKUPDATE& form) {
        EXPECT_EQ(form.width(), plain);
        EXPECT_EQ(form.lblPROGNO->Caption().size(), 16 + 64 * 1024);
        form.grab();
        EXPECT_LE(form.lblPROGNO->toolTip().size(), 2000);
    });
}

TEST_F(Updates, AnAnswerInMarkupIsShownAsItIs) {
    answer(QByteArray("0.5 <img src='/etc/x.png'> & <b>bold</b> ").repeated(9));
    check([](frmHELPCHECKUPDATE& form) {
        form.grab();
        const QString tooltip = form.lblPROGNO->toolTip();
        EXPECT_TRUE(tooltip.contains(QLatin1String("&lt;b&gt;"))) << tooltip.toStdString();
        EXPECT_FALSE(tooltip.contains(QLatin1String("<img")));
    });
}

TEST_F(Updates, ThePointerWaitsWhileTheServerIsAsked) {
    bool waiting = false;
    server.behave(updatePath, [&waiting](QTcpSocket& socket) {
        waiting = QGuiApplication::overrideCursor() != nullptr;
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\n0.5");
    });
    check([](const frmHELPCHECKUPDATE&) { EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); });
    EXPECT_TRUE(waiting);
}

// The program may end while the check waits: its windows go, and nothing comes up any more.
TEST_F(Updates, AnOwnerThatGoesTakesTheCheckAlong) {
    auto* owner = new QWidget;
    answer("1.900000");
    UpdateCheck(fetch, [owner](QWidget*) { delete owner; }).run(owner);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Updates, AnOwnerClosedWhileTheServerIsAskedEndsTheCheck) {
    window.show();
    server.behave(updatePath, [this](QTcpSocket& socket) {
        window.close();
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\n9.5");
    });
    whenUp<frmHELPCHECKUPDATE>([](frmHELPCHECKUPDATE&) {});
    UpdateCheck(fetch, [this](QWidget*) { ++waits; }).run(&window);
    EXPECT_EQ(waits, 0);
    EXPECT_EQ(looks, 0);
}

/// Notes what it is asked for.
class NotingFetch : public HttpFetch {
public:
    explicit NotingFetch(QStringList& notes) : notes_(notes) {}
    QString OpenURL(const QString&) override {
        notes_.append(QStringLiteral("open"));
        return QStringLiteral("0.5");
    }
    void Cancel() override { notes_.append(QStringLiteral("cancel")); }

private:
    QStringList& notes_;
};

TEST_F(Updates, TheFetchComesBeforeTheWaitAndIsCancelledBehindTheDialog) {
    QStringList notes;
    NotingFetch noting(notes);
    whenUp<frmHELPCHECKUPDATE>(
        [&notes](frmHELPCHECKUPDATE&) { notes.append(QStringLiteral("dialog")); });
    UpdateCheck(noting, [&notes](QWidget*) { notes.append(QStringLiteral("wait")); }).run(&window);
    EXPECT_EQ(notes, QStringList({QStringLiteral("open"), QStringLiteral("wait"),
                                  QStringLiteral("dialog"), QStringLiteral("cancel")}));
}

class About : public Updates {};

TEST_F(About, TellsNameVersionAndLegalNotice) {
    frmHELPABOUT form(nullptr, QIcon());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("About"));
    EXPECT_EQ(form.lblMAINTITLE->text(), QStringLiteral("Velorama"));
    EXPECT_EQ(form.lblVERSION->text(), libTxt.VersionText);
    EXPECT_EQ(form.lblCOPYRIGHT->text(), libTxt.LegalLine);
    EXPECT_EQ(form.textCOPYRIGHT->toPlainText(), libTxt.AboutText);
    EXPECT_TRUE(form.textCOPYRIGHT->isReadOnly());
    EXPECT_EQ(form.btnCLOSE->text(), QStringLiteral("&Close"));
    EXPECT_EQ(form.btnUPDATES->text(), QStringLiteral("Check for &Updates"));
    EXPECT_TRUE(form.btnCLOSE->isDefault());
    EXPECT_EQ(form.objectName(), QStringLiteral("frmHELPABOUT"));
}

TEST_F(About, ShowsTheProgramsIcon) {
    QPixmap picture(64, 64);
    picture.fill(Qt::red);
    const frmHELPABOUT form(nullptr, QIcon(picture));
    EXPECT_EQ(form.imgICON->pixmap().toImage().pixelColor(32, 32), QColor(Qt::red));
}

TEST_F(About, CloseUnloads) {
    whenUp<frmHELPABOUT>([](frmHELPABOUT& form) {
        QTest::mouseClick(form.btnCLOSE, Qt::LeftButton);
        EXPECT_FALSE(form.isVisible());
    });
    frmHELPABOUT(nullptr, QIcon()).exec();
    EXPECT_EQ(looks, 1);
}

}  // namespace
}  // namespace velorama
