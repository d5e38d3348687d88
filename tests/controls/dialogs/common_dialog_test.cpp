#include "controls/dialogs/common_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString musicFilter = QStringLiteral(
    "All Files (*.mp3; *.mid; *.wav)|*.mp3; *.mid; *.wav|mp3 Files|*.mp3|Wav Files|*.wav|Midi "
    "Files|*.mid");

void makeFile(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

TEST(FileKinds, AreReadFromPairs) {
    EXPECT_EQ(fileKinds(musicFilter),
              QList<FileKind>(
                  {{QStringLiteral("All Files (*.mp3; *.mid; *.wav)"), {"*.mp3", "*.mid", "*.wav"}},
                   {QStringLiteral("mp3 Files"), {"*.mp3"}},
                   {QStringLiteral("Wav Files"), {"*.wav"}},
                   {QStringLiteral("Midi Files"), {"*.mid"}}}));
}

TEST(FileKinds, AllFilesNeedNoDot) {
    EXPECT_EQ(fileKinds(QStringLiteral("Velorama Album Files (*.vlr)|*.vlr|All Files|*.*")),
              QList<FileKind>({{QStringLiteral("Velorama Album Files (*.vlr)"), {"*.vlr"}},
                               {QStringLiteral("All Files"), {"*"}}}));
}

TEST(FileKinds, OddTextsGiveWhatIsWholeInThem) {
    EXPECT_TRUE(fileKinds(QString()).isEmpty());
    EXPECT_TRUE(fileKinds(QStringLiteral("name alone")).isEmpty());
    EXPECT_EQ(fileKinds(QStringLiteral("a|*.a|b")),
              QList<FileKind>({{QStringLiteral("a"), {"*.a"}}}));
    EXPECT_EQ(fileKinds(QStringLiteral("a| ; ")), QList<FileKind>({{QStringLiteral("a"), {"*"}}}));
    EXPECT_EQ(fileKinds(QStringLiteral("a|;*.a;;*.b;")),
              QList<FileKind>({{QStringLiteral("a"), {"*.a", "*.b"}}}));
}

// Answers in place of the dialog and keeps what was asked.
class AnsweredDialog : public testing::Test {
protected:
    void SetUp() override {
        CommonDialog::answerWith([this](const FileDialogRequest& request) {
            asked = request;
            return FileDialogAnswer{answer, answeredIndex};
        });
    }
    void TearDown() override { CommonDialog::answerWith({}); }

    CommonDialog cdlDIALOG;
    FileDialogRequest asked;
    QStringList answer;
    int answeredIndex = 0;
};

TEST_F(AnsweredDialog, SeveralFilesComeOnlyWithTheirFlagAndInOrder) {
    answer = {QStringLiteral("/m/b.mp3"), QStringLiteral("/m/a.mp3")};
    cdlDIALOG.Flags = 524806;
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_TRUE(asked.several);
    EXPECT_TRUE(asked.overwritePrompt);
    EXPECT_EQ(cdlDIALOG.FileNames(), answer);
    EXPECT_EQ(cdlDIALOG.FileName, QStringLiteral("/m/b.mp3"));

    cdlDIALOG.Flags = 524294;
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_FALSE(asked.several);
    EXPECT_EQ(cdlDIALOG.FileNames(), QStringList({QStringLiteral("/m/b.mp3")}));

    cdlDIALOG.Flags = 512;
    EXPECT_TRUE(cdlDIALOG.ShowSave());
    EXPECT_TRUE(asked.save);
    EXPECT_FALSE(asked.several);
    EXPECT_FALSE(asked.overwritePrompt);
    EXPECT_EQ(cdlDIALOG.FileNames().size(), 1);
}

TEST_F(AnsweredDialog, ACancelFailsOnlyWithCancelErrorAndKeepsTheName) {
    cdlDIALOG.FileName = QStringLiteral("kept");
    cdlDIALOG.FilterIndex = 2;
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    cdlDIALOG.CancelError = true;
    EXPECT_FALSE(cdlDIALOG.ShowOpen());
    EXPECT_FALSE(cdlDIALOG.ShowSave());
    EXPECT_EQ(cdlDIALOG.FileName, QStringLiteral("kept"));
    EXPECT_EQ(cdlDIALOG.FilterIndex, 2);
    EXPECT_TRUE(cdlDIALOG.FileNames().isEmpty());
}

TEST_F(AnsweredDialog, ACancelDropsTheFilesOfTheShowingBefore) {
    answer = {QStringLiteral("/m/a.mp3")};
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    answer.clear();
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_TRUE(cdlDIALOG.FileNames().isEmpty());
    EXPECT_EQ(cdlDIALOG.FileName, QStringLiteral("/m/a.mp3"));
}

TEST_F(AnsweredDialog, TheFilterIndexCountsFromOneAndComesBack) {
    cdlDIALOG.Filter = musicFilter;
    const struct {
        int given;
        int shown;
    } rows[] = {{1, 1}, {4, 4}, {0, 1}, {5, 1}, {-1, 1}};
    for (const auto& row : rows) {
        cdlDIALOG.FilterIndex = row.given;
        EXPECT_TRUE(cdlDIALOG.ShowOpen());
        EXPECT_EQ(asked.filterIndex, row.shown) << row.given;
    }
    answer = {QStringLiteral("/m/a.wav")};
    answeredIndex = 3;
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_EQ(cdlDIALOG.FilterIndex, 3);
    cdlDIALOG.Filter.clear();
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_EQ(asked.filterIndex, 0);
}

TEST_F(AnsweredDialog, StartsInTheFolderAskedForOrInOneThatIsThere) {
    const QString folder = test::temporaryFolder();
    cdlDIALOG.InitDir = folder;
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_EQ(QDir(asked.folder), QDir(folder));
    for (const QString& gone : QStringList({QString(), folder + QStringLiteral("/gone")})) {
        cdlDIALOG.InitDir = gone;
        EXPECT_TRUE(cdlDIALOG.ShowOpen());
        EXPECT_TRUE(QDir(asked.folder).exists()) << gone.toStdString();
        EXPECT_NE(QDir(asked.folder), QDir(folder));
    }
    makeFile(folder + QStringLiteral("/file"));
    cdlDIALOG.InitDir = folder + QStringLiteral("/file");
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_TRUE(QDir(asked.folder).exists());
}

TEST_F(AnsweredDialog, AFolderThatIsGoneGivesThePlaceForFilesOfTheKind) {
    const auto place = [](QStandardPaths::StandardLocation location) {
        return QStandardPaths::writableLocation(location);
    };
    ASSERT_TRUE(QDir().mkpath(place(QStandardPaths::DocumentsLocation)));
    ASSERT_TRUE(QDir().mkpath(place(QStandardPaths::MusicLocation)));
    cdlDIALOG.InitDir = test::temporaryFolder() + QStringLiteral("/gone");
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_EQ(asked.folder, place(QStandardPaths::DocumentsLocation));
    cdlDIALOG.StandIn = QStandardPaths::MusicLocation;
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_EQ(asked.folder, place(QStandardPaths::MusicLocation));
    // Nobody has to keep music there.
    ASSERT_TRUE(QDir(place(QStandardPaths::MusicLocation)).removeRecursively());
    EXPECT_TRUE(cdlDIALOG.ShowOpen());
    EXPECT_EQ(asked.folder, place(QStandardPaths::DocumentsLocation));
}

// Runs as soon as the real dialog is up.
template <typename Act>
void onceShown(Act act) {
    // The offscreen platform has no window manager to tell the least size to.
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    QTimer::singleShot(0, [act] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        act(*dialog);
    });
}

