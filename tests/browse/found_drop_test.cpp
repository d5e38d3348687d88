// Files and folders of other programs, dropped on the list of pictures.

#include "browse/browse_world.h"
#include "browse/found_list.h"

#include <QFileInfo>
#include <QSemaphore>
#include <QSignalSpy>

namespace velorama {
namespace {

using test::savePicture;

class FoundDropTest : public test::WithServices {
protected:
    FoundDropTest() {
        form.resize(700, 400);
        folder = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"),
                             QStringLiteral("c.bmp"), QStringLiteral("d.bmp")});
        QObject::connect(list.get(), &FoundList::Listed, list.get(), [this] {
            ++listings;
            ActiveList = QStringLiteral("SELECTED");
        });
        // As from the window's start on.
        found.flbFOUND->setPattern(QStringLiteral("*.bmp;*.jpg;*.gif"));
        form.show();
    }
    void drop(const QStringList& paths) {
        list->showDropped(paths);
        QCoreApplication::processEvents();
    }
    static QString folderWith(const QStringList& names) {
        QString made = test::temporaryFolder();
        for (const QString& name : names) {
            savePicture(made, name);
        }
        return made;
    }
    QString in(const char* name) const { return folder + QLatin1Char('/') + QLatin1String(name); }
    QString selected() const {
        QStringList names;
        for (int i = 1; i <= found.lvwFOUND->Count(); ++i) {
            if (found.lvwFOUND->item(i)->Selected()) {
                names.append(found.lvwFOUND->item(i)->Text());
            }
        }
        return names.join(u' ');
    }
    QString current() const {
        const ListItem* item = found.lvwFOUND->SelectedItem();
        return item ? item->Text() : QString();
    }

    QWidget form;
    const FoundControls found{form};
    ImageList imlTHUMBNAILS;
    ProgressBar* prgBARSLIDES = new ProgressBar(&form);
    LookAhead pictures;
    Thumbnails thumbnails{*found.imlFOUNDICONS, imlTHUMBNAILS, pictures};
    std::unique_ptr<FoundList> list = std::make_unique<FoundList>(found, *prgBARSLIDES, thumbnails);
    QString folder;
    int listings = 0;
};

TEST_F(FoundDropTest, AFolderIsShown) {
    drop({folder + QLatin1Char('/'), QStringLiteral("/")});
    EXPECT_EQ(found.flbFOUND->Path(), folder);
    EXPECT_EQ(found.ftvFOLDER->Path(), folder);
    EXPECT_EQ(found.lvwFOUND->Count(), 4);
    EXPECT_EQ(selected(), QStringLiteral("a.bmp"));
    // Again, as a click on it does.
    drop({folder});
    EXPECT_EQ(listings, 2);
}

TEST_F(FoundDropTest, FilesAreSelectedInTheirFolder) {
    const QString other = folderWith({QStringLiteral("a.bmp")});
    test::saveBytes(in("words.txt"), "words");
    drop({in("words.txt"), in("d.bmp"), in("b.bmp"), other + QStringLiteral("/a.bmp"), other,
          in("gone.bmp")});
    EXPECT_EQ(found.flbFOUND->Path(), folder);
    EXPECT_EQ(selected(), QStringLiteral("b.bmp d.bmp"));
    EXPECT_EQ(current(), QStringLiteral("b.bmp"));
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    EXPECT_TRUE(form.focusWidget() == found.lvwFOUND);
    EXPECT_EQ(list->selectedFiles(), QStringList({in("b.bmp"), in("d.bmp")}));
}

TEST_F(FoundDropTest, AFolderOnShowIsListedAnewOnlyForWhatIsNewInIt) {
    drop({folder});
    drop({in("c.bmp")});
    EXPECT_EQ(listings, 1);
    EXPECT_EQ(selected(), QStringLiteral("c.bmp"));
    savePicture(folder, QStringLiteral("e.bmp"));
    drop({in("e.bmp"), in("a.bmp")});
    EXPECT_EQ(listings, 2);
    EXPECT_EQ(selected(), QStringLiteral("a.bmp e.bmp"));
}

TEST_F(FoundDropTest, WhatIsNoPictureOrNotThereChangesNothing) {
    test::saveBytes(in("words.txt"), "words");
    drop({});
    drop({in("words.txt"), in("gone.bmp"), QStringLiteral("a.bmp"), QString(),
          QStringLiteral("/dev/null")});
    EXPECT_EQ(found.flbFOUND->Path(), QString());
    EXPECT_EQ(listings, 0);
    FormLoading = true;
    drop({folder});
    EXPECT_EQ(found.flbFOUND->Path(), QString());
    FormLoading = false;
    list->stop();
    drop({folder});
    EXPECT_EQ(found.flbFOUND->Path(), QString());
}

