#include "albums/plain_slide_list.h"
#include "albums/slide_world.h"

#include <random>

namespace velorama {
namespace {

/// Random operations on the slide list and on the plain one, which puts nothing off.
class SlideBatchTest : public test::WithSlides {
protected:
    enum Operation {
        AddSome,
        AddFolder,
        Remove,
        RemoveAll,
        Back,
        Forward,
        Edit,
        Current,
        Browse,
        Save,
        One,
        SelectFirst,
        OperationCount
    };

    void SetUp() override {
        folders = {folderWith({"a.bmp", "B.JPG", "c.d.bmp", "e.bmp"}),
                   folderWith({"1.bmp", "e.bmp", "x.jpg"}), folderWith({}), longFolder()};
        browseBoth(0);
    }

    QString folderWith(const std::vector<const char*>& names) {
        QString folder = test::temporaryFolder();
        for (const char* name : names) {
            test::savePicture(folder, QString::fromLatin1(name));
        }
        return folder;
    }
    /// Two paths too long for the settings among two that fit.
    QString longFolder() {
        QString folder = test::temporaryFolder();
        for (const QString& name :
             {QStringLiteral("f"), QString(240, u'g'), QStringLiteral("h"), QString(241, u'i')}) {
            test::savePicture(folder, QString(name + QStringLiteral(".bmp")));
        }
        return folder;
    }

    int random(int below) {
        return below < 1 ? 0 : std::uniform_int_distribution<int>(0, below - 1)(generator);
    }
    void browseBoth(std::size_t index) {
        browseFolder(folders.at(index));
        plain.folder = folders.at(index);
        plain.files.clear();
        for (int i = 0; i < flbFOUND.ListCount(); ++i) {
            plain.files.append(flbFOUND.List(i));
        }
        plain.rows.clear();
    }

    /// The arguments of an operation are drawn once and used on both.
    struct Step {
        int operation = 0;
        int argument = 0;
        std::vector<int> rows;
    };
    Step draw(int operations) {
        Step step{random(operations), random(1000), {}};
        for (int row = 1; row <= 8; ++row) {
            if (random(2) == 1) {
                step.rows.push_back(row);
            }
        }
        return step;
    }
    void doReal(const Step& step) {
        const int count = lvwSLIDEBAR->Count();
        switch (step.operation) {
            case AddSome:
                return list->Add();
            case AddFolder:
                return list->AddAll();
            case Remove:
                return list->Clear();
            case RemoveAll:
                return list->ClearAll();
            case Back:
                return list->MoveBack();
            case Forward:
                return list->MoveForward();
            case Edit:
                if (ListItem* item = lvwSLIDEBAR->SelectedItem()) {
                    item->setText(QStringLiteral("x,y"));
                }
                return list->lvwSLIDEBAR_AfterLabelEdit(QStringLiteral("x,y"));
            case Current:
                return lvwSLIDEBAR->setSelectedItem(count == 0 ? 0 : step.argument % count + 1);
            case Save:
                return list->SELECTIONSAVE();
            case One:
                return list->SlideInsert(step.argument % 4);
            case SelectFirst:
                return list->selectFirstSlide();
            default:
                return;
        }
    }
    void doPlain(const Step& step) {
        const int count = static_cast<int>(plain.slides.size());
        switch (step.operation) {
            case AddSome:
                return plain.Add();
            case AddFolder:
                return plain.AddAll();
            case Remove:
                return plain.Clear();
            case RemoveAll:
                return plain.ClearAll();
            case Back:
                return plain.move(-1);
            case Forward:
                return plain.move(1);
            case Edit:
                return plain.edit(QStringLiteral("x,y"));
            case Current:
                return plain.setCurrent(count == 0 ? 0 : step.argument % count + 1);
            case Save:
                return plain.save();
            case One:
                return plain.insert(step.argument % 4);
            case SelectFirst:
                for (auto& slide : plain.slides) {
                    slide.selected = &slide == &plain.slides.front();
                }
                return plain.setCurrent(count == 0 ? 0 : 1);
            default:
                return;
        }
    }
    /// Selects rows in the found list, and sometimes slides, on both sides.
    void select(const Step& step) {
        std::vector<int> found;
        std::copy_if(step.rows.begin(), step.rows.end(), std::back_inserter(found),
                     [this](int row) { return row <= flbFOUND.ListCount(); });
        selectFound(found);
        plain.rows = found;
        if (step.argument % 3 == 0) {
            for (const int row : step.rows) {
                if (row <= lvwSLIDEBAR->Count()) {
                    lvwSLIDEBAR->item(row)->setSelected(true);
                    plain.slides.at(static_cast<std::size_t>(row) - 1).selected = true;
                    plain.setCurrent(row);
                }
            }
        }
    }

