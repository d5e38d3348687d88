#include "controls/browser/web_window.h"

#include "support/http_server.h"
#include "support/waiting.h"

#include <QBuffer>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace std::chrono_literals;
using Commands = std::vector<std::pair<int, bool>>;

QByteArray picture(const QColor& colour, int side = 40, const char* format = "png") {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

QByteArray longPage(const QByteArray& text) {
    return "<p>" + text + "</p>" + QByteArray("<p>line</p>").repeated(200) +
           "<p><a name=\"end\">the end</a></p>";
}

class WebWindow : public testing::Test {
protected:
    WebWindow() {
        web.resize(400, 300);
        QObject::connect(&web, &webWINDOW::CommandStateChange, &web, [this](int command, bool on) {
            (command == webWINDOW::CommandForward ? forward : back) = on;
            ++commandEvents;
        });
        QObject::connect(&web, &webWINDOW::DocumentComplete, &web,
                         [this](const QString& address) { completed.append(address); });
        QObject::connect(&web, &webWINDOW::OutsideLink, &web,
                         [this](const QUrl& address) { outside.append(address.toString()); });
    }

    QString at(const char* path) { return server.address(QString::fromLatin1(path)); }
    /// Events run until nothing is loading any more.
    void settle() {
        ASSERT_TRUE(test::comesTrue([this] { return !web.isLoading(); }));
    }
    void open(const char* path) {
        web.Navigate(at(path));
        settle();
    }
    /// What a click on the page's first link does.
    void click(const char* href) {
        emit web.anchorClicked(QUrl(web.LocationURL()).resolved(QUrl(QString::fromLatin1(href))));
        settle();
    }
    void page(const char* path, const QByteArray& body) {
        server.answer(QString::fromLatin1(path), body);
    }
    bool pageHolds(const char* text) const {
        return web.toPlainText().contains(QString::fromUtf8(text));
    }
    std::vector<QTextCharFormat> formats() const {
        std::vector<QTextCharFormat> found;
        for (QTextBlock block = web.document()->begin(); block.isValid(); block = block.next()) {
            for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
                found.push_back(piece.fragment().charFormat());
            }
        }
        return found;
    }
    QStringList links() const {
        QStringList found;
        for (const QTextCharFormat& format : formats()) {
            if (!format.anchorHref().isEmpty()) {
                found.append(format.anchorHref());
            }
        }
        return found;
    }
    QImage shownPicture(const char* path) {
        return web.document()
            ->resource(QTextDocument::ImageResource, QUrl(at(path)))
            .value<QImage>();
    }

    test::HttpServer server;
    webWINDOW web;
    bool forward = false;
    bool back = false;
    int commandEvents = 0;
    QStringList completed;
    QStringList outside;
};

TEST_F(WebWindow, ShowsAPageAndTellsOnceThatItIsComplete) {
    page("/a.html", "<h1>First</h1><p>page</p>");
    open("/a.html");
    EXPECT_EQ(web.toPlainText(), QStringLiteral("First\npage"));
    EXPECT_EQ(web.LocationURL(), at("/a.html"));
    EXPECT_EQ(completed, QStringList({at("/a.html")}));
    EXPECT_FALSE(back);
    EXPECT_FALSE(forward);
}

TEST_F(WebWindow, LoadsWhileTheProgramGoesOn) {
    page("/a.html", "first");
    web.Navigate(at("/a.html"));
    EXPECT_TRUE(web.isLoading());
    EXPECT_TRUE(server.asked.isEmpty());
    settle();
    EXPECT_TRUE(pageHolds("first"));
}

