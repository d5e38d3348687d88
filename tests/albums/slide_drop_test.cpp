// What is dragged into the slide bar.

#include "albums/plain_slide_list.h"
#include "albums/slide_world.h"

#include <QSemaphore>
#include <QSignalSpy>

#include <algorithm>
#include <numeric>
#include <random>

namespace velorama {
namespace {

class SlideDropTest : public test::WithSlides {
protected:
    void fill(const QStringList& slides) {
        lvwSLIDEBAR->Clear();
        for (const QString& key : slides) {
            lvwSLIDEBAR->Add(lvwSLIDEBAR->Count() + 1, key, key, 0);
        }
    }
    /// Names of the slides without folder and ending.
    QString names() const {
        QStringList all;
        for (const QString& key : keys()) {
            all.append(key.section(u'/', -1).section(u'.', 0, 0));
        }
        return all.join(u' ');
    }
    static QString temporaryFolderWith(const QStringList& files) {
        QString folder = test::temporaryFolder();
        for (const QString& file : files) {
            test::savePicture(folder, file);
        }
        return folder;
    }
    static QStringList named(const QString& letters) {
        QStringList all;
        for (const QChar letter : letters) {
            all.append(QStringLiteral("/pics/%1.jpg").arg(letter));
        }
        return all;
    }
};

TEST_F(SlideDropTest, ASlideGoesToItsPlace) {
    const QStringList all = named(QStringLiteral("abcde"));
    struct Row {
        int slide;
        int gap;
        const char* wanted;
        int place;
    };
    for (const Row row : {Row{1, 3, "b c a d e", 3}, Row{5, 1, "a e b c d", 2},
                          Row{2, 5, "a c d e b", 5}, Row{4, 0, "d a b c e", 1}}) {
        fill(all);
        unmodify();
        selectSlides({row.slide});
        list->MoveSelectedTo(row.gap);
        EXPECT_EQ(names(), QLatin1String(row.wanted));
        EXPECT_EQ(current(), row.place);
        EXPECT_EQ(selected(), std::vector<int>{row.place});
        EXPECT_TRUE(isModified());
        EXPECT_TRUE(commands.saveAs.isEnabled());
        EXPECT_EQ(storedCount(), QStringLiteral("5"));
        EXPECT_EQ(storedSlides(5), keys());
        EXPECT_EQ(commands.moveBack.isEnabled(), row.place != 1);
        EXPECT_EQ(commands.moveForward.isEnabled(), row.place != 5);
        EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    }
}

TEST_F(SlideDropTest, BackOnItselfASlideChangesNothing) {
    fill(named(QStringLiteral("abc")));
    lvwSLIDEBAR->item(2)->setText(QStringLiteral("mine"));
    selectSlides({2});
    unmodify();
    for (const int gap : {1, 2}) {
        list->MoveSelectedTo(gap);
        EXPECT_EQ(names(), QStringLiteral("a b c"));
        EXPECT_EQ(lvwSLIDEBAR->item(2)->Text(), QStringLiteral("mine"));
        EXPECT_FALSE(isModified());
        EXPECT_EQ(storedCount(), std::nullopt);
    }
    lvwSLIDEBAR->clearSelection();
    list->MoveSelectedTo(0);
    EXPECT_EQ(names(), QStringLiteral("a b c"));
    fill({});
    list->MoveSelectedTo(4);
    EXPECT_FALSE(isModified());
}

TEST_F(SlideDropTest, SeveralSlidesGoTogetherInTheirOrder) {
    fill(named(QStringLiteral("abcdefg")));
    selectSlides({1, 4, 7});
    lvwSLIDEBAR->setSelectedItem(4);
    list->MoveSelectedTo(2);
    EXPECT_EQ(names(), QStringLiteral("b a d g c e f"));
    EXPECT_EQ(selected(), (std::vector<int>{2, 3, 4}));
    EXPECT_EQ(current(), 3);
    // Together already, they stay; two of three move where the gap lies among them.
    list->MoveSelectedTo(3);
    EXPECT_EQ(names(), QStringLiteral("b a d g c e f"));
    list->MoveSelectedTo(7);
    EXPECT_EQ(names(), QStringLiteral("b c e f a d g"));
}

TEST_F(SlideDropTest, ThousandsMoveWithOneChangeOfTheSelection) {
    QStringList all;
    for (int i = 1; i <= 2000; ++i) {
        all.append(QStringLiteral("/pics/%1.jpg").arg(i));
    }
    fill(all);
    lvwSLIDEBAR->select({1001}, 1001);
    QCoreApplication::processEvents();
    std::vector<int> places(1000);
    std::iota(places.begin(), places.end(), 1001);
    lvwSLIDEBAR->select(places, 1500);
    const QSignalSpy told(lvwSLIDEBAR, &ListView::SelectionChanged);
    list->MoveSelectedTo(0);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(keys(), all.mid(1000) + all.first(1000));
    EXPECT_EQ(lvwSLIDEBAR->SelectedCount(), 1000);
    EXPECT_TRUE(lvwSLIDEBAR->item(1)->Selected());
    EXPECT_EQ(current(), 500);
}

TEST_F(SlideDropTest, SlidesThatMoveAndThosePassedKeepTheirTexts) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp"),
            QStringLiteral("d.bmp"), QStringLiteral("e.bmp")});
    list->AddAll();
    for (int i = 1; i <= 5; ++i) {
        lvwSLIDEBAR->item(i)->setText(QString::number(i));
    }
    selectSlides({2});
    list->MoveSelectedTo(4);
    EXPECT_EQ(texts().join(u' '), QStringLiteral("1 3 4 2 5"));
}