    void expectSame(const RegistryStore& kept) {
        ASSERT_EQ(lvwSLIDEBAR->Count(), static_cast<int>(plain.slides.size()));
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            const ListItem& real = *lvwSLIDEBAR->item(i);
            const auto& expected = plain.slides.at(static_cast<std::size_t>(i) - 1);
            ASSERT_EQ(real.Key(), expected.key) << i;
            ASSERT_EQ(real.Text(), expected.text) << i;
            ASSERT_EQ(real.Icon(), expected.icon) << i;
            ASSERT_EQ(real.Selected(), expected.selected) << i;
        }
        ASSERT_EQ(current(), plain.current);
        ASSERT_EQ(imlTHUMBNAILS.Count(), plain.images.size());
        expectStored(kept, QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"));
        for (int i = 0; i <= 20; ++i) {
            expectStored(kept, QStringLiteral("frmSLIDESHOW\\Selection"), QString::number(i));
        }
    }
    void expectStored(const RegistryStore& kept, const QString& segment, const QString& name) {
        const auto value = kept.value(Hive::CurrentUser, keyPath(segment), name);
        EXPECT_EQ(value.has_value(), plain.store.contains(name)) << name.toStdString();
        EXPECT_EQ(value ? QString::fromUtf8(value->data) : QString(), plain.store.value(name));
    }

    /// `outer` on both lists, with `inner` inside it as soon as there are `images` images; after it
    /// where that never came.
    void doBoth(const Step& outer, const Step& inner, int images) {
        bool realDue = true;
        bool plainDue = true;
        bool plainPosted = false;
        const auto post = [&] {
            if (realDue && imlTHUMBNAILS.Count() >= images) {
                realDue = false;
                test::atNextYield([&] { doReal(inner); });
            }
        };
        plain.onImage = [&] { plainPosted = plainPosted || plain.images.size() >= images; };
        plain.onYield = [&] {
            if (plainPosted && plainDue) {
                plainDue = false;
                yieldedInside += insidePlain ? 1 : 0;
                doPlain(inner);
            }
        };
        const auto connection =
            QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), post);
        post();
        plain.onImage();
        doReal(outer);
        QCoreApplication::processEvents();
        insidePlain = true;
        doPlain(outer);
        insidePlain = false;
        plain.onYield();
        QObject::disconnect(connection);
        plain.onImage = nullptr;
        plain.onYield = nullptr;
        ASSERT_EQ(realDue, !plainPosted);
    }

    bool insidePlain = false;
    int yieldedInside = 0;
    std::mt19937 generator;
    std::vector<QString> folders;
    test::PlainSlideList plain;
};

TEST_F(SlideBatchTest, endsAsThePlainListDoes) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        generator.seed(seed);
        for (int round = 0; round < 60; ++round) {
            const Step step = draw(OperationCount);
            SCOPED_TRACE(testing::Message()
                         << "round " << round << " operation " << step.operation);
            if (step.operation == Browse) {
                browseBoth(static_cast<std::size_t>(step.argument) % folders.size());
            } else {
                select(step);
                doReal(step);
                doPlain(step);
            }
            ASSERT_NO_FATAL_FAILURE(expectSame(store));
            ASSERT_FALSE(HasNonfatalFailure());
        }
    }
}

TEST_F(SlideBatchTest, endsAsThePlainListDoesWithOperationsInside) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(seed);
        generator.seed(seed);
        plain = {};
        imlTHUMBNAILS.Clear();
        lvwSLIDEBAR->Clear();
        MemoryRegistryStore fresh;
        makeServices(fresh, shell);
        browseBoth(static_cast<std::size_t>(random(2)));
        for (int round = 0; round < 8; ++round) {
            const Step outer = draw(OperationCount);
            const Step inner = draw(OperationCount);
            SCOPED_TRACE(testing::Message() << "round " << round << " operation " << outer.operation
                                            << " with " << inner.operation);
            if (outer.operation == Browse || inner.operation == Browse) {
                browseBoth(static_cast<std::size_t>(outer.argument) % folders.size());
                continue;
            }
            select(outer);
            ASSERT_NO_FATAL_FAILURE(doBoth(outer, inner, imlTHUMBNAILS.Count() + random(3)));
            ASSERT_NO_FATAL_FAILURE(expectSame(fresh));
            ASSERT_FALSE(HasNonfatalFailure());
        }
        makeServices(store, shell);
    }
    EXPECT_GT(yieldedInside, 100);
}