TEST_F(WebWindow, BackAndForwardFollowTheHistory) {
    page("/a.html", "first");
    page("/b.html", "second");
    page("/c.html", "third");
    open("/a.html");
    open("/b.html");
    EXPECT_TRUE(back);
    EXPECT_FALSE(forward);
    web.GoBack();
    EXPECT_FALSE(back);
    EXPECT_TRUE(forward);
    settle();
    EXPECT_TRUE(pageHolds("first"));
    web.GoForward();
    settle();
    EXPECT_TRUE(pageHolds("second"));
    EXPECT_TRUE(back);
    EXPECT_FALSE(forward);
    web.GoBack();
    settle();
    open("/c.html");
    EXPECT_TRUE(pageHolds("third"));
    EXPECT_TRUE(back);
    EXPECT_FALSE(forward) << "a new step cuts off what lay ahead";
}

TEST_F(WebWindow, AtTheEndsOfTheHistoryNothingHappens) {
    web.GoBack();
    web.GoForward();
    web.Refresh();
    EXPECT_FALSE(web.isLoading());
    page("/a.html", "first");
    open("/a.html");
    web.GoBack();
    web.GoForward();
    EXPECT_FALSE(web.isLoading());
    EXPECT_EQ(server.asked.size(), 1);
}

TEST_F(WebWindow, TwoQuickStepsBackAreTwoSteps) {
    page("/a.html", "first");
    page("/b.html", "second");
    page("/c.html", "third");
    open("/a.html");
    open("/b.html");
    open("/c.html");
    web.GoBack();
    web.GoBack();
    settle();
    EXPECT_TRUE(pageHolds("first"));
}

TEST_F(WebWindow, ThePageOnShowAskedForAgainIsNoNewStep) {
    page("/a.html", "first");
    open("/a.html");
    page("/a.html", "changed");
    open("/a.html");
    EXPECT_TRUE(pageHolds("changed"));
    EXPECT_FALSE(back);
}

TEST_F(WebWindow, RefreshFetchesAnewAndTellsOfNoDocument) {
    page("/a.html", "first");
    open("/a.html");
    page("/a.html", "changed");
    web.Refresh();
    settle();
    EXPECT_TRUE(pageHolds("changed"));
    EXPECT_EQ(completed.size(), 1);
    EXPECT_EQ(server.asked.size(), 2);
}

TEST_F(WebWindow, RefreshWhileAPageLoadsLeavesItAlone) {
    page("/a.html", "first");
    web.Navigate(at("/a.html"));
    web.Refresh();
    settle();
    EXPECT_EQ(server.asked.size(), 1);
    EXPECT_EQ(completed.size(), 1);
}

TEST_F(WebWindow, TheLinkThatTheKeyboardIsOnStandsOutAndStaysOverARefresh) {
    page("/a.html", "<p><a href=\"b.html\">one</a> <a href=\"c.html\">two</a></p>");
    page("/c.html", "the second");
    open("/a.html");
    web.show();
    web.setFocus();
    QTest::keyClick(&web, Qt::Key_Tab);
    QTest::keyClick(&web, Qt::Key_Tab);
    EXPECT_EQ(web.textCursor().selectedText(), QStringLiteral("two"));
    const QRect place = web.cursorRect().adjusted(-10, 0, 0, 0);
    const QColor ground = web.palette().color(QPalette::Active, QPalette::Highlight);
    const auto corner = [&] { return web.viewport()->grab(place).toImage().pixelColor(8, 0); };
    EXPECT_EQ(corner(), ground);
    web.Refresh();
    settle();
    EXPECT_EQ(web.textCursor().selectedText(), QStringLiteral("two"));
    QTest::keyClick(&web, Qt::Key_Return);
    settle();
    EXPECT_TRUE(pageHolds("the second"));
    EXPECT_FALSE(web.textCursor().hasSelection());
}

TEST_F(WebWindow, RefreshKeepsThePlace) {
    page("/a.html", longPage("first"));
    web.show();
    open("/a.html");
    web.verticalScrollBar()->setValue(500);
    web.Refresh();
    settle();
    EXPECT_EQ(web.verticalScrollBar()->value(), 500);
}

