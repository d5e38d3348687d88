#include "controls/browser/page_load.h"

#include "support/http_server.h"
#include "support/waiting.h"

#include <QBuffer>
#include <QPointer>

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(PageLoad, LetsGoOfPicturesThatHaveArrived) {
    test::HttpServer server;
    QByteArray picture;
    QBuffer buffer(&picture);
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(&buffer, "png"));
    server.answer(QStringLiteral("/page.html"), "text");
    QList<QUrl> pictures;
    for (int i = 0; i < 4; ++i) {
        const QString path = QStringLiteral("/%1.png").arg(i);
        server.answer(path, picture, "image/png");
        pictures.append(QUrl(server.address(path)));
    }
    QPointer<QTcpSocket> held;
    server.behave(QStringLiteral("/held.png"), [&held](QTcpSocket& socket) { held = &socket; });
    pictures.append(QUrl(server.address(QStringLiteral("/held.png"))));

    PageLoad load(QUrl(server.address(QStringLiteral("/page.html"))), {});
    int arrived = 0;
    bool done = false;
    QObject::connect(&load, &PageLoad::arrived, &load, [&] { load.fetchPictures(pictures); });
    QObject::connect(&load, &PageLoad::pictureArrived, &load, [&arrived] { ++arrived; });
    QObject::connect(&load, &PageLoad::done, &load, [&done] { done = true; });
    ASSERT_TRUE(test::comesTrue([&] { return arrived == 4 && held; }));
    EXPECT_TRUE(test::comesTrue([&] { return load.findChildren<HttpRequest*>().size() == 1; }));
    EXPECT_FALSE(done);
    held->abort();
    EXPECT_TRUE(test::comesTrue([&done] { return done; }));
}

}  // namespace
}  // namespace velorama
