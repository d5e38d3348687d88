#include "controls/browser/web_page.h"

#include "support/test_world.h"

#include <QBuffer>
#include <QPainter>
#include <QTextBlock>
#include <QTextFrame>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>

namespace velorama {
namespace {

/// A pipe that tells whether somebody has opened it to read.
class Pipe {
public:
    explicit Pipe(QString path) : path_(std::move(path)) {
        EXPECT_EQ(mkfifo(path_.toLocal8Bit().constData(), 0600), 0);
        writer_ = std::thread([this] {
            // Waits until somebody opens the other end; closing it lets them go.
            const int end = open(path_.toLocal8Bit().constData(), O_WRONLY | O_CLOEXEC);
            opened_ = true;
            close(end);
        });
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        const int end = open(path_.toLocal8Bit().constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        writer_.join();
        close(end);
    }

    bool wasOpened() const { return opened_; }
    QString address() const { return QStringLiteral("file://") + path_; }

private:
    QString path_;
    std::atomic<bool> opened_ = false;
    std::thread writer_;
};

/// All the ways in which a page can ask for another file.
QStringList pagesWith(const QString& address) {
    const QStringList frames = {
        QStringLiteral("<body background=\"%1\">text</body>"),
        QStringLiteral("<table background='%1'><tr><td background='%1'>text</td></tr></table>"),
        QStringLiteral("<p style=\"background-image:url(%1)\">text</p>"),
        QStringLiteral("<p style=\"background: #ffff00 URL( '%1' )\">text</p>"),
        QStringLiteral("<style>p { background-image: url(%1) }</style><p>text</p>"),
        QStringLiteral("<style>@import url(%1);</style><p>text</p>"),
        QStringLiteral("<style>@import \"%1\";</style><p>text</p>"),
        QStringLiteral("<head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\"></head>text"),
        QStringLiteral("<ul style=\"list-style-image:url(%1)\"><li>text</li></ul>"),
        QStringLiteral("<p>text<img src=\"%1\"></p>"),
        QStringLiteral("<base href=\"file:///\"><p>text<img src=\"%1\"></p>"),
    };
    QStringList pages;
    for (const QString& frame : frames) {
        pages.append(frame.arg(address));
    }
    return pages;
}

std::unique_ptr<QTextDocument> made(const QString& html) {
    return makePage(html, PageKind::Html, QUrl(QStringLiteral("http://127.0.0.1:1/help/a.html")),
                    QFont());
}

/// Laid out and drawn, as on the screen.
QImage drawn(QTextDocument& page) {
    QImage screen(200, 100, QImage::Format_RGB32);
    screen.fill(Qt::white);
    QPainter painter(&screen);
    page.drawContents(&painter);
    return screen;
}

bool holdsPicture(const QTextFormat& format) {
    return format.background().style() == Qt::TexturePattern;
}

bool holdsPicture(QTextDocument& page) {
    bool found = holdsPicture(page.rootFrame()->frameFormat());
    for (const QTextFrame* frame : page.rootFrame()->childFrames()) {
        found = found || holdsPicture(frame->frameFormat());
    }
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        found = found || holdsPicture(block.blockFormat()) || holdsPicture(block.charFormat());
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            found = found || holdsPicture(piece.fragment().charFormat());
        }
    }
    return found;
}

QString pictureInItself() {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

TEST(PageDocument, NoPageOpensAPipe) {
    Pipe pipe(test::temporaryFolder() + QStringLiteral("/pipe"));
    for (const QString& address :
         {pipe.address(),
          QString(pipe.address()).replace(QLatin1String("file"), QLatin1String("FILE")),
          QString(pipe.address()).replace(QLatin1String("/pipe"), QLatin1String("/%70ipe")),
          QString(pipe.address()).remove(QLatin1String("file://"))}) {
        for (const QString& html : pagesWith(address)) {
            drawn(*made(html));
            ASSERT_FALSE(pipe.wasOpened()) << html.toStdString();
        }
    }
}

TEST(PageDocument, NoPageReadsAnEndlessFile) {
    for (const QString& html : pagesWith(QStringLiteral("file:///dev/zero"))) {
        const auto page = made(html);
        drawn(*page);
        EXPECT_TRUE(page->toPlainText().contains(QLatin1String("text"))) << html.toStdString();
    }
}

TEST(PageDocument, NoPictureInThePageItselfIsUnpacked) {
    for (const QString& html : pagesWith(pictureInItself())) {
        const auto page = made(html);
        EXPECT_FALSE(holdsPicture(*page)) << html.toStdString();
        const QImage screen = drawn(*page);
        for (int x = 0; x < screen.width(); ++x) {
            for (int y = 0; y < screen.height(); ++y) {
                ASSERT_NE(screen.pixel(x, y), QColor(Qt::red).rgb()) << html.toStdString();
            }
        }
    }
}

TEST(PageDocument, NoPictureOfTheProgramIsShown) {
    for (const char* address : {"qrc:/icons/help.svg", ":/icons/help.svg"}) {
        for (const QString& html : pagesWith(QString::fromLatin1(address))) {
            EXPECT_FALSE(holdsPicture(*made(html))) << html.toStdString();
        }
    }
}

TEST(PageDocument, AColourStaysWhereItsPictureIsMissing) {
    const auto page = made(QStringLiteral("<body bgcolor=#ffff00 background='/a.png'>text"));
    EXPECT_EQ(page->rootFrame()->frameFormat().background().color(), QColor(255, 255, 0));
}

/// Where a click on the page leads.
QStringList linksOf(const QString& html) {
    const auto page =
        makePage(html, PageKind::Html, QUrl(QStringLiteral("http://own.invalid/a/b")), QFont());
    QStringList links;
    for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QString link = at.fragment().charFormat().anchorHref();
            links += link.isEmpty() || links.contains(link) ? QStringList() : QStringList(link);
        }
    }
    return links;
}

// A name for an anchor takes the mark of a link from the text and leaves it the address.
TEST(PageLinks, LeadNoWhereElseInsideAnotherAnchor) {
    EXPECT_EQ(linksOf(QStringLiteral("<a href=\"file:///x\">a<a name=b>c c</a>d</a>"))
                  .join(u' ')
                  .toStdString(),
              "");
    EXPECT_EQ(linksOf(QStringLiteral("<a href=\"c.html\">a<a name=b>d d</a>e</a>"))
                  .join(u' ')
                  .toStdString(),
              "http://own.invalid/a/c.html");
}

}  // namespace
}  // namespace velorama