TEST_F(WebWindow, BackComesToThePlaceThatWasLeft) {
    page("/a.html", longPage("first"));
    page("/b.html", longPage("second"));
    web.show();
    open("/a.html");
    web.verticalScrollBar()->setValue(700);
    open("/b.html");
    EXPECT_EQ(web.verticalScrollBar()->value(), 0);
    web.GoBack();
    settle();
    EXPECT_EQ(web.verticalScrollBar()->value(), 700);
}

TEST_F(WebWindow, ANewRequestDropsTheOneThatRuns) {
    server.behave(QStringLiteral("/slow.html"), [](QTcpSocket&) {});
    page("/b.html", "second");
    web.Navigate(at("/slow.html"));
    ASSERT_TRUE(test::comesTrue([this] { return !server.asked.isEmpty(); }));
    open("/b.html");
    EXPECT_TRUE(pageHolds("second"));
    EXPECT_EQ(completed, QStringList({at("/b.html")}));
    EXPECT_FALSE(back);
}

TEST_F(WebWindow, LinksAreRelativeToThePage) {
    page("/help/a.html",
         "<a href=\"b.html\">b</a> <a href='../c.html?x=1#y'>c</a> "
         "<a href='/d.html'>d</a> <a href='http://other.invalid/e'>e</a> "
         "<a href='mailto:ann@mail.invalid'>m</a>");
    open("/help/a.html");
    EXPECT_EQ(links(), QStringList({at("/help/b.html"), at("/c.html?x=1#y"), at("/d.html"),
                                    QStringLiteral("http://other.invalid/e"),
                                    QStringLiteral("mailto:ann@mail.invalid")}));
}

TEST_F(WebWindow, ALinkOfTheSameServerIsFollowed) {
    page("/a.html", "<a href='b.html'>next</a>");
    page("/b.html", "second");
    open("/a.html");
    click("b.html");
    EXPECT_TRUE(pageHolds("second"));
    EXPECT_TRUE(back);
    EXPECT_TRUE(outside.isEmpty());
}

TEST_F(WebWindow, AMouseClickFollowsALink) {
    page("/a.html", "<a href='b.html'>next</a>");
    page("/b.html", "second");
    web.show();
    open("/a.html");
    const QRect place = web.cursorRect(QTextCursor(web.document()));
    QTest::mouseClick(web.viewport(), Qt::LeftButton, {}, place.center() + QPoint(6, 0));
    settle();
    EXPECT_TRUE(pageHolds("second"));
}

TEST_F(WebWindow, OtherServersAndMailAreHandedOut) {
    page("/a.html", "first");
    open("/a.html");
    click("http://other.invalid/x.html");
    click("mailto:ann@mail.invalid");
    click("http://127.0.0.1:1/");
    EXPECT_EQ(outside, QStringList({QStringLiteral("http://other.invalid/x.html"),
                                    QStringLiteral("mailto:ann@mail.invalid"),
                                    QStringLiteral("http://127.0.0.1:1/")}));
    EXPECT_TRUE(pageHolds("first"));
    EXPECT_EQ(server.asked.size(), 1);
}

TEST_F(WebWindow, FilesScriptsAndResourcesAreRefused) {
    page("/a.html",
         "<p><a href='file:///etc/hostname'>f</a><a href='qrc:/icons/help.svg'>q</a>"
         "<a href='javascript:alert(1)'>j</a><a href='data:text/html,x'>d</a></p>"
         "<img src='file:///etc/x.png'><img src=':/icons/help.svg'>"
         "<script>document.write('written')</script>");
    open("/a.html");
    EXPECT_TRUE(links().isEmpty());
    EXPECT_FALSE(pageHolds("written"));
    for (const QTextCharFormat& format : formats()) {
        if (format.isImageFormat()) {
            EXPECT_FALSE(format.toImageFormat().name().startsWith(QLatin1String("file")));
            EXPECT_FALSE(format.toImageFormat().name().startsWith(QLatin1Char(':')));
        }
    }
    for (const char* address :
         {"file:///etc/hostname", "qrc:/icons/help.svg", "/etc/hostname", ""}) {
        web.Navigate(QString::fromLatin1(address));
        web.setSource(QUrl(QString::fromLatin1(address)));
        EXPECT_FALSE(web.isLoading()) << address;
    }
    EXPECT_TRUE(outside.isEmpty());
}

