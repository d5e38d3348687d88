#include "controls/browser/page_addresses.h"
#include "core/lib_txt.h"
#include "platform/numbers.h"
#include "shell/frm_helpcenter.h"
#include "shell/help_world.h"
#include "shell/update_check.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>

namespace velorama {
namespace {

QString tree() {
    return QStringLiteral(VELORAMA_SOURCE_DIR "/server");
}

/// Paths below the tree, from "/" on.
QStringList files(const QString& pattern) {
    QStringList found;
    QDirIterator walk(tree(), {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        found.append(walk.next().mid(tree().size()));
    }
    found.sort();
    return found;
}

QString content(const QString& path) {
    QFile file(tree() + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// What the page's attributes href and src name.
QStringList references(const QString& page) {
    static const QRegularExpression attribute(QStringLiteral("\\b(?:href|src)=\"([^\"]*)\""));
    QStringList found;
    for (auto match = attribute.globalMatch(page); match.hasNext();) {
        found.append(match.next().captured(1));
    }
    return found;
}

QString target(const QString& page, const QString& reference) {
    return QUrl(QStringLiteral("http://server.invalid") + page).resolved(QUrl(reference)).path();
}

TEST(ServerTree, EveryLinkAndPictureLeadsToAFile) {
    int checked = 0;
    for (const QString& page : files(QStringLiteral("*.html"))) {
        for (const QString& reference : references(content(page))) {
            if (reference.startsWith(QLatin1String("mailto:"))) {
                continue;
            }
            EXPECT_TRUE(QUrl(reference).isRelative()) << reference.toStdString();
            EXPECT_TRUE(QFileInfo(tree() + target(page, reference)).isFile())
                << page.toStdString() << " leads to " << reference.toStdString();
            ++checked;
        }
    }
    EXPECT_GT(checked, 80);
}

TEST(ServerTree, EveryFileIsLedTo) {
    const QStringList entries = {QStringLiteral("/updates/update_vr.txt"),
                                 QStringLiteral("/help/home/index.html")};
    QStringList reached = entries;
    for (const QString& page : files(QStringLiteral("*.html"))) {
        for (const QString& reference : references(content(page))) {
            reached.append(target(page, reference));
        }
    }
    for (const QString& file : files(QStringLiteral("*"))) {
        EXPECT_TRUE(reached.contains(file)) << file.toStdString();
    }
}

TEST(ServerTree, HoldsWhatTheProgramAsksFor) {
    fillTextConstants(2026, QStringLiteral("http://server.invalid/"));
    const QStringList addresses = {libTxt.WebsiteUrl,
                                   libTxt.SupportUrl,
                                   libTxt.UpdateUrl,
                                   libTxt.HelpUrl + QStringLiteral("index.html"),
                                   libTxt.HelpUrl + QStringLiteral("menuhelpgettingstarted.html"),
                                   libTxt.HelpUrl + QStringLiteral("menuhelpsupport.html"),
                                   libTxt.HelpUrl + QStringLiteral("menutoolsoptions.html")};
    for (const QString& address : addresses) {
        EXPECT_TRUE(QFileInfo(tree() + QUrl(address).path()).isFile()) << address.toStdString();
    }
}

TEST(ServerTree, TheUpdateFileHoldsThisVersion) {
    fillTextConstants(2026, QStringLiteral("http://server.invalid/"));
    const QString version = content(QStringLiteral("/updates/update_vr.txt"));
    EXPECT_EQ(version.trimmed(), libTxt.VersionNumber);
    EXPECT_EQ(updateOutcome(libTxt.VersionNumber, version), UpdateOutcome::Latest);
}

TEST(ServerTree, PagesHaveATitleAndKeepTheColoursOfTheDesktop) {
    for (const QString& page : files(QStringLiteral("*.html"))) {
        const QString text = content(page);
        const QString name =
            text.section(QStringLiteral("<title>"), 1).section(QStringLiteral("</title>"), 0, 0);
        EXPECT_FALSE(name.isEmpty()) << page.toStdString();
        EXPECT_TRUE(text.contains(QStringLiteral("<h1>") + name)) << page.toStdString();
        EXPECT_FALSE(
            text.contains(QRegularExpression(QStringLiteral("color=|style=|<font|<script"))))
            << page.toStdString();
    }
}

class HostedTree : public test::WithServer {
protected:
    HostedTree() { server.serveFolder(tree()); }
};

TEST_F(HostedTree, EveryHelpPageIsShownWithItsPictures) {
    webWINDOW web;
    web.resize(700, 500);
    web.show();
    for (const QString& page : files(QStringLiteral("*.html"))) {
        web.Navigate(server.address(page));
        ASSERT_TRUE(QTest::qWaitFor([&web] { return !web.isLoading(); }, 20000));
        EXPECT_FALSE(web.toPlainText().contains(QLatin1String("cannot be shown")));
        EXPECT_EQ(web.document()->toPlainText().isEmpty(), false);
        for (const QUrl& picture : picturesOf(*web.document())) {
            const auto shown = web.document()->resource(QTextDocument::ImageResource, picture);
            EXPECT_GT(shown.value<QImage>().width(), 100) << picture.toString().toStdString();
        }
    }
}

TEST_F(HostedTree, TheButtonsOfTheHelpWindowFindTheirPages) {
    HelpCenter center(nullptr);
    gLibrary->subHELPCENTERPAGEINDEX();
    frmHELPCENTER& form = *center.form();
    const auto title = [&form] {
        EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.webWINDOW->isLoading(); }, 20000));
        return form.webWINDOW->document()->firstBlock().text();
    };
    EXPECT_EQ(title(), QStringLiteral("Velorama Help"));
    form.cbtnSTARTED->click();
    EXPECT_EQ(title(), QStringLiteral("Getting Started"));
    form.cbtnEMAIL->click();
    EXPECT_EQ(title(), QStringLiteral("Support"));
    form.cbtnHOME->click();
    EXPECT_EQ(title(), QStringLiteral("Help"));
}

}  // namespace
}  // namespace velorama
