// Listings of pictures that take long to load.

#include "browse/browse_world.h"
#include "browse/found_list.h"
#include "support/busy_threads.h"

#include <QGuiApplication>

namespace velorama {
namespace {

class SlowListing : public test::WithServices {
protected:
    SlowListing() {
        found.ftvFOLDER->hide();
        prgBARSLIDES->hide();
        form.show();
        QObject::connect(list.get(), &FoundList::Listed, list.get(),
                         [this] { listed.append(found.flbFOUND->Path()); });
    }

    static QString folderOf(int count) {
        QString folder = test::temporaryFolder();
        for (int i = 1; i <= count; ++i) {
            test::savePicture(folder, QString::number(i) + QStringLiteral(".bmp"));
        }
        return folder;
    }
    void expectListed(int count) const {
        EXPECT_EQ(found.lvwFOUND->Count(), count);
        EXPECT_EQ(found.imlFOUNDICONS->Count(), count + 1);
        for (int i = 1; i <= count; ++i) {
            EXPECT_EQ(found.lvwFOUND->item(i)->Icon(), i + 1);
            EXPECT_EQ(found.imlFOUNDICONS->image(i + 1).pixelColor(32, 32), QColor(Qt::red));
        }
    }
    void expectAtRest() const {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_FALSE(prgBARSLIDES->isVisible());
        EXPECT_TRUE(found.lvwFOUND->isVisible());
    }
    /// Runs `action` when the listing has come to a picture that is not loaded yet: not in the
    /// yield before it, in which what has been posted first runs.
    void whileLoading(const std::function<void()>& action) {
        QObject::connect(
            list.get(), &FoundList::FolderRead, list.get(),
            [action] { test::atNextYield([action] { test::atNextYield(action); }); },
            Qt::SingleShotConnection);
    }

    QWidget form;
    const FoundControls found{form};
    ImageList imlTHUMBNAILS;
    ProgressBar* prgBARSLIDES = new ProgressBar(&form);
    LookAhead pictures;
    Thumbnails thumbnails{*found.imlFOUNDICONS, imlTHUMBNAILS, pictures};
    QStringList listed;
    std::unique_ptr<FoundList> list = std::make_unique<FoundList>(found, *prgBARSLIDES, thumbnails);
    test::BusyThreads threads;
};

TEST_F(SlowListing, eventsRunWhileAPictureLoads) {
    bool seen = false;
    whileLoading([&] {
        seen = prgBARSLIDES->isVisible() && found.imlFOUNDICONS->Count() == 1;
        threads.release();
    });
    list->ftvFOLDER_NodeChange(folderOf(3));
    EXPECT_TRUE(seen);
    expectListed(3);
    EXPECT_EQ(prgBARSLIDES->Value(), 3);
    expectAtRest();
}

TEST_F(SlowListing, isLeftForAnotherFolderAtOnce) {
    const QString slow = folderOf(3);
    const QString other = test::temporaryFolder();
    whileLoading([&] { list->ftvFOLDER_NodeChange(other); });
    list->ftvFOLDER_NodeChange(slow);
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(listed, QStringList({other, other}));
    expectListed(0);
    expectAtRest();
}

TEST_F(SlowListing, leavesNothingInTheListOfTheNextFolder) {
    const QString slow = folderOf(3);
    const QString other = folderOf(5);
    whileLoading([&] {
        threads.release();
        list->ftvFOLDER_NodeChange(other);
    });
    list->ftvFOLDER_NodeChange(slow);
    EXPECT_EQ(found.flbFOUND->Path(), other);
    expectListed(5);
    expectAtRest();
}

TEST_F(SlowListing, theDeepestIsLeftToo) {
    const QString slow = folderOf(2);
    const QString last = test::temporaryFolder();
    int rounds = 0;
    std::function<void()> again = [&] {
        const bool isLast = ++rounds == 12;
        if (!isLast) {
            whileLoading(again);
        }
        list->ftvFOLDER_NodeChange(isLast ? last : slow);
    };
    again();
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(found.flbFOUND->Path(), last);
    expectListed(0);
    expectAtRest();
}

TEST_F(SlowListing, endsWithTheWindowAtOnce) {
    whileLoading([&] { list->stop(); });
    list->ftvFOLDER_NodeChange(folderOf(3));
    EXPECT_TRUE(threads.isBusy());
    EXPECT_TRUE(listed.isEmpty());
    expectAtRest();
}

TEST_F(SlowListing, isLeftByADestroyedWindow) {
    whileLoading([&] { list.reset(); });
    list->ftvFOLDER_NodeChange(folderOf(3));
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace velorama