TEST_F(SlideDropTest, SlidesKeepTheirThumbnails) {
    const QString folder =
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    list->AddAll();
    selectSlides({3});
    list->MoveSelectedTo(0);
    EXPECT_EQ(names(), QStringLiteral("c a b"));
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(lvwSLIDEBAR->item(i)->Icon(), imlTHUMBNAILS.indexOf(keys().at(i - 1)));
    }
}

/// The buttons pressed as often as it takes, slide by slide.
class PressedByHand {
public:
    explicit PressedByHand(const QStringList& keys) {
        for (const QString& key : keys) {
            list.slides.push_back({key, key});
        }
    }
    void bring(const std::vector<int>& chosen, int gap) {
        const auto left =
            std::count_if(chosen.begin(), chosen.end(), [gap](int index) { return index <= gap; });
        for (auto i = left - 1; i >= 0; --i) {
            press(chosen.at(std::size_t(i)), gap - int(left - 1 - i));
        }
        for (std::size_t i = std::size_t(left); i < chosen.size(); ++i) {
            press(chosen.at(i), gap + 1 + int(i) - int(left));
        }
    }
    test::PlainSlideList list;

private:
    void press(int from, int to) {
        list.setCurrent(from);
        for (; from != to; from += from < to ? 1 : -1) {
            list.move(from < to ? 1 : -1);
        }
    }
};

TEST_F(SlideDropTest, EndsAsTheButtonsDo) {
    std::mt19937 generator(7);
    for (int round = 0; round < 300; ++round) {
        const int count = 1 + int(generator() % 8);
        const int gap = int(generator() % unsigned(count + 1));
        std::vector<int> chosen;
        for (int i = 1; i <= count; ++i) {
            if (generator() % 3 == 0) {
                chosen.push_back(i);
            }
        }
        const QStringList all = named(QStringLiteral("abcdefgh").left(count));
        PressedByHand hand(all);
        hand.bring(chosen, gap);

        fill(all);
        for (int i = 1; i <= count; ++i) {
            lvwSLIDEBAR->item(i)->setText(u'*' + all.at(i - 1));
        }
        selectSlides(chosen);
        unmodify();
        list->MoveSelectedTo(gap);
        for (int i = 1; i <= count; ++i) {
            const auto& wanted = hand.list.slides.at(std::size_t(i) - 1);
            ASSERT_EQ(keys().at(i - 1), wanted.key) << "round " << round;
            ASSERT_EQ(texts().at(i - 1), u'*' + wanted.key) << "round " << round;
        }
        ASSERT_EQ(isModified(), !hand.list.store.isEmpty());
    }
}

TEST_F(SlideDropTest, APictureOfTheFoundListIsAddedAtItsPlace) {
    browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
    fill(named(QStringLiteral("abc")));
    selectSlides({3});
    selectFound({1});
    unmodify();
    list->AddAt(1);
    EXPECT_EQ(names(), QStringLiteral("a x b c"));
    EXPECT_EQ(selected(), std::vector<int>{2});
    EXPECT_EQ(current(), 2);
    EXPECT_TRUE(isModified());
    EXPECT_EQ(storedSlides(4), keys());
    EXPECT_TRUE(lvwSLIDEBAR->isVisible());
    EXPECT_TRUE(lvwFOUND->isVisible());
    EXPECT_TRUE(commands.moveBack.isEnabled());
}