TEST_F(FoundDropTest, AnotherFolderChosenMeanwhileStays) {
    const QString other = folderWith({QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    list->showDropped({in("c.bmp")});
    QObject::connect(list.get(), &FoundList::FolderRead, list.get(), [&] {
        if (found.flbFOUND->Path() == folder) {
            test::atNextYield([&] { found.ftvFOLDER->setPath(other); });
        }
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(found.flbFOUND->Path(), other);
    EXPECT_EQ(selected(), QStringLiteral("b.bmp"));
}

TEST_F(FoundDropTest, OfDropsAtOnceTheLastCounts) {
    const QString other = folderWith({QStringLiteral("b.bmp")});
    test::atNextYield([&] {
        list->showDropped({other});
        list->showDropped({in("c.bmp")});
    });
    list->showDropped({other});
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(found.flbFOUND->Path(), folder);
    EXPECT_EQ(selected(), QStringLiteral("c.bmp"));
}

/// Looks of which those at "/hangs" end when they are let.
class Disk {
public:
    explicit Disk(FoundList& list) {
        list.setLook([gate = gate_](const QStringList& paths, const QString&) {
            if (paths.first() == QStringLiteral("/hangs")) {
                gate->acquire();
            }
            const QFileInfo first(paths.first());
            return FoundWish{first.path(), {first.fileName()}};
        });
    }
    ~Disk() { answer(); }
    void answer() { gate_->release(); }

private:
    std::shared_ptr<QSemaphore> gate_ = std::make_shared<QSemaphore>();
};

TEST_F(FoundDropTest, OneFromADiskThatHangsHoldsNoOtherUp) {
    Disk disk(*list);
    bool answered = false;
    // Only for the end of a test that fails.
    QTimer::singleShot(10'000, list.get(), [&] {
        answered = true;
        disk.answer();
    });
    test::atNextYield([&] { list->showDropped({in("c.bmp")}); });
    list->showDropped({QStringLiteral("/hangs")});
    QCoreApplication::processEvents();
    EXPECT_FALSE(answered);
    EXPECT_EQ(selected(), QStringLiteral("c.bmp"));
}

TEST_F(FoundDropTest, AFolderChosenSinceStays) {
    const QString other = folderWith({QStringLiteral("b.bmp")});
    Disk disk(*list);
    test::atNextYield([&] {
        found.ftvFOLDER->setPath(other);
        disk.answer();
    });
    list->showDropped({QStringLiteral("/hangs")});
    QCoreApplication::processEvents();
    EXPECT_EQ(found.flbFOUND->Path(), other);
    // After the look, before the folder is listed.
    list->showDropped({in("c.bmp")});
    found.ftvFOLDER->setPath(QStringLiteral("/"));
    QCoreApplication::processEvents();
    EXPECT_EQ(found.flbFOUND->Path(), QStringLiteral("/"));
}

TEST_F(FoundDropTest, WhatIsDroppedInTheMidstOfAListingStaysSelected) {
    const QString other = folderWith({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
    test::atNextYield([&] { list->showDropped({in("b.bmp"), in("c.bmp")}); });
    list->ftvFOLDER_NodeChange(other);
    QCoreApplication::processEvents();
    EXPECT_EQ(found.flbFOUND->Path(), folder);
    EXPECT_EQ(selected(), QStringLiteral("b.bmp c.bmp"));
    EXPECT_EQ(current(), QStringLiteral("b.bmp"));
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND")) << "what preview and wallpaper work on";
}

TEST_F(FoundDropTest, ThousandsAreSelectedInOneGo) {
    list->ftvFOLDER_NodeChange(folder);
    QCoreApplication::processEvents();
    const QSignalSpy told(found.lvwFOUND, &ListView::SelectionChanged);
    drop({in("b.bmp"), in("c.bmp"), in("d.bmp")});
    EXPECT_EQ(selected(), QStringLiteral("b.bmp c.bmp d.bmp"));
    EXPECT_EQ(told.size(), 1);
}

TEST_F(FoundDropTest, TheListMayGoMeanwhile) {
    for (const bool late : {false, true}) {
        list = std::make_unique<FoundList>(found, *prgBARSLIDES, thumbnails);
        bool gone = false;
        const auto go = [&] {
            list.reset();
            gone = true;
        };
        if (late) {
            QObject::connect(list.get(), &FoundList::FolderRead, &form,
                             [&] { test::atNextYield(go); });
        } else {
            test::atNextYield(go);
        }
        list->showDropped({in("c.bmp")});
        QCoreApplication::processEvents();
        EXPECT_TRUE(gone) << late;
    }
}

}  // namespace
}  // namespace velorama
