#include "controls/lists/local_files.h"

#include <QSysInfo>
#include <QUrl>

#include <gtest/gtest.h>

namespace velorama {
namespace {

QStringList filesIn(const char* list) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), list);
    return localFiles(data);
}

TEST(LocalFiles, AreThoseOfThisMachine) {
    EXPECT_EQ(filesIn("file:///a/b%20c.jpg\r\nfile://localhost/d%C3%A4.gif\r\n"),
              QStringList({QStringLiteral("/a/b c.jpg"), QStringLiteral("/dä.gif")}));
    QMimeData data;
    const QUrl named(QStringLiteral("file://") + QSysInfo::machineHostName().toLower() +
                     QStringLiteral("/x"));
    data.setUrls({named});
    EXPECT_EQ(localFiles(data), QStringList(QStringLiteral("/x")));
}

TEST(LocalFiles, LeaveOutWhatIsNone) {
    EXPECT_EQ(filesIn("file://elsewhere.invalid/a.jpg\r\nhttp://x.invalid/a.jpg\r\nsftp://h/b\r\n"
                      "trash:///c.jpg\r\na.jpg\r\nfile:\r\n# remark\r\n\xff\xfe\r\n"
                      "file:///a%00b.jpg\r\n"),
              QStringList());
    QMimeData text;
    text.setText(QStringLiteral("/home/ann/a.jpg"));
    EXPECT_EQ(localFiles(text), QStringList());
    EXPECT_EQ(localFiles(QMimeData()), QStringList());
}

}  // namespace
}  // namespace velorama