TEST_F(SlideDropTest, SeveralPicturesGoTogetherInTheOrderOfTheFolder) {
    browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp"), QStringLiteral("z.bmp")});
    fill(named(QStringLiteral("abc")));
    selectFound({1, 2, 3});
    list->AddAt(3);
    EXPECT_EQ(names(), QStringLiteral("a b c x y z"));
    EXPECT_EQ(selected(), (std::vector<int>{4, 5, 6}));
    EXPECT_EQ(current(), 4);
    // What is a slide already stays where it is.
    browse({QStringLiteral("w.bmp")});
    selectFound({1});
    list->AddAt(0);
    EXPECT_EQ(names(), QStringLiteral("w a b c x y z"));
    selectFound({1});
    list->AddAt(5);
    EXPECT_EQ(names(), QStringLiteral("w a b c x y z"));
}

TEST_F(SlideDropTest, IntoAnEmptyBarPicturesGoInOrder) {
    browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp"), QStringLiteral("a.b.bmp")});
    selectFound({1, 2, 3});
    list->AddAt(0);
    EXPECT_EQ(names(), QStringLiteral("x y"));
    EXPECT_EQ(storedSlides(2), keys());
}

TEST_F(SlideDropTest, EveryDropIsOneStepBack) {
    browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
    const QString other = temporaryFolderWith({QStringLiteral("p.bmp"), QStringLiteral("q.bmp")});
    fill(named(QStringLiteral("abc")));
    selectSlides({1, 2});
    list->MoveSelectedTo(3);
    selectFound({1, 2});
    list->AddAt(1);
    list->AddFiles({other}, 2);
    EXPECT_EQ(names(), QStringLiteral("c x p q y a b"));
    EXPECT_EQ(list->history().steps(), 3);
    for (const char* before : {"c x y a b", "c a b", "a b c"}) {
        list->history().undo();
        EXPECT_EQ(names(), QLatin1String(before));
    }
    for (const char* after : {"c a b", "c x y a b", "c x p q y a b"}) {
        list->history().redo();
        EXPECT_EQ(names(), QLatin1String(after));
    }
}

TEST_F(SlideDropTest, DroppedWhileAddRunsTheyFollow) {
    browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
    const QString other = temporaryFolderWith({QStringLiteral("p.bmp"), QStringLiteral("q.bmp")});
    fill(named(QStringLiteral("ab")));
    selectFound({1, 2});
    bool dropped = false;
    test::atNextYield([&] {
        dropped = true;
        list->AddAt(1);
        list->AddFiles({other}, 1);
    });
    list->Add();
    EXPECT_TRUE(dropped);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 6);
    EXPECT_EQ(storedSlides(6), keys());
    EXPECT_EQ(QString(names()).remove(u'x').remove(u'y').simplified(), QStringLiteral("a p q b"));
    EXPECT_TRUE(lvwSLIDEBAR->isVisible());
    EXPECT_FALSE(prgBARSLIDES->isVisible());
}

TEST_F(SlideDropTest, FilesOfADiskThatHangsHoldNoOthersUp) {
    const QString other = temporaryFolderWith({QStringLiteral("p.bmp")});
    const QString slow = temporaryFolderWith({QStringLiteral("s.bmp")});
    fill(named(QStringLiteral("ab")));
    const auto gate = std::make_shared<QSemaphore>();
    list->setLook([gate, slow](const QStringList& paths, const QString& pattern) {
        if (paths.first() == slow) {
            gate->acquire();
        }
        return picturesOf(paths, pattern);
    });
    QString meanwhile;
    test::atNextYield([&] {
        list->AddFiles({other}, 2);
        meanwhile = names();
        gate->release();
    });
    list->AddFiles({slow}, 1);
    EXPECT_EQ(meanwhile, QStringLiteral("a b p"));
    EXPECT_EQ(names(), QStringLiteral("a s b p"));
    EXPECT_EQ(list->history().steps(), 2);
}

TEST_F(SlideDropTest, FilesDoNotComeWhereAllIsTakenAwaySince) {
    const QString slow = temporaryFolderWith({QStringLiteral("s.bmp")});
    fill(named(QStringLiteral("ab")));
    const auto gate = std::make_shared<QSemaphore>();
    list->setLook([gate](const QStringList& paths, const QString& pattern) {
        gate->acquire();
        return picturesOf(paths, pattern);
    });
    test::atNextYield([&] {
        list->ClearAll();
        gate->release();
    });
    list->AddFiles({slow}, 1);
    EXPECT_EQ(names(), QString());
}