TEST(RealDialog, ShowsTitleKindsFolderAndModes) {
    const QString folder = test::temporaryFolder();
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Browse for music files");
    dialog.Filter = musicFilter;
    dialog.FilterIndex = 2;
    dialog.Flags = 524806;
    dialog.InitDir = folder;
    dialog.CancelError = true;
    onceShown([&](QFileDialog& shown) {
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("Browse for music files"));
        EXPECT_EQ(shown.fileMode(), QFileDialog::ExistingFiles);
        EXPECT_EQ(shown.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(shown.directory(), QDir(folder));
        EXPECT_EQ(shown.nameFilters().value(1), QStringLiteral("mp3 Files (*.mp3)"));
        auto* kinds = shown.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_NE(kinds, nullptr);
        EXPECT_EQ(kinds->currentIndex(), 1);
        EXPECT_EQ(kinds->itemText(0), QStringLiteral("All Files (*.mp3; *.mid; *.wav)"));
        EXPECT_EQ(kinds->itemText(1), QStringLiteral("mp3 Files"));
        shown.reject();
    });
    EXPECT_FALSE(dialog.ShowOpen());
    EXPECT_TRUE(dialog.FileNames().isEmpty());
}

TEST(RealDialog, ListsHaveFramesAndTheirHeaderHasNone) {
    CommonDialog dialog;
    dialog.CancelError = true;
    onceShown([](QFileDialog& shown) {
        const auto* list = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        ASSERT_NE(list, nullptr);
        EXPECT_GT(list->frameWidth(), 0);
        EXPECT_EQ(list->header()->frameWidth(), 0);
        shown.reject();
    });
    EXPECT_FALSE(dialog.ShowOpen());
}