TEST_F(SlideBatchTest, settingsAreWholeWhenTheShowStartsInside) {
    browseBoth(0);
    int started = 0;
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 2) {
            test::atNextYield([&] {
                ++started;
                list->SELECTIONSAVE();
                EXPECT_EQ(storedCount(), QStringLiteral("2"));
                EXPECT_EQ(storedSlides(2), keys());
            });
        }
    });
    list->AddAll();
    EXPECT_EQ(started, 1);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 3);
}

TEST_F(SlideBatchTest, listChangedByOthersInsideIsTakenAsItIs) {
    browseBoth(0);
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 1) {
            test::atNextYield([&] {
                lvwSLIDEBAR->Clear();
                lvwSLIDEBAR->Add(1, QStringLiteral("/other.jpg"), QStringLiteral("mine"), 0);
                lvwSLIDEBAR->Add(2, QString(), QString(), 0);
            });
        }
    });
    list->AddAll();
    // The empty path is read back as 255 blanks by the first rebuild. As a path that is too long
    // for the settings it is kept by the second.
    EXPECT_EQ(keys(), QStringList({folders[0] + QStringLiteral("/a.bmp"),
                                   folders[0] + QStringLiteral("/B.JPG"),
                                   QStringLiteral("/other.jpg"), QString(255, u' ')}));
    EXPECT_EQ(storedCount(), QStringLiteral("4"));
}

TEST_F(SlideBatchTest, slideChosenInsideIsTheOneThatGoes) {
    browseBoth(0);
    QStringList left;
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 2) {
            test::atNextYield([&] {
                lvwSLIDEBAR->clearSelection();
                lvwSLIDEBAR->item(2)->setSelected(true);
                list->Clear();
                left = keys();
            });
        }
    });
    list->AddAll();
    EXPECT_EQ(left, QStringList(folders[0] + QStringLiteral("/B.JPG")));
    EXPECT_EQ(keys(), QStringList({folders[0] + QStringLiteral("/a.bmp"),
                                   folders[0] + QStringLiteral("/B.JPG")}));
}

TEST_F(SlideBatchTest, slideChosenInsideIsNoLongerSelectedAfterTheNext) {
    browseBoth(0);
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 2) {
            test::atNextYield([&] { lvwSLIDEBAR->item(2)->setSelected(true); });
        }
    });
    list->AddAll();
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(current(), 1);
}

TEST_F(SlideBatchTest, textEditedInsideRevertsWithTheNextSlide) {
    browseBoth(0);
    QStringList seen;
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() < 3) {
            test::atNextYield([&] {
                seen += texts();
                lvwSLIDEBAR->item(1)->setText(QStringLiteral("mine"));
                emit lvwSLIDEBAR->AfterLabelEdit(QStringLiteral("mine"));
            });
        }
    });
    list->AddAll();
    EXPECT_EQ(seen, QStringList({QStringLiteral("e.bmp"), QStringLiteral("B.JPG"),
                                 QStringLiteral("e.bmp")}));
    EXPECT_EQ(texts(), QStringList({QStringLiteral("a.bmp"), QStringLiteral("B.JPG"),
                                    QStringLiteral("e.bmp")}));
}

/// Calls `action` at every yield, at most `times` times, and tells whether a yield came inside one
/// of them: a batch begun there and then makes thumbnails, and these yield.
class PressedInside {
public:
    PressedInside(int times, std::function<void()> action) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_,
                         [this, times, action = std::move(action)] {
                             if (pressed_ == times) {
                                 return;
                             }
                             ++pressed_;
                             QTimer inner;
                             QObject::connect(&inner, &QTimer::timeout, [this] { nested_ = true; });
                             inner.start(0);
                             action();
                         });
        timer_.start(0);
    }
    int pressed() const { return pressed_; }
    bool hasNested() const { return nested_; }

private:
    QTimer timer_;
    int pressed_ = 0;
    bool nested_ = false;
};

