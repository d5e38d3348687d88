// What comes between a command and its undo: other presses, a read that is left, a text being
// typed.

#include "albums/history_world.h"

namespace velorama {
namespace {

class HistoryRaces : public test::WithHistory {
protected:
    HistoryRaces() {
        file->openAtStart(path);
        list->SelectChk();
    }

    static QByteArray bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Another album is opened, New pressed after its first slide, and that taken back.
    void comeBackToAPart() {
        atSlide(1, [&] { commands.newAlbum.trigger(); });
        open(other);
        undo();
        ASSERT_EQ(file->Tag(), other);
        ASSERT_LT(keys().size(), q.size());
        ASSERT_FALSE(keys().isEmpty());
    }
    /// An Add All at whose end an undo is to follow.
    void addWithUndoWaiting(const QString& name) {
        browse({name});
        test::atNextYield([&] { commands.undo.trigger(); });
        list->AddAll();
    }

    QStringList p =
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.bmp"), QStringLiteral("c.jpg")});
    QStringList q = pictures({QStringLiteral("v.jpg"), QStringLiteral("w.jpg"),
                              QStringLiteral("x.jpg"), QStringLiteral("y.jpg")});
    QString path = album(formA(p));
    QString other = album(formA(q), QStringLiteral("b.vlr"));
};

TEST_F(HistoryRaces, SaveOfAPartOfAnAlbumLeavesItsFileAlone) {
    const QByteArray whole = bytes(other);
    comeBackToAPart();
    edit(1, QStringLiteral("mine"));
    asked.clear();
    chosen.clear();
    commands.save.trigger();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_EQ(bytes(other), whole);
    undo();
    undo();
    redo();
    modify();
    commands.save.trigger();
    EXPECT_EQ(asked.size(), 2U);
    EXPECT_EQ(bytes(other), whole);
}

TEST_F(HistoryRaces, APartOfAnAlbumThatIsNamedInSaveAsIsItsList) {
    comeBackToAPart();
    chosen = other;
    file->mnuFILESAVEAS_Click();
    const QStringList part = keys();
    asked.clear();
    modify();
    commands.save.trigger();
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(bytes(other).contains(part[0].toUtf8()));
    EXPECT_FALSE(bytes(other).contains(q.last().toUtf8()));
}

TEST_F(HistoryRaces, AnAlbumReadAgainToItsEndIsSavedAtOnce) {
    comeBackToAPart();
    open(other);
    asked.clear();
    list->MoveForward();
    commands.save.trigger();
    EXPECT_TRUE(asked.empty());
}

TEST_F(HistoryRaces, AWaitingUndoLeavesAnAddAllPressedAfterItAlone) {
    const QString first = browse({QStringLiteral("d.jpg"), QStringLiteral("e.jpg")});
    QStringList second;
    test::atNextYield([&] {
        commands.undo.trigger();
        const QString folder =
            browse({QStringLiteral("1.jpg"), QStringLiteral("2.jpg"), QStringLiteral("3.jpg"),
                    QStringLiteral("4.jpg"), QStringLiteral("5.jpg")});
        for (int i = 1; i <= 5; ++i) {
            second.append(folder + QStringLiteral("/%1.jpg").arg(i));
        }
        commands.addAll.trigger();
    });
    commands.addAll.trigger();
    QCoreApplication::processEvents();
    ASSERT_EQ(second.size(), 5);
    for (const QString& picture : second) {
        EXPECT_TRUE(keys().contains(picture)) << picture.toStdString();
    }
    EXPECT_TRUE(keys().contains(first + QStringLiteral("/e.jpg")));
}

// Each makes a step, and none is taken back.
TEST_F(HistoryRaces, AWaitingUndoLeavesNoLaterCommandUndone) {
    const QStringList dropped = pictures({QStringLiteral("g.jpg")});
    const auto found = [this](const QString& name) {
        browse({name});
        selectFound({1});
    };
    const std::vector<std::function<void()>> later = {
        [&] { found(QStringLiteral("h.jpg")), list->Add(); },
        [&] { found(QStringLiteral("i.jpg")), list->AddAt(0); },
        [&] { found(QStringLiteral("j.jpg")), list->AddAll(); },
        [&] { list->AddFiles(dropped, 0); },
        [&] { lvwSLIDEBAR->setSelectedItem(1), list->MoveForward(); },
        [&] { lvwSLIDEBAR->setSelectedItem(2), list->MoveBack(); },
        [&] { selectSlides({1}), list->MoveSelectedTo(3); },
        [&] { edit(1, QStringLiteral("mine")); },
        [&] { list->Clear(); },
        [&] { list->ClearAll(); },
        [&] { commands.newAlbum.trigger(); },
        [&] { open(other); },
        [&] { file->openFromList(path); },
    };
    for (std::size_t i = 0; i < later.size(); ++i) {
        const int steps = history().steps();
        addWithUndoWaiting(QStringLiteral("n%1.jpg").arg(i));
        later[i]();
        QCoreApplication::processEvents();
        EXPECT_EQ(history().steps(), steps + 2) << i;
    }
}

// The list of a show stays as it was when the show began.
TEST_F(HistoryRaces, AWaitingUndoDoesNotFollowIntoAShow) {
    const int steps = history().steps();
    addWithUndoWaiting(QStringLiteral("d.jpg"));
    ASSERT_TRUE(commands.start.isEnabled());
    commands.start.trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(keys().size(), p.size() + 1);
    EXPECT_EQ(history().steps(), steps + 1);
}

TEST_F(HistoryRaces, ATextTypedWhenRedoIsPressedIsTheLastStep) {
    list->MoveForward();
    undo();
    const auto typing = QObject::connect(&history(), &SlideHistory::Leaving,
                                         [&] { edit(1, QStringLiteral("mine")); });
    const int steps = history().steps();
    redo();
    QObject::disconnect(typing);
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(texts()[0], QStringLiteral("mine"));
    EXPECT_EQ(history().steps(), steps + 1);
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
    undo();
    EXPECT_NE(texts()[0], QStringLiteral("mine"));
}

TEST_F(HistoryRaces, AListThatChangesWhileItIsLeftIsLeftAsItIs) {
    list->MoveForward();
    const auto change =
        QObject::connect(&history(), &SlideHistory::Leaving, [&] { lvwSLIDEBAR->Remove(1); });
    const QStringList rest = keys().mid(1);
    undo();
    QObject::disconnect(change);
    EXPECT_EQ(keys(), rest);
    EXPECT_EQ(history().steps(), 0);
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
}

}  // namespace
}  // namespace velorama