TEST_F(WebWindow, AnAnchorOfThePageIsAStepWithoutARequest) {
    page("/a.html", longPage("first"));
    web.show();
    open("/a.html");
    click("#end");
    EXPECT_GT(web.verticalScrollBar()->value(), 1000);
    EXPECT_EQ(server.asked.size(), 1);
    EXPECT_TRUE(back);
    web.GoBack();
    EXPECT_EQ(web.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(back);
    EXPECT_EQ(completed.size(), 1);
}

TEST_F(WebWindow, AnAnchorOfAnotherPageIsScrolledTo) {
    page("/a.html", "first");
    page("/b.html", longPage("second"));
    web.show();
    open("/a.html");
    click("b.html#end");
    EXPECT_GT(web.verticalScrollBar()->value(), 1000);
    EXPECT_EQ(web.LocationURL(), at("/b.html#end"));
}

TEST_F(WebWindow, PicturesCome) {
    page("/help/a.html",
         "<img src='pictures/red.png'><img src='/blue.bmp' width=20 height=20>"
         "<img src='pictures/red.png'>");
    server.answer(QStringLiteral("/help/pictures/red.png"), picture(Qt::red), "image/png");
    server.answer(QStringLiteral("/blue.bmp"), picture(Qt::blue, 40, "bmp"), "image/bmp");
    web.show();
    open("/help/a.html");
    EXPECT_EQ(server.asked.size(), 3) << "each picture is asked for once";
    EXPECT_EQ(shownPicture("/help/pictures/red.png").pixelColor(5, 5), QColor(Qt::red));
    const QImage screen = web.viewport()->grab().toImage();
    EXPECT_EQ(screen.pixelColor(30, 30), QColor(Qt::red));
    EXPECT_EQ(completed.size(), 1);
}

TEST_F(WebWindow, APictureThatDoesNotComeLeavesThePage) {
    page("/a.html", "text<img src='gone.png'><img src='text.png'><img src='drawn.svg'>");
    server.answer(QStringLiteral("/text.png"), "this is no picture", "image/png");
    server.answer(QStringLiteral("/drawn.svg"),
                  "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>",
                  "image/svg+xml");
    web.show();
    open("/a.html");
    web.grab();
    EXPECT_TRUE(pageHolds("text"));
    EXPECT_EQ(shownPicture("/drawn.svg").size(), QSize(1, 1));
    EXPECT_EQ(completed.size(), 1);
}

TEST_F(WebWindow, StyleSheetsAreNotAskedFor) {
    page("/a.html",
         "<html><head><link rel=stylesheet href='a.css'></head><body>text</body></html>");
    open("/a.html");
    EXPECT_EQ(server.asked, QStringList({QStringLiteral("/a.html")}));
}

TEST_F(WebWindow, APageThatCannotBeHadIsToldOfOnAPage) {
    open("/gone.html");
    EXPECT_TRUE(pageHolds("This page cannot be shown"));
    EXPECT_TRUE(pageHolds("/gone.html"));
    EXPECT_EQ(completed, QStringList({at("/gone.html")}));
    EXPECT_EQ(links(), QStringList({at("/gone.html")}));
}

TEST_F(WebWindow, WithoutANetworkTheSameAndTryingAgainHelps) {
    page("/a.html", "first");
    const QString refused = QStringLiteral("http://127.0.0.1:1/a.html");
    web.Navigate(refused);
    settle();
    EXPECT_TRUE(pageHolds("This page cannot be shown"));
    open("/gone.html");
    page("/gone.html", "here again");
    click("/gone.html");
    EXPECT_TRUE(pageHolds("here again"));
}

TEST_F(WebWindow, RefreshBringsAPageThatCouldNotBeHad) {
    open("/a.html");
    EXPECT_TRUE(pageHolds("cannot be shown"));
    page("/a.html", "here again");
    web.Refresh();
    settle();
    EXPECT_TRUE(pageHolds("here again"));
}

TEST_F(WebWindow, RefreshKeepsAPageThatCannotBeHadAnyMore) {
    page("/a.html", "first");
    open("/a.html");
    server.shut();
    web.Refresh();
    settle();
    EXPECT_TRUE(pageHolds("first"));
}

TEST_F(WebWindow, AnErrorsAddressIsShownAsText) {
    web.Navigate(at("/<b>x</b>"));
    settle();
    EXPECT_FALSE(web.toHtml().contains(QLatin1String("/<b>")));
    EXPECT_TRUE(pageHolds("cannot be shown"));
}

TEST_F(WebWindow, ASilentServerRunsOutOfTime) {
    server.behave(QStringLiteral("/a.html"), [](QTcpSocket&) {});
    WebLimits limits;
    limits.page.time = 100ms;
    web.setLimits(limits);
    open("/a.html");
    EXPECT_TRUE(pageHolds("cannot be shown"));
}

TEST_F(WebWindow, AnEndlessPageAndAnEndlessPictureAreCutOff) {
    WebLimits limits;
    limits.page.bytes = 20000;
    limits.picture.bytes = 20000;
    web.setLimits(limits);
    server.pour(QStringLiteral("/a.html"), 1024LL * 1024 * 1024);
    open("/a.html");
    EXPECT_EQ(web.toPlainText().size(), 20000);
    page("/b.html", "<img src='a.html'>");
    open("/b.html");
    EXPECT_LT(server.poured, 64 * 1024 * 1024);
    EXPECT_EQ(completed.size(), 2);
}

TEST_F(WebWindow, RedirectsLeadOn) {
    server.redirect(QStringLiteral("/old/a.html"), at("/new/a.html"));
    page("/new/a.html", "<a href='b.html'>b</a>");
    open("/old/a.html");
    EXPECT_EQ(web.LocationURL(), at("/new/a.html"));
    EXPECT_EQ(links(), QStringList({at("/new/b.html")}));
    server.redirect(QStringLiteral("/loop"), at("/loop"));
    open("/loop");
    EXPECT_TRUE(pageHolds("cannot be shown"));
}

TEST_F(WebWindow, NoOtherServerIsAskedForAPicture) {
    test::HttpServer other;
    other.answer(QStringLiteral("/p.png"), picture(Qt::red), "image/png");
    server.redirect(QStringLiteral("/led.png"), other.address(QStringLiteral("/p.png")));
    page("/a.html", "text<img src='" + other.address(QStringLiteral("/p.png")).toLatin1() +
                        "'><img src='led.png'>");
    open("/a.html");
    EXPECT_EQ(server.asked, QStringList({QStringLiteral("/a.html"), QStringLiteral("/led.png")}));
    EXPECT_TRUE(other.asked.isEmpty());
    EXPECT_EQ(shownPicture("/led.png").size(), QSize(1, 1));
}

// Nothing else would ever take the place of the words that ask for a moment.
TEST_F(WebWindow, AFirstPageThatIsNoneSaysSoAndCanBeTriedAgain) {
    server.answer(QStringLiteral("/"), "PK", "application/zip");
    open("/");
    EXPECT_TRUE(pageHolds("cannot be shown"));
    EXPECT_EQ(completed.join(u' ').toStdString(), at("/").toStdString());
    EXPECT_TRUE(outside.isEmpty());
    page("/", "here again");
    web.Refresh();
    settle();
    EXPECT_TRUE(pageHolds("here again"));
}

TEST_F(WebWindow, ARedirectToAnotherServerOrToAFileIsNoPage) {
    test::HttpServer other;
    other.answer(QStringLiteral("/b.html"), "foreign");
    for (const QString& target :
         {other.address(QStringLiteral("/b.html")), QStringLiteral("file:///etc/hostname"),
          QStringLiteral("//127.0.0.1:1/"), QStringLiteral("data:text/html,x"),
          QStringLiteral("qrc:/icons/help.svg")}) {
        server.redirect(QStringLiteral("/a.html"), target);
        open("/a.html");
        EXPECT_TRUE(pageHolds("cannot be shown")) << target.toStdString();
        EXPECT_EQ(web.LocationURL(), at("/a.html"));
    }
    EXPECT_TRUE(other.asked.isEmpty());
    EXPECT_TRUE(outside.isEmpty());
}

TEST_F(WebWindow, PicturesBeyondTheFirstFewComeToo) {
    QByteArray body;
    for (int i = 0; i < 20; ++i) {
        const QByteArray name = QByteArray::number(i) + ".png";
        body += "<img src='" + name + "'>";
        server.answer(QLatin1Char('/') + QString::fromLatin1(name), picture(Qt::red), "image/png");
    }
    page("/a.html", body);
    open("/a.html");
    EXPECT_EQ(server.asked.size(), 21);
    EXPECT_EQ(shownPicture("/19.png").size(), QSize(40, 40));
}

TEST_F(WebWindow, WhatIsNoPageIsHandedOutAndThePageStays) {
    page("/a.html", "first");
    server.answer(QStringLiteral("/x.deb"), "binary", "application/octet-stream");
    open("/a.html");
    click("x.deb");
    EXPECT_EQ(outside, QStringList({at("/x.deb")}));
    EXPECT_TRUE(pageHolds("first"));
    EXPECT_FALSE(back);
    EXPECT_EQ(completed.size(), 1);
}

TEST_F(WebWindow, PlainTextIsShownAsItIs) {
    server.answer(QStringLiteral("/a.txt"), "<b>not bold</b>", "text/plain");
    open("/a.txt");
    EXPECT_EQ(web.toPlainText(), QStringLiteral("<b>not bold</b>"));
}

TEST_F(WebWindow, LettersAreReadAsTheServerOrThePageSays) {
    const QByteArray mark = "\xEF\xBB\xBF";
    const QString wanted = QStringLiteral("caf\u00E9");
    const struct {
        QByteArray type;
        QByteArray body;
    } rows[] = {
        {"text/html", "caf\xC3\xA9"},
        {"text/html; charset=utf-8", "caf\xC3\xA9"},
        {"text/html; Charset=\"UTF-8\"", "caf\xC3\xA9"},
        {"text/html;charset=ISO-8859-1", "caf\xE9"},
        {"text/html", "<meta charset=\"iso-8859-1\">caf\xE9"},
        {"text/html; charset=iso-8859-1", mark + "caf\xC3\xA9"},
        {"text/html; charset=no-such-thing", "caf\xC3\xA9"},
        {"text/html", "caf\xE9"},
        {"", "caf\xC3\xA9"},
    };
    for (const auto& row : rows) {
        server.answer(QStringLiteral("/a.html"), row.body, row.type);
        open("/a.html");
        EXPECT_EQ(web.toPlainText(), wanted) << row.type.toStdString();
    }
}

TEST_F(WebWindow, BytesOfAnyKindAreSurvived) {
    QByteArray all;
    for (int value = 0; value < 256; ++value) {
        all.append(static_cast<char>(value));
    }
    for (const QByteArray& body :
         {QByteArray(), all, all.repeated(20), QByteArray("<").repeated(1000),
          QByteArray("<table><tr><td>").repeated(40), QByteArray("<a href='"),
          QByteArray("<img src=\"http://[\"><a href=\"http://[\">x</a>"),
          QByteArray("<qt type=detail>detail</qt>")}) {
        server.answer(QStringLiteral("/a.html"), body);
        open("/a.html");
        web.grab();
    }
    EXPECT_EQ(completed.size(), 8);
}

TEST_F(WebWindow, PagesMadeToBeSlowAreShownAsTheyAreWritten) {
    const QByteArray rows = QByteArray("<tr><td>y").repeated(600);
    for (const QByteArray& body :
         {QByteArray("<ul>").repeated(1501), QByteArray("<b>").repeated(20000),
          QByteArray("<table><tr><td>").repeated(7),
          QByteArray("<i><td>a</td><td>b</tr>").repeated(40),
          QByteArray("<table><tr><td colspan=20000>x" + rows),
          QByteArray("<table><tr><td colspan='&#50;0000'>x" + rows),
          QByteArray("<table><tr><td col&#x73;pan=20000>x" + rows),
          QByteArray("<table><tr><td colspan=+20000>x" + rows)}) {
        page("/a.html", body);
        open("/a.html");
        EXPECT_TRUE(web.toPlainText().startsWith(QString::fromLatin1(body.left(20))))
            << body.left(40).toStdString();
    }
}

TEST_F(WebWindow, SixTablesInOneAnotherAreTables) {
    page("/a.html", QByteArray("<table><tr><td>").repeated(6) + "x");
    open("/a.html");
    EXPECT_EQ(web.toPlainText().trimmed().toStdString(), "x");
}

TEST_F(WebWindow, TablesOfOrdinarySizeAreTables) {
    page("/a.html", "<table><tr><th colspan=\"3\">It&#39;s x</th></tr>" +
                        QByteArray("<tr><td>a<td>b<td>c</tr>").repeated(100) + "</table>");
    open("/a.html");
    EXPECT_FALSE(pageHolds("<"));
    EXPECT_TRUE(pageHolds("It's x"));
}

TEST_F(WebWindow, APictureOfManyMillionPixelsIsNotUnpacked) {
    page("/a.html", "<img src='p.png'>");
    server.answer(QStringLiteral("/p.png"), picture(Qt::red, 2001));
    open("/a.html");
    EXPECT_EQ(shownPicture("/p.png").size(), QSize(1, 1));
    server.answer(QStringLiteral("/p.png"), picture(Qt::red, 2000));
    open("/a.html");
    EXPECT_EQ(shownPicture("/p.png").size(), QSize(2000, 2000));
}

TEST_F(WebWindow, ColoursFollowADarkDesktop) {
    page("/a.html", "<p>text</p><a href='b.html'>link</a>");
    open("/a.html");
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Link, QColor(120, 180, 255));
    QApplication::setPalette(dark);
    web.setPalette(dark);
    QApplication::processEvents();
    const auto all = formats();
    EXPECT_EQ(all.back().foreground().color(), QColor(120, 180, 255));
    EXPECT_EQ(all.front().foreground().style(), Qt::NoBrush) << "the palette's own colour";
    QApplication::setPalette(light);
}

TEST_F(WebWindow, MayGoWhileItLoads) {
    page("/a.html", "first<img src='slow.png'>");
    server.behave(QStringLiteral("/slow.png"), [](QTcpSocket&) {});
    auto* other = new webWINDOW;
    other->Navigate(at("/a.html"));
    ASSERT_TRUE(test::comesTrue([this] { return server.asked.size() == 2; }));
    delete other;
    QApplication::processEvents();
    EXPECT_EQ(server.asked.size(), 2);
}

TEST_F(WebWindow, DocumentCompleteMayAskForAnotherPage) {
    page("/a.html", "first");
    page("/b.html", "second");
    bool led = false;
    QObject::connect(&web, &webWINDOW::DocumentComplete, &web, [&] {
        if (!std::exchange(led, true)) {
            web.Navigate(at("/b.html"));
        }
    });
    open("/a.html");
    settle();
    EXPECT_TRUE(pageHolds("second"));
    EXPECT_EQ(completed.size(), 2);
}

}  // namespace
}  // namespace velorama