TEST_F(SlideDropTest, AClosedWindowTakesNothingMore) {
    const QString folder = browse({QStringLiteral("x.bmp")});
    list->stop();
    unmodify();
    list->AddFiles({folder}, 0);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_FALSE(isModified());
}

TEST_F(SlideDropTest, TheListMayGoWhileItAdds) {
    const QString folder = browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
    bool gone = false;
    test::atNextYield([&] {
        list.reset();
        gone = true;
    });
    list->AddFiles({folder}, 0);
    EXPECT_TRUE(gone);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlideDropTest, FilesAndFoldersOfOtherProgramsAreAddedInTheirOrder) {
    const QString one = temporaryFolderWith({QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    const QString two = temporaryFolderWith(
        {QStringLiteral("Bild 10.bmp"), QStringLiteral("Bild 2.bmp"), QStringLiteral("d.e.bmp")});
    const QString shown = browse({QStringLiteral("x.bmp")});
    fill(named(QStringLiteral("mn")));
    unmodify();
    list->AddFiles({one + QStringLiteral("/c.bmp"), two + QLatin1Char('/'),
                    one + QStringLiteral("/b.bmp"), one + QStringLiteral("/c.bmp")},
                   1);
    QStringList found = names().split(u' ');
    EXPECT_EQ(found.filter(QStringLiteral("Bild")).size(), 2);
    EXPECT_EQ(keys().first(), QStringLiteral("/pics/m.jpg"));
    EXPECT_EQ(keys().at(1), one + QStringLiteral("/c.bmp"));
    EXPECT_TRUE(keys().at(2).startsWith(two));
    EXPECT_TRUE(keys().at(3).startsWith(two));
    EXPECT_EQ(keys().at(4), one + QStringLiteral("/b.bmp"));
    EXPECT_EQ(keys().at(5), QStringLiteral("/pics/n.jpg"));
    EXPECT_EQ(lvwSLIDEBAR->Count(), 6);
    EXPECT_EQ(selected(), (std::vector<int>{2, 3, 4, 5}));
    EXPECT_TRUE(isModified());
    EXPECT_EQ(storedSlides(6), keys());
    EXPECT_EQ(imlTHUMBNAILS.indexOf(one + QStringLiteral("/c.bmp")), lvwSLIDEBAR->item(2)->Icon());
    // The folder on show stays.
    EXPECT_EQ(flbFOUND.Path(), shown);
    EXPECT_FALSE(prgBARSLIDES->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlideDropTest, WhatIsNoPictureOrNotThereChangesNothing) {
    const QString folder = test::temporaryFolder();
    test::saveBytes(folder + QStringLiteral("/words.txt"), "words");
    test::saveBytes(folder + QStringLiteral("/a.b.bmp"), "two dots");
    fill(named(QStringLiteral("mn")));
    lvwSLIDEBAR->item(1)->setText(QStringLiteral("mine"));
    unmodify();
    list->AddFiles({}, 0);
    list->AddFiles({folder + QStringLiteral("/words.txt"), folder + QStringLiteral("/a.b.bmp"),
                    folder + QStringLiteral("/gone.jpg"), QStringLiteral("relative.jpg"), QString(),
                    QStringLiteral("/dev/null"), folder},
                   7);
    EXPECT_EQ(names(), QStringLiteral("m n"));
    EXPECT_EQ(lvwSLIDEBAR->item(1)->Text(), QStringLiteral("mine"));
    EXPECT_FALSE(isModified());
    EXPECT_EQ(storedCount(), std::nullopt);
}

TEST_F(SlideDropTest, ThousandsOfFilesAreTakenOnce) {
    const QString folder = temporaryFolderWith({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    QStringList paths;
    for (int i = 0; i < 3000; ++i) {
        paths.append(folder + (i % 2 == 0 ? QStringLiteral("/a.bmp") : QStringLiteral("/b.bmp")));
        paths.append(folder + QStringLiteral("/gone%1.bmp").arg(i));
    }
    list->AddFiles(paths, 0);
    EXPECT_EQ(names(), QStringLiteral("a b"));
}

}  // namespace
}  // namespace velorama