TEST(RealDialog, GivesTheFilesInTheOrderOfItsLine) {
    const QString folder = test::temporaryFolder();
    makeFile(folder + QStringLiteral("/a one.mp3"));
    makeFile(folder + QStringLiteral("/b.WAV"));
    CommonDialog dialog;
    dialog.Filter = musicFilter;
    dialog.Flags = 524806;
    dialog.InitDir = folder;
    onceShown([](QFileDialog& shown) {
        shown.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->setCurrentIndex(2);
        shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QStringLiteral("\"b.WAV\" \"a one.mp3\""));
        QMetaObject::invokeMethod(&shown, "accept");
    });
    EXPECT_TRUE(dialog.ShowOpen());
    EXPECT_EQ(dialog.FileNames(), QStringList({folder + QStringLiteral("/b.WAV"),
                                               folder + QStringLiteral("/a one.mp3")}));
    EXPECT_EQ(dialog.FilterIndex, 3);
}

// A folder with a folder and files in both, and the dialog on it driven by keys and mouse.
class TypedDialog : public testing::Test {
protected:
    TypedDialog() {
        QDir().mkpath(folder);
        makeFile(top + QStringLiteral("/above.wav"));
        makeFile(folder + QStringLiteral("/a.wav"));
        makeFile(folder + QStringLiteral("/b.wav"));
        dialog.Filter = musicFilter;
        dialog.Flags = 524806;
        dialog.InitDir = top;
    }

    static QLineEdit* line(const QFileDialog& shown) {
        return shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    }
    static void type(const QFileDialog& shown, const QString& text) {
        // Its popup would need a window manager.
        line(shown)->setCompleter(nullptr);
        line(shown)->setFocus();
        QTest::keyClicks(line(shown), text);
    }
    static void pressReturn(const QFileDialog& shown) {
        QTest::keyClick(line(shown), Qt::Key_Return);
    }
    static void pressOpen(const QFileDialog& shown) {
        const auto* buttons = shown.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
    }
    static bool pick(const QFileDialog& shown, const QString& name, Qt::KeyboardModifiers keys) {
        QAbstractItemView* list = shown.findChild<QListView*>(QStringLiteral("listView"));
        if (!list->isVisible()) {
            list = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        }
        QModelIndex found;
        const bool there = QTest::qWaitFor(
            [&] {
                for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
                    const QModelIndex index = list->model()->index(row, 0, list->rootIndex());
                    found = index.data().toString() == name ? index : found;
                }
                return found.isValid();
            },
            20000);
        list->setFocus();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, list->visualRect(found).center());
        return there;
    }
    static bool isIn(const QFileDialog& shown, const QString& path) {
        return QTest::qWaitFor([&] { return shown.directory() == QDir(path); }, 20000);
    }
    // The dialog's own completion needs the folders to have been read.
    static bool knows(QFileDialog& shown, const QString& path) {
        const auto* files = shown.findChild<QFileSystemModel*>();
        return QTest::qWaitForWindowActive(&shown) &&
               QTest::qWaitFor([&] { return files->rowCount(files->index(path)) > 0; }, 20000);
    }

    QString top = test::temporaryFolder() + QStringLiteral("/top");
    QString folder = top + QStringLiteral("/sub");
    CommonDialog dialog;
};

TEST_F(TypedDialog, EntersTheFolderThatWasTyped) {
    const QStringList texts = {QStringLiteral("sub"), QStringLiteral("sub/"), folder,
                               folder + QStringLiteral("/"), top + QStringLiteral("/../top/sub")};
    for (const QString& text : texts) {
        onceShown([&](QFileDialog& shown) {
            EXPECT_TRUE(knows(shown, top));
            type(shown, text);
            pressReturn(shown);
            EXPECT_TRUE(isIn(shown, folder)) << text.toStdString();
            EXPECT_EQ(line(shown)->text(), QString());
            EXPECT_TRUE(shown.selectedFiles().isEmpty()) << text.toStdString();
            shown.reject();
        });
        EXPECT_TRUE(dialog.ShowOpen());
    }
}

