#include "browse/found_list.h"

#include "browse/browse_world.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"

#include <QGuiApplication>

namespace velorama {
namespace {

using test::savePicture;

class FoundListTest : public test::WithServices {
protected:
    FoundListTest() {
        form.resize(600, 400);
        place(*lvwFOUND, 1500, 300, 3000, 3000);
        connect(&FoundList::FolderRead, QStringLiteral("read"));
        connect(&FoundList::Clicked, QStringLiteral("clicked"));
        connect(&FoundList::Chosen, QStringLiteral("chosen"));
        QObject::connect(list.get(), &FoundList::Listed, list.get(), [this] {
            ActiveList = QStringLiteral("SELECTED");
            log.append(QStringLiteral("listed"));
        });
        QObject::connect(list.get(), &FoundList::KeyDown, list.get(), [this](int code, int shift) {
            log.append(QStringLiteral("keys %1 %2").arg(code).arg(shift));
        });
        QObject::connect(list.get(), &FoundList::Popup, list.get(),
                         [this](const PopupRequest& request) { popups.push_back(request); });
        form.show();
        ftvFOLDER->hide();
        prgBARSLIDES->hide();
    }

    void connect(void (FoundList::*signal)(), const QString& name) {
        QObject::connect(list.get(), signal, list.get(), [this, name] { log.append(name); });
    }
    /// When the names are known and rows are being added.
    void atNextYieldOfListing(const std::function<void()>& action) {
        QObject::connect(
            list.get(), &FoundList::FolderRead, list.get(), [action] { test::atNextYield(action); },
            Qt::SingleShotConnection);
    }
    QString folderWith(const QStringList& names) {
        QString folder = test::temporaryFolder();
        for (const QString& name : names) {
            savePicture(folder, name);
        }
        return folder;
    }
    QString stored() const {
        return loadSetting(QStringLiteral("frmTOOLSSETTINGS\\Items"),
                           QStringLiteral("Files Location"), QStringLiteral("none"));
    }
    QStringList texts() const {
        QStringList all;
        for (int i = 1; i <= lvwFOUND->Count(); ++i) {
            all.append(lvwFOUND->item(i)->Text());
        }
        return all;
    }
    void expectAligned() const {
        ASSERT_EQ(lvwFOUND->Count(), flbFOUND.ListCount());
        for (int i = 1; i <= lvwFOUND->Count(); ++i) {
            EXPECT_EQ(lvwFOUND->item(i)->Key(), QString::number(i) + QLatin1Char('M'));
            EXPECT_EQ(lvwFOUND->item(i)->Text(), flbFOUND.List(i - 1));
        }
    }
    void expectAtRest() const {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_FALSE(prgBARSLIDES->isVisible());
        EXPECT_TRUE(lvwFOUND->isVisible());
    }