TEST_F(SlideBatchTest, addHeldDownIsNeverBegunInsideItself) {
    const QString folder =
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    selectFound({1, 2, 3});
    const PressedInside held(5, [&] { list->Add(); });
    list->Add();
    EXPECT_EQ(held.pressed(), 5);
    EXPECT_FALSE(held.hasNested());
    EXPECT_EQ(lvwSLIDEBAR->Count(), 3);
    EXPECT_EQ(storedCount(), QStringLiteral("3"));
    EXPECT_EQ(storedSlides(3), keys());
    EXPECT_TRUE(isModified());
    EXPECT_FALSE(lvwFOUND->isHidden());
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
}

TEST_F(SlideBatchTest, addAllHeldDownIsNeverBegunInsideItself) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    const PressedInside held(5, [&] { list->AddAll(); });
    list->AddAll();
    EXPECT_EQ(held.pressed(), 5);
    EXPECT_FALSE(held.hasNested());
    EXPECT_EQ(texts(), QStringList({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"),
                                    QStringLiteral("c.bmp")}));
    EXPECT_EQ(storedSlides(3), keys());
    EXPECT_TRUE(prgBARSLIDES->isHidden());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlideBatchTest, bothHeldDownInTurnsNestOnlyOneInTheOther) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    selectFound({1, 3});
    int depth = 0;
    int deepest = 0;
    int presses = 0;
    std::function<void()> atYield;
    const auto press = [&] {
        deepest = std::max(deepest, ++depth);
        test::atNextYield(atYield);
        ++presses % 2 == 0 ? list->Add() : list->AddAll();
        --depth;
    };
    atYield = [&] {
        if (presses < 200) {
            press();
        }
    };
    press();
    EXPECT_GT(presses, 3);
    EXPECT_LE(deepest, 4);
    presses = 200;
    QCoreApplication::processEvents();
    QStringList added = texts();
    added.sort();
    EXPECT_EQ(added, QStringList({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"),
                                  QStringLiteral("c.bmp")}));
    EXPECT_EQ(storedSlides(3), keys());
}

TEST_F(SlideBatchTest, addPressedForOtherFilesFollowsWithThem) {
    const QString first = browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    QString second;
    selectFound({1});
    test::atNextYield([&] {
        selectFound({2});
        list->Add();
        // Until its turn comes the list shows another folder.
        second = browse({QStringLiteral("x.bmp")});
        selectFound({1});
        list->Add();
        browseFolder(first);
    });
    list->Add();
    QStringList added = keys();
    added.sort();
    QStringList expected = {first + QStringLiteral("/a.bmp"), first + QStringLiteral("/b.bmp"),
                            second + QStringLiteral("/x.bmp")};
    expected.sort();
    EXPECT_EQ(added, expected);
}

TEST_F(SlideBatchTest, addAllPressedAgainAfterARemovalInsideBringsEverythingBack) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    bool removed = false;
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 2 && !std::exchange(removed, true)) {
            test::atNextYield([&] {
                list->ClearAll();
                list->AddAll();
            });
        }
    });
    list->AddAll();
    EXPECT_TRUE(removed);
    QStringList added = texts();
    added.sort();
    EXPECT_EQ(added, QStringList({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"),
                                  QStringLiteral("c.bmp")}));
    EXPECT_EQ(storedSlides(3), keys());
}

TEST_F(SlideBatchTest, whatWaitsIsNotAddedWhereAllIsTakenAway) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    selectFound({1});
    for (const auto add : {&SlideList::AddAll, &SlideList::Add}) {
        bool removed = false;
        test::atNextYield([&] {
            (list.get()->*add)();
            list->ClearAll();
            removed = true;
        });
        (list.get()->*add)();
        EXPECT_TRUE(removed);
        EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    }
}

TEST_F(SlideBatchTest, whatWaitsIsNotAddedByAClosedWindow) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    selectFound({1});
    test::atNextYield([&] {
        selectFound({2});
        list->Add();
        list->stop();
    });
    list->Add();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
}

TEST_F(SlideBatchTest, closedWindowEndsTheBatch) {
    browseBoth(0);
    test::atNextYield([&] {
        list->stop();
        list->SELECTIONSAVE();
    });
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(storedCount(), QStringLiteral("0"));
}

TEST_F(SlideBatchTest, destroyedWindowEndsTheBatch) {
    browseBoth(0);
    test::atNextYield([&] { list.reset(); });
    list->AddAll();
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlideBatchTest, destroyedWindowEndsAnAdd) {
    browseBoth(0);
    selectFound({1, 2});
    test::atNextYield([&] { list.reset(); });
    list->Add();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
}

}  // namespace
}  // namespace velorama