TEST_F(TypedDialog, OpensWhatIsPickedInTheFolderThatWasTyped) {
    onceShown([&](QFileDialog& shown) {
        EXPECT_TRUE(knows(shown, top));
        type(shown, QStringLiteral("sub"));
        pressReturn(shown);
        EXPECT_TRUE(isIn(shown, folder));
        EXPECT_TRUE(pick(shown, QStringLiteral("a.wav"), Qt::ControlModifier));
        EXPECT_TRUE(pick(shown, QStringLiteral("b.wav"), Qt::ControlModifier));
        pressOpen(shown);
        EXPECT_FALSE(shown.isVisible());
        if (shown.isVisible()) {
            shown.reject();
        }
    });
    EXPECT_TRUE(dialog.ShowOpen());
    EXPECT_EQ(dialog.FileNames(),
              QStringList({folder + QStringLiteral("/a.wav"), folder + QStringLiteral("/b.wav")}));
}

TEST_F(TypedDialog, OpensTheFileThatWasTypedWithItsWholePath) {
    onceShown([&](QFileDialog& shown) {
        EXPECT_TRUE(knows(shown, top));
        type(shown, folder + QStringLiteral("/a.wav"));
        pressOpen(shown);
        EXPECT_FALSE(shown.isVisible());
        if (shown.isVisible()) {
            shown.reject();
        }
    });
    EXPECT_TRUE(dialog.ShowOpen());
    EXPECT_EQ(dialog.FileNames(), QStringList({folder + QStringLiteral("/a.wav")}));
}

TEST_F(TypedDialog, EntersTheFolderThatIsPickedAfterATypedName) {
    onceShown([&](QFileDialog& shown) {
        EXPECT_TRUE(knows(shown, top));
        type(shown, QStringLiteral("above.wav"));
        EXPECT_TRUE(pick(shown, QStringLiteral("sub"), Qt::NoModifier));
        pressOpen(shown);
        EXPECT_TRUE(isIn(shown, folder));
        shown.reject();
    });
    EXPECT_TRUE(dialog.ShowOpen());
}

TEST(RealDialog, SavesUnderTheNameAsTyped) {
    const QString folder = test::temporaryFolder();
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Save");
    dialog.Filter = QStringLiteral("Velorama Album Files (*.vlr)|*.vlr|All Files|*.*");
    dialog.Flags = 524294;
    dialog.InitDir = folder;
    onceShown([](QFileDialog& shown) {
        EXPECT_EQ(shown.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_FALSE(shown.testOption(QFileDialog::DontConfirmOverwrite));
        shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QStringLiteral("trip"));
        QMetaObject::invokeMethod(&shown, "accept");
    });
    EXPECT_TRUE(dialog.ShowSave());
    EXPECT_EQ(dialog.FileName, folder + QStringLiteral("/trip"));
}

TEST(RealDialog, TheEmptyLineTellsTheEndingOfWhatIsSaved) {
    CommonDialog dialog;
    dialog.InitDir = test::temporaryFolder();
    const auto line = [](const QFileDialog& shown) {
        return shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    };
    const auto hint = [&line](QString& text) {
        return [&](QFileDialog& shown) {
            text = line(shown)->text() + line(shown)->placeholderText();
            shown.reject();
        };
    };
    QString text;
    dialog.Filter = QStringLiteral("Velorama Album Files (*.vlr)|*.vlr|All Files|*.*");
    onceShown(hint(text));
    dialog.ShowSave();
    EXPECT_EQ(text, QStringLiteral("name.vlr"));
    onceShown(hint(text));
    dialog.ShowOpen();
    EXPECT_EQ(text, QString());
    dialog.Filter = QStringLiteral("All Files|*.*");
    onceShown(hint(text));
    dialog.ShowSave();
    EXPECT_EQ(text, QString());
}

TEST(RealDialog, PicturesMusicAndDocumentsStandAtItsSide) {
    QList<QUrl> places;
    for (const auto location : {QStandardPaths::PicturesLocation, QStandardPaths::MusicLocation,
                                QStandardPaths::DocumentsLocation}) {
        const QString folder = QStandardPaths::writableLocation(location);
        ASSERT_TRUE(QDir().mkpath(folder));
        places.append(QUrl::fromLocalFile(folder));
    }
    const QList<QUrl> before = QFileDialog().sidebarUrls();
    CommonDialog dialog;
    dialog.InitDir = test::temporaryFolder();
    const QUrl own = QUrl::fromLocalFile(test::temporaryFolder());
    onceShown([&](QFileDialog& shown) {
        EXPECT_EQ(shown.sidebarUrls(), before + places);
        shown.setSidebarUrls(shown.sidebarUrls() + QList<QUrl>{own});
        shown.reject();
    });
    dialog.ShowOpen();
    // Other programs have the same dialog: they get what the user has put there, and no more.
    EXPECT_EQ(QFileDialog().sidebarUrls(), before + QList<QUrl>{own});
}