    QWidget form;
    const FoundControls found{form};
    FolderTree* ftvFOLDER = found.ftvFOLDER;
    FileList& flbFOUND = *found.flbFOUND;
    ListView* lvwFOUND = found.lvwFOUND;
    ImageList& imlFOUNDICONS = *found.imlFOUNDICONS;
    ImageList imlTHUMBNAILS;
    ProgressBar* prgBARSLIDES = new ProgressBar(&form);
    LookAhead pictures;
    Thumbnails thumbnails{imlFOUNDICONS, imlTHUMBNAILS, pictures};
    QStringList log;
    std::vector<PopupRequest> popups;
    std::unique_ptr<FoundList> list = std::make_unique<FoundList>(found, *prgBARSLIDES, thumbnails);
};

TEST_F(FoundListTest, rowsFollowTheFilesOfTheFolder) {
    const QString folder =
        folderWith({QStringLiteral("b.JPG"), QStringLiteral("A.bmp"), QStringLiteral("c.bmp")});
    savePicture(folder, QStringLiteral("no.jpeg.txt"));
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(texts(), QStringList({QStringLiteral("A.bmp"), QStringLiteral("b.JPG"),
                                    QStringLiteral("c.bmp")}));
    expectAligned();
    EXPECT_EQ(imlFOUNDICONS.Count(), 4);
    EXPECT_EQ(imlFOUNDICONS.Key(1), QStringLiteral("dummy"));
    EXPECT_EQ(imlFOUNDICONS.Key(2), folder + QStringLiteral("/A.bmp"));
    EXPECT_EQ(lvwFOUND->item(3)->Icon(), 4);
    EXPECT_EQ(lvwFOUND->Icons(), &imlFOUNDICONS);
    EXPECT_EQ(prgBARSLIDES->Max(), 3);
    EXPECT_EQ(prgBARSLIDES->Value(), 3);
    expectAtRest();
}

TEST_F(FoundListTest, folderWithOnePictureSelectsIt) {
    const QString folder = folderWith({QStringLiteral("a.jpg")});
    list->ftvFOLDER_NodeChange(folder);
    ASSERT_EQ(lvwFOUND->Count(), 1);
    EXPECT_TRUE(lvwFOUND->item(1)->Selected());
    EXPECT_EQ(log, QStringList({QStringLiteral("read"), QStringLiteral("clicked"),
                                QStringLiteral("listed")}));
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_EQ(stored(), folder);
}

TEST_F(FoundListTest, folderWithoutPicturesIsAnEmptyListAndNoBar) {
    list->ftvFOLDER_NodeChange(folderWith({QStringLiteral("a.jpg")}));
    log.clear();
    prgBARSLIDES->setMax(10);
    prgBARSLIDES->setValue(7);
    const QString empty = test::temporaryFolder();
    list->ftvFOLDER_NodeChange(empty);
    EXPECT_EQ(prgBARSLIDES->Value(), 7);
    EXPECT_EQ(lvwFOUND->Count(), 0);
    EXPECT_EQ(imlFOUNDICONS.Count(), 1);
    EXPECT_EQ(log, QStringList({QStringLiteral("read"), QStringLiteral("listed")}));
    EXPECT_EQ(stored(), empty);
    expectAtRest();
}

TEST_F(FoundListTest, theFolderIsStoredBeforeTheButtonsAreChecked) {
    const QString folder = folderWith({QStringLiteral("a.jpg")});
    QString atClick;
    QString atCheck;
    QObject::connect(list.get(), &FoundList::Clicked, [&] { atClick = stored(); });
    QObject::connect(list.get(), &FoundList::Listed, [&] { atCheck = stored(); });
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(atClick, QStringLiteral("none"));
    EXPECT_EQ(atCheck, folder);
}

TEST_F(FoundListTest, folderThatCannotBeReadIsStoredAllTheSame) {
    list->ftvFOLDER_NodeChange(QStringLiteral("/nowhere/at/all"));
    EXPECT_EQ(lvwFOUND->Count(), 0);
    EXPECT_EQ(stored(), QStringLiteral("/nowhere/at/all"));
}

TEST_F(FoundListTest, nothingHappensWhileTheFormLoads) {
    FormLoading = true;
    list->ftvFOLDER_NodeChange(folderWith({QStringLiteral("a.jpg")}));
    EXPECT_EQ(lvwFOUND->Count(), 0);
    EXPECT_EQ(imlFOUNDICONS.Count(), 0);
    EXPECT_EQ(stored(), QStringLiteral("none"));
    EXPECT_TRUE(log.isEmpty());
    FormLoading = false;
}

TEST_F(FoundListTest, fileNamedDummyShowsThePlaceholder) {
    list->ftvFOLDER_NodeChange(
        folderWith({QStringLiteral("dummy.jpg"), QStringLiteral("real.jpg")}));
    EXPECT_EQ(lvwFOUND->item(1)->Icon(), 1);
    EXPECT_EQ(lvwFOUND->item(2)->Icon(), 3);
    EXPECT_EQ(imlFOUNDICONS.Count(), 3);
}

TEST_F(FoundListTest, brokenPictureKeepsItsRow) {
    const QString folder = folderWith({QStringLiteral("a.bmp"), QStringLiteral("c.bmp")});
    test::saveBytes(folder + QStringLiteral("/b.gif"), "broken");
    list->ftvFOLDER_NodeChange(folder);
    expectAligned();
    EXPECT_EQ(lvwFOUND->item(2)->Icon(), 3);
    EXPECT_EQ(imlFOUNDICONS.image(3).pixelColor(0, 0), QColor(Qt::black));
}

TEST_F(FoundListTest, oddNamesAreListed) {
    const QString folder = folderWith(
        {QStringLiteral("a b.jpg"), QStringLiteral("\"q\" 'r'.jpg"), QStringLiteral("50%.jpg"),
         QStringLiteral("#1.jpg"), QStringLiteral("two\nlines.jpg"),
         QString::fromUtf8("\xC3\xBC\xE6\x97\xA5\xF0\x9F\x8C\x84.jpg"), QStringLiteral("b.c.jpg")});
    list->ftvFOLDER_NodeChange(folder);
    expectAligned();
    EXPECT_EQ(lvwFOUND->Count(), 7);
    for (int i = 1; i <= 7; ++i) {
        EXPECT_EQ(lvwFOUND->item(i)->Icon(), i + 1);
        // Decoded, not blank.
        EXPECT_NE(imlFOUNDICONS.image(i + 1).pixelColor(32, 32).alpha(), 0) << i;
    }
}

TEST_F(FoundListTest, separatorIsDoubledWhereTheFolderEndsInOne) {
    const QString folder = folderWith({QStringLiteral("a.bmp")}) + QLatin1Char('/');
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(imlFOUNDICONS.Key(2), folder + QStringLiteral("/a.bmp"));
    EXPECT_EQ(imlFOUNDICONS.image(2).pixelColor(32, 32), QColor(Qt::red));
}

TEST_F(FoundListTest, treeStartsTheListing) {
    const QString folder = folderWith({QStringLiteral("a.bmp")});
    emit ftvFOLDER->NodeChange(folder);
    EXPECT_EQ(texts(), QStringList(QStringLiteral("a.bmp")));
    emit ftvFOLDER->KeyDown(KeyInsert, 1);
    EXPECT_EQ(log.last(), QStringLiteral("keys 45 1"));
}

TEST_F(FoundListTest, hourglassAndBarShowDuringTheListing) {
    const QString folder = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    int seen = 0;
    atNextYieldOfListing([&] {
        ++seen;
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        EXPECT_TRUE(prgBARSLIDES->isVisible());
        EXPECT_FALSE(lvwFOUND->isVisible());
    });
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(seen, 1);
    expectAtRest();
}

TEST_F(FoundListTest, theFolderBeforeStaysUntilTheNamesAreRead) {
    const QString before = folderWith({QStringLiteral("a.bmp")});
    const QString next = folderWith({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
    list->ftvFOLDER_NodeChange(before);
    int seen = 0;
    test::atNextYield([&] {
        ++seen;
        EXPECT_EQ(flbFOUND.Path(), before);
        EXPECT_EQ(texts(), QStringList(QStringLiteral("a.bmp")));
        EXPECT_EQ(imlFOUNDICONS.Count(), 2);
        expectAtRest();
    });
    list->ftvFOLDER_NodeChange(next);
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(flbFOUND.Path(), next);
    expectAligned();
}

TEST_F(FoundListTest, anotherFolderInTheMidstOfTheRowsTakesOver) {
    const QString outer = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    const QString inner = folderWith({QStringLiteral("x.bmp"), QStringLiteral("y.bmp"),
                                      QStringLiteral("z.bmp"), QStringLiteral("zz.bmp")});
    atNextYieldOfListing([&] { list->ftvFOLDER_NodeChange(inner); });
    list->ftvFOLDER_NodeChange(outer);
    EXPECT_EQ(flbFOUND.Path(), inner);
    expectAligned();
    EXPECT_EQ(lvwFOUND->Count(), 4);
    expectAtRest();
    EXPECT_EQ(stored(), inner);
}

TEST_F(FoundListTest, anotherFolderInsideAListingTakesOver) {
    const QString outer = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    const QString inner = folderWith({QStringLiteral("x.bmp"), QStringLiteral("y.bmp"),
                                      QStringLiteral("z.bmp"), QStringLiteral("zz.bmp")});
    test::atNextYield([&] { list->ftvFOLDER_NodeChange(inner); });
    list->ftvFOLDER_NodeChange(outer);
    EXPECT_EQ(flbFOUND.Path(), inner);
    expectAligned();
    EXPECT_EQ(lvwFOUND->Count(), 4);
    expectAtRest();
    // The outer listing ends last, and the next start is to show the folder that is on the screen.
    EXPECT_EQ(stored(), inner);
}

TEST_F(FoundListTest, shorterFolderInsideAListingEndsIt) {
    const QString outer = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"),
                                      QStringLiteral("c.bmp"), QStringLiteral("d.bmp")});
    const QString inner = folderWith({QStringLiteral("x.bmp")});
    // In the midst of row 3.
    QObject::connect(&imlFOUNDICONS, &ImageList::changed, list.get(), [&] {
        if (imlFOUNDICONS.Count() == 4 && flbFOUND.Path() == outer) {
            imlFOUNDICONS.disconnect(list.get());
            test::atNextYield([&] { list->ftvFOLDER_NodeChange(inner); });
        }
    });
    list->ftvFOLDER_NodeChange(outer);
    EXPECT_EQ(texts(), QStringList(QStringLiteral("x.bmp")));
    expectAligned();
    expectAtRest();
}

TEST_F(FoundListTest, emptyFolderInsideAListingEndsIt) {
    const QString outer = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    const QString inner = test::temporaryFolder();
    test::atNextYield([&] { list->ftvFOLDER_NodeChange(inner); });
    list->ftvFOLDER_NodeChange(outer);
    EXPECT_EQ(lvwFOUND->Count(), 0);
    expectAtRest();
}

TEST_F(FoundListTest, listingsInsideListingsDoNotEatTheStack) {
    const QString folder = folderWith({QStringLiteral("a.bmp")});
    const QString last = folderWith({QStringLiteral("last.bmp")});
    int rounds = 0;
    std::function<void()> again = [&] {
        if (++rounds < 2000) {
            test::atNextYield(again);
            list->ftvFOLDER_NodeChange(folder);
        } else {
            list->ftvFOLDER_NodeChange(last);
        }
    };
    again();
    while (rounds < 2000) {
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(texts(), QStringList(QStringLiteral("last.bmp")));
    expectAligned();
    expectAtRest();
    EXPECT_EQ(stored(), last);
}

TEST_F(FoundListTest, folderChosenLastIsStoredWhicheverListingEndsLast) {
    const QString first = folderWith({QStringLiteral("a.bmp")});
    const QString second = folderWith({QStringLiteral("b.bmp")});
    const QString third = test::temporaryFolder();
    test::atNextYield([&] {
        test::atNextYield([&] { list->ftvFOLDER_NodeChange(third); });
        list->ftvFOLDER_NodeChange(second);
    });
    list->ftvFOLDER_NodeChange(first);
    EXPECT_EQ(stored(), third);
    list->ftvFOLDER_NodeChange(first);
    EXPECT_EQ(stored(), first);
}

TEST_F(FoundListTest, closedWindowEndsTheListing) {
    const QString folder = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    test::atNextYield([&] { list->stop(); });
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(lvwFOUND->Count(), 0);
    EXPECT_EQ(stored(), QStringLiteral("none"));
    expectAtRest();
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(lvwFOUND->Count(), 0);
}

TEST_F(FoundListTest, destroyedWindowEndsTheListing) {
    const QString folder = folderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    test::atNextYield([&] { list.reset(); });
    list->ftvFOLDER_NodeChange(folder);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(stored(), QStringLiteral("none"));
}

TEST_F(FoundListTest, touchingTheListMakesItActive) {
    emit lvwFOUND->GotFocus();
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    EXPECT_TRUE(log.isEmpty());
    ActiveList.clear();
    emit lvwFOUND->Click();
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    EXPECT_EQ(log, QStringList(QStringLiteral("clicked")));
}

TEST_F(FoundListTest, doubleClickAndEnterAdd) {
    emit lvwFOUND->DblClick();
    emit lvwFOUND->KeyPress(KeyReturn);
    emit lvwFOUND->KeyPress(32);
    EXPECT_EQ(log, QStringList({QStringLiteral("chosen"), QStringLiteral("chosen")}));
}

TEST_F(FoundListTest, keysOfAnEmptyListDoNothing) {
    emit lvwFOUND->KeyDown(KeyContextMenu, 0);
    emit lvwFOUND->KeyDown(KeyInsert, 0);
    emit lvwFOUND->MouseUp(2, 0, 10, 20);
    EXPECT_TRUE(log.isEmpty());
    EXPECT_TRUE(popups.empty());
}

TEST_F(FoundListTest, contextMenuKeyShowsThePopup) {
    lvwFOUND->Add(1, QStringLiteral("1M"), QString(), 0);
    emit lvwFOUND->KeyDown(KeyContextMenu, 0);
    emit lvwFOUND->KeyDown(KeyInsert, 4);
    ASSERT_EQ(popups.size(), 1U);
    EXPECT_EQ(popups[0], (PopupRequest{PopupRequest::Menu::mnuFOUNDTOP, 1700, 300, false}));
    EXPECT_EQ(log, QStringList({QStringLiteral("clicked"), QStringLiteral("keys 93 0"),
                                QStringLiteral("clicked"), QStringLiteral("keys 45 4")}));
}

TEST_F(FoundListTest, rightButtonShowsThePopupWithAddAsDefault) {
    lvwFOUND->Add(1, QStringLiteral("1M"), QString(), 0);
    emit lvwFOUND->MouseUp(1, 0, 10, 20);
    EXPECT_TRUE(popups.empty());
    ActiveList = QStringLiteral("SELECTED");
    emit lvwFOUND->MouseUp(2, 0, 10, 20);
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND")) << "what its menu works on";
    ASSERT_EQ(popups.size(), 1U);
    EXPECT_EQ(popups[0], (PopupRequest{PopupRequest::Menu::mnuFOUNDTOP, 1510, 320, true}));
}

}  // namespace
}  // namespace velorama
