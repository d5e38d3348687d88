// Names of pictures and folders in the order of the user's language.

#include "desktop/accessible_tree.h"
#include "desktop/album_files.h"
#include "desktop/pictures_page.h"

#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

struct Order {
    const char* language;
    const char* pictures;
    const char* folders;
};

class NameOrderOnScreen : public testing::TestWithParam<Order> {
protected:
    static QStringList all(const char* names) { return QString::fromUtf8(names).split(u' '); }

    DesktopSession session;
    Store store{session};
    AccessibleTree tree{session};
    const QString folder = session.home() + QStringLiteral("/Pictures");
};

TEST_P(NameOrderOnScreen, IsThatOfTheLanguageInBothLists) {
    ASSERT_TRUE(session.isUp());
    ASSERT_TRUE(tree.isUp()) << "at-spi2-core is not installed";
    // The pictures lie in one of the folders, and the tree shows those beside it.
    const QString chosen = folder + u'/' + all(GetParam().folders).front();
    for (const QString& name : all(GetParam().folders)) {
        ASSERT_TRUE(QDir().mkpath(folder + u'/' + name));
    }
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    for (const QString& name : all(GetParam().pictures)) {
        ASSERT_TRUE(picture.save(chosen + u'/' + name, "JPG"));
    }
    setFilesLocation(store, chosen);
    const PicturesPage page(
        session, session.start({}, tree.environment() << QStringLiteral("LC_ALL=") +
                                                             QLatin1String(GetParam().language)));
    ASSERT_NE(page.window(), 0U);
    const auto shown = [&](const char* wanted) {
        QStringList names;
        for (const QString& name : tree.names()) {
            if (all(wanted).contains(name)) {
                names.append(name);
            }
        }
        return names;
    };
    EXPECT_TRUE(waitFor([&] { return shown(GetParam().folders) == all(GetParam().folders); }))
        << shown(GetParam().folders).join(u' ').toStdString();
    EXPECT_TRUE(waitFor([&] { return shown(GetParam().pictures) == all(GetParam().pictures); }))
        << shown(GetParam().pictures).join(u' ').toStdString();
    EXPECT_EQ(page.close(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, NameOrderOnScreen,
    testing::Values(Order{"C.UTF-8", "Apfel.jpg Bild10.jpg Bild2.jpg Zoo.jpg Äpfel.jpg",
                          "Reise10 Reise2 Ufer Vögel Über"},
                    Order{"de_DE.UTF-8", "Apfel.jpg Äpfel.jpg Bild2.jpg Bild10.jpg Zoo.jpg",
                          "Reise2 Reise10 Über Ufer Vögel"},
                    Order{"sv_SE.UTF-8", "Apfel.jpg Bild2.jpg Bild10.jpg Zoo.jpg Äpfel.jpg",
                          "Reise2 Reise10 Ufer Vögel Über"}));

}  // namespace
}  // namespace velorama::desktop