TEST(RealDialog, SavesUnderTheFirstLineOfWhatWasPasted) {
    const QString folder = test::temporaryFolder();
    CommonDialog dialog;
    dialog.InitDir = folder;
    onceShown([](QFileDialog& shown) {
        auto* line = shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QApplication::clipboard()->setText(QStringLiteral("trip.vlr\n"));
        line->setCompleter(nullptr);
        line->paste();
        QMetaObject::invokeMethod(&shown, "accept");
    });
    EXPECT_TRUE(dialog.ShowSave());
    EXPECT_EQ(dialog.FileName, folder + QStringLiteral("/trip.vlr"));
}

TEST(RealDialog, AsksBeforeItReplacesAFile) {
    const QString folder = test::temporaryFolder();
    makeFile(folder + QStringLiteral("/trip.vlr"));
    CommonDialog dialog;
    dialog.Flags = 2;
    dialog.InitDir = folder;
    bool questioned = false;
    onceShown([&](QFileDialog& shown) {
        test::expectMessage(QStringLiteral("propagateSizeHints"));
        QTimer::singleShot(0, [&] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            questioned = question != nullptr;
            if (question) {
                question->button(QMessageBox::No)->click();
            }
        });
        shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QStringLiteral("trip.vlr"));
        QMetaObject::invokeMethod(&shown, "accept");
        shown.reject();
    });
    EXPECT_TRUE(dialog.ShowSave());
    EXPECT_TRUE(questioned);
    EXPECT_EQ(dialog.FileName, QString());
}

// Answers in place of the colour dialog.
class AnsweredColour : public testing::Test {
protected:
    void SetUp() override {
        CommonDialog::answerColourWith([this](const ColourDialogRequest& request) {
            asked = request;
            return answer;
        });
    }
    void TearDown() override { CommonDialog::answerColourWith({}); }

    CommonDialog cdlDIALOG;
    ColourDialogRequest asked;
    std::optional<Colour> answer;
};

TEST_F(AnsweredColour, StartsFromTheColourAndBringsTheChosenOne) {
    cdlDIALOG.DialogTitle = QStringLiteral("Custom Color");
    cdlDIALOG.Flags = 3;
    cdlDIALOG.Color = 0x400000;
    answer = 0x123456;
    EXPECT_TRUE(cdlDIALOG.ShowColor());
    EXPECT_EQ(asked.title, QStringLiteral("Custom Color"));
    EXPECT_EQ(asked.colour, 0x400000);
    EXPECT_EQ(cdlDIALOG.Color, 0x123456);
}

TEST_F(AnsweredColour, ACancelLeavesTheColour) {
    cdlDIALOG.Color = 0x400000;
    EXPECT_TRUE(cdlDIALOG.ShowColor());
    EXPECT_EQ(cdlDIALOG.Color, 0x400000);
    cdlDIALOG.CancelError = true;
    EXPECT_FALSE(cdlDIALOG.ShowColor());
    EXPECT_EQ(cdlDIALOG.Color, 0x400000);
}

TEST_F(AnsweredColour, WithoutItsFlagItStartsFromBlack) {
    cdlDIALOG.Color = 0x400000;
    cdlDIALOG.Flags = 2;
    EXPECT_TRUE(cdlDIALOG.ShowColor());
    EXPECT_EQ(asked.colour, 0);
}

TEST_F(AnsweredColour, StartsASystemColourFromItsPlainOne) {
    cdlDIALOG.Flags = 1;
    cdlDIALOG.Color = systemColour(15);
    EXPECT_TRUE(cdlDIALOG.ShowColor());
    EXPECT_EQ(asked.colour, GetSysColor(15));
    EXPECT_EQ(cdlDIALOG.Color, systemColour(15));
}

TEST(RealColourDialog, ShowsTitleAndColourAndBringsTheChosenOne) {
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Custom Color");
    dialog.Flags = 3;
    dialog.Color = 0x400000;
    for (const bool accepted : {true, false}) {
        test::expectMessage(QStringLiteral("propagateSizeHints"));
        QTimer::singleShot(0, [accepted] {
            auto* shown = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(shown, nullptr);
            EXPECT_EQ(shown->windowTitle(), QStringLiteral("Custom Color"));
            if (accepted) {
                EXPECT_EQ(shown->currentColor(), QColor(0, 0, 0x40));
            }
            shown->setCurrentColor(accepted ? QColor(1, 2, 3) : QColor(9, 9, 9));
            accepted ? shown->accept() : shown->reject();
        });
        EXPECT_TRUE(dialog.ShowColor());
        EXPECT_EQ(dialog.Color, 0x030201);
    }
}

}  // namespace
}  // namespace velorama
