#include "ui/main_window.h"

#include "controls/twips.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/memory_registry_store.h"
#include "platform/shell.h"
#include "support/test_world.h"

#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class NoShell : public Shell {
public:
    bool open(const QString&) override { return false; }
    QString specialFolder(int) const override { return {}; }
};

class SilentDevice : public MediaCommands {
public:
    bool send(const QString& command, QString* answer) override {
        commands.append(command);
        return MediaCommands::send(command, answer);
    }
    QStringList commands;
};

class MainWindow : public testing::Test {
protected:
    MainWindow() {
        fillTextConstants(2026, QStringLiteral("http://localhost/"));
        makeServices(store_, shell_);
    }
    ~MainWindow() override { releaseServices(); }

    static QString folderWith(const QStringList& names) {
        const QString folder = test::temporaryFolder();
        for (const QString& name : names) {
            QImage picture(40, 30, QImage::Format_RGB32);
            picture.fill(Qt::darkCyan);
            picture.save(folder + u'/' + name);
        }
        return folder;
    }

    static QString toolSetting(const char* name) {
        return loadSetting(QStringLiteral("\\frmTOOLSSETTINGS\\Items"), QLatin1String(name),
                           QStringLiteral("absent"));
    }
    static void setToolSetting(const char* name, const QString& value) {
        saveSetting(QStringLiteral("\\frmTOOLSSETTINGS\\Items"), QLatin1String(name), value);
    }
    static QString windowSetting(const char* name) {
        return loadSetting(QStringLiteral("mfrmPRGMAIN\\Window"), QLatin1String(name),
                           QStringLiteral("absent"));
    }

    MemoryRegistryStore store_;
    NoShell shell_;
    ScreenSaver screenSaver_;
    SilentDevice device_;
};

TEST_F(MainWindow, FirstRunOpensAtDesignSizeOnTheApplicationsFolder) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(Width(form.controls().surface), 11040);
    EXPECT_EQ(Height(form.controls().surface), 7200);
    EXPECT_EQ(Left(*form.controls().picVBAR), 3585);
    EXPECT_EQ(form.controls().ftvFOLDER->Path(), applicationFolder());
    EXPECT_EQ(toolSetting("Files Location"), applicationFolder());
    EXPECT_FALSE(QDir(applicationFolder()).exists());
    EXPECT_FALSE(FormLoading);
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
}

TEST_F(MainWindow, StartsWithEveryCommandOffInAnEmptyFolder) {
    setToolSetting("Files Location", test::temporaryFolder());
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    for (const cbtn* button : form.controls().cbtnCONTROLS) {
        EXPECT_FALSE(button->isEnabled()) << button->objectName().toStdString();
    }
    EXPECT_FALSE(form.menus().mnuEDITADD->isEnabled());
    EXPECT_FALSE(form.menus().mnuEDITADDALL->isEnabled());
    EXPECT_FALSE(form.menus().mnuEDITCLEAR->isEnabled());
    EXPECT_FALSE(form.menus().mnuEDITCLEARALL->isEnabled());
    EXPECT_FALSE(form.menus().mnuFILESTART->isEnabled());
    EXPECT_FALSE(form.controls().prgBARSLIDES->isVisible());
}

TEST_F(MainWindow, KeyHintsStandBehindATab) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    EXPECT_EQ(form.menus().mnuEDITADD->text(), QStringLiteral("&Add Selected\tIns"));
    EXPECT_EQ(form.menus().mnuEDITCLEAR->text(), QStringLiteral("&Clear Selected\tCtrl+Del"));
    EXPECT_EQ(form.menus().mnuFILEEXIT->text(), QStringLiteral("E&xit\tAlt+F4"));
}

TEST_F(MainWindow, ListsTheStoredFolderWithTheWindowUp) {
    setToolSetting("Files Location", folderWith({QStringLiteral("a.jpg"), QStringLiteral("b.BMP"),
                                                 QStringLiteral("c.png")}));
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    ASSERT_EQ(form.controls().lvwFOUND->Count(), 2);
    EXPECT_TRUE(form.controls().lvwFOUND->item(1)->Selected());
    EXPECT_TRUE(form.menus().mnuEDITADD->isEnabled());
    EXPECT_EQ(form.controls().lblFOUNDCOUNT->Caption(), QStringLiteral("2 pictures"));
}

TEST_F(MainWindow, TheFolderTreeIsSilentWhileTheWindowLoads) {
    const QString folder = folderWith({QStringLiteral("a.jpg")});
    mfrmPRGMAIN form(screenSaver_, device_);
    FormLoading = true;
    form.controls().ftvFOLDER->setPath(folder);
    EXPECT_EQ(form.controls().lvwFOUND->Count(), 0);
    EXPECT_EQ(toolSetting("Files Location"), QStringLiteral("absent"));
    FormLoading = false;
}

TEST_F(MainWindow, ClosingWritesSlidesGeometryAndSplitter) {
    const QString folder = folderWith({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    setToolSetting("Files Location", folder);
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    form.menus().mnuEDITADDALL->trigger();
    setLeft(*form.controls().picVBAR, 4000);
    // Beyond the count: what is old there stays and is never read.
    saveSetting(QStringLiteral("frmSLIDESHOW\\Selection"), QStringLiteral("3"),
                QStringLiteral("old"));
    form.close();
    EXPECT_TRUE(form.isUnloaded());
    const auto slide = [](const char* number) {
        return loadSetting(QStringLiteral("\\frmSLIDESHOW\\Selection"), QLatin1String(number),
                           QStringLiteral("1"));
    };
    EXPECT_EQ(loadSetting(QStringLiteral("\\frmSLIDESHOW\\Items"), QStringLiteral("Items"), {}),
              QStringLiteral("2"));
    EXPECT_EQ(slide("1"), folder + QStringLiteral("/a.jpg"));
    EXPECT_EQ(slide("2"), folder + QStringLiteral("/b.jpg"));
    EXPECT_EQ(slide("3"), QStringLiteral("old"));
    EXPECT_EQ(windowSetting("Window State"), QStringLiteral("0"));
    EXPECT_EQ(windowSetting("Width"), QStringLiteral("11040"));
    EXPECT_EQ(toolSetting("Splitter Bar Left"), QStringLiteral("4000"));
}

TEST_F(MainWindow, TheNextStartComesUpAsTheLastWasLeft) {
    {
        mfrmPRGMAIN form(screenSaver_, device_);
        form.Form_Load();
        form.resize(760, 610);
        setLeft(*form.controls().picVBAR, 3300);
        form.close();
    }
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    EXPECT_EQ(form.size(), QSize(760, 610));
    EXPECT_EQ(Left(*form.controls().picVBAR), 3300);
    EXPECT_EQ(form.controls().lvwSLIDEBAR->Count(), 0);
}

TEST_F(MainWindow, ASplitterThatIsNoNumberStaysAtDesign) {
    setToolSetting("Splitter Bar Left", QStringLiteral("wide"));
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    EXPECT_EQ(Left(*form.controls().picVBAR), 3585);
}

TEST_F(MainWindow, ClosingInTheMidstOfAListingEndsIt) {
    QStringList names;
    for (int i = 0; i < 60; ++i) {
        names.append(QStringLiteral("p%1.jpg").arg(i));
    }
    setToolSetting("Files Location", folderWith(names));
    mfrmPRGMAIN form(screenSaver_, device_);
    QTimer::singleShot(0, &form, [&form] { form.close(); });
    form.Form_Load();
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_FALSE(form.isVisible());
}

// -- music --

TEST_F(MainWindow, TheMusicListComesBackAtTheNextStart) {
    {
        mfrmPRGMAIN form(screenSaver_, device_);
        form.Form_Load();
        form.controls().lstMUSIC->AddItem(QStringLiteral("/music/a.mp3"));
        form.controls().lstMUSIC->AddItem(QStringLiteral("/music/b.wav"));
        form.close();
    }
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    ASSERT_EQ(form.controls().lstMUSIC->ListCount(), 2);
    EXPECT_EQ(form.controls().lstMUSIC->List(1), QStringLiteral("/music/b.wav"));
    EXPECT_TRUE(form.controls().cbtnAUDIO[2]->isEnabled());
    EXPECT_FALSE(form.controls().cbtnAUDIO[3]->isEnabled());
    EXPECT_FALSE(form.controls().cbtnAUDIO[4]->isEnabled());
}

TEST_F(MainWindow, TheEndClosesTheDevice) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    device_.commands.clear();
    form.close();
    EXPECT_EQ(device_.commands, QStringList(QStringLiteral("close CURRFILE")));
}

TEST_F(MainWindow, MusicIsChosenByTheDialogOfThePage) {
    FileDialogRequest asked;
    CommonDialog::answerWith([&asked](const FileDialogRequest& request) {
        asked = request;
        return FileDialogAnswer{{QStringLiteral("/m/one.mp3"), QStringLiteral("/m/two.mid")}, 1};
    });
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    form.controls().cbtnAUDIO[0]->click();
    CommonDialog::answerWith({});
    EXPECT_EQ(asked.title, QStringLiteral("Browse for music files"));
    EXPECT_TRUE(asked.several);
    EXPECT_EQ(asked.filterIndex, 1);
    EXPECT_EQ(form.controls().lstMUSIC->ListCount(), 2);
    EXPECT_EQ(form.controls().lblFile->Caption(), QStringLiteral("/m/one.mp3"));
    EXPECT_EQ(loadSetting(QStringLiteral("mfrmPRGMAIN\\Details"),
                          QStringLiteral("CMD Open FolderMP3"), {}),
              QStringLiteral("/m/"));
}

TEST_F(MainWindow, CtrlTabGoesRoundThePages) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    MainControls& c = form.controls();
    const auto press = [&c](Qt::KeyboardModifiers held) {
        QTest::keyClick(c.surface.window(),
                        held & Qt::ShiftModifier ? Qt::Key_Backtab : Qt::Key_Tab, held);
    };
    EXPECT_TRUE(c.picframPICTURES->isVisible());
    press(Qt::ControlModifier);
    EXPECT_TRUE(c.picframMUSICLIST->isVisible());
    EXPECT_FALSE(c.picframPICTURES->isVisible());
    EXPECT_EQ(c.tabPAGES->ActiveTab(), 2);
    press(Qt::ControlModifier);
    EXPECT_EQ(c.tabPAGES->ActiveTab(), 1);
    EXPECT_TRUE(c.picframPICTURES->isVisible());
    press(Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(c.tabPAGES->ActiveTab(), 2);
    press(Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(c.tabPAGES->ActiveTab(), 1);
}

// -- layout --

struct SizeCase {
    int width;
    int height;
};

class MainLayoutRules : public MainWindow, public testing::WithParamInterface<SizeCase> {};

TEST_P(MainLayoutRules, HoldToTheTwip) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    MainControls& c = form.controls();
    c.surface.resize(GetParam().width, GetParam().height);
    form.Form_Resize();
    const float W = static_cast<float>(GetParam().width) * 15;
    const float H = static_cast<float>(GetParam().height) * 15;
    EXPECT_EQ(Height(*c.tabPAGES), H - 3400);
    EXPECT_EQ(Width(*c.tabPAGES), W - 2 * Left(*c.tabPAGES));
    EXPECT_EQ(Width(*c.picframPICTURES), W - 2 * Left(*c.picframPICTURES));
    EXPECT_EQ(Height(*c.picframPICTURES), H - 3850);
    EXPECT_EQ(Height(*c.ftvFOLDER), H - 3850 - 240);
    EXPECT_EQ(Top(*c.picSELBAR), Top(*c.tabPAGES) + H - 3400 - 110);
    EXPECT_EQ(Width(*c.picSELBAR), W - 2 * Left(*c.picSELBAR));
    EXPECT_EQ(Width(*c.prgBARSLIDES), W - 2 * Left(*c.prgBARSLIDES));
    EXPECT_EQ(Top(*c.picbarCONTROLS), Top(*c.picSELBAR) + Height(*c.picSELBAR));
    EXPECT_EQ(Width(*c.picbarCONTROLS), W);
    EXPECT_EQ(Top(*c.lvwSLIDEBAR), Top(*c.picbarCONTROLS) + Height(*c.picbarCONTROLS) + 180);
    EXPECT_EQ(Left(*c.lvwSLIDEBAR), 120);
    EXPECT_EQ(Width(*c.lvwSLIDEBAR), W - 240);
    EXPECT_EQ(Height(*c.picVBAR), H - 3850 - Top(*c.picVBAR));
    EXPECT_EQ(Left(*c.shpSLIDEBAR), 90);
    EXPECT_EQ(Height(*c.shpSLIDEBAR), 2380);
    EXPECT_EQ(Top(*c.shpSLIDEBAR), H - 2500);
    EXPECT_EQ(Width(*c.shpSLIDEBAR), W - 300);
    EXPECT_EQ(Left(*c.cbtnCONTROLS[6]), W - Width(*c.cbtnCONTROLS[6]) - 45);
    EXPECT_EQ(Height(*c.lvwFOUND), H - 3850 - Top(*c.lvwFOUND) - 500);
    EXPECT_EQ(Width(*c.picframMUSICLIST), W - 2 * Left(*c.picframMUSICLIST));
    EXPECT_EQ(Height(*c.picframMUSICLIST), H - 3850);
    const float page = Width(*c.picframMUSICLIST);
    EXPECT_EQ(Width(*c.lstMUSIC), page - Left(*c.lstMUSIC) - 75);
    EXPECT_EQ(Height(*c.lstMUSIC), H - 3850 - Top(*c.lstMUSIC) - 500);
    EXPECT_EQ(Left(*c.cbtnAUDIO[4]), page - 90 - Width(*c.cbtnAUDIO[4]));
    EXPECT_EQ(Left(*c.cbtnAUDIO[3]), Left(*c.cbtnAUDIO[4]) - 90 - Width(*c.cbtnAUDIO[3]));
    EXPECT_EQ(Left(*c.cbtnAUDIO[2]), Left(*c.cbtnAUDIO[3]) - 90 - Width(*c.cbtnAUDIO[2]));
    EXPECT_EQ(Top(*c.cbtnAUDIO[2]), H - 3850 - 400);
    EXPECT_EQ(Left(*c.prgPLAY) + Width(*c.prgPLAY), Left(*c.cbtnAUDIO[2]) - 240);
    EXPECT_EQ(Top(*c.prgPLAY), Top(*c.cbtnAUDIO[2]) + 90);
    const float bar = Left(*c.picVBAR);
    EXPECT_EQ(Width(*c.ftvFOLDER), bar - 45 - Left(*c.ftvFOLDER));
    EXPECT_EQ(Left(*c.lvwFOUND), bar + 120);
    EXPECT_EQ(Width(*c.lvwFOUND), W - bar - 550);
}

INSTANTIATE_TEST_SUITE_P(Sizes, MainLayoutRules,
                         testing::Values(SizeCase{500, 378}, SizeCase{640, 460}, SizeCase{736, 480},
                                         SizeCase{1280, 760}, SizeCase{1920, 1030},
                                         SizeCase{3840, 2100}));

TEST_F(MainWindow, ASplitterDraggedLeftOf2700StopsAndSnapsTo2775) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    PictureBox& bar = *form.controls().picVBAR;
    MainLayout layout(form.controls());
    layout.dragSplitter(1, -885);
    EXPECT_EQ(Left(bar), 2700);
    layout.dragSplitter(1, -1);
    EXPECT_EQ(Left(bar), 2700);
    layout.VBarLayout();
    EXPECT_EQ(Left(bar), 2775);
    layout.dragSplitter(0, 600);
    EXPECT_EQ(Left(bar), 2775);
}

TEST_F(MainWindow, TheRightLimitOfTheSplitterWinsInANarrowWindow) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    form.controls().surface.resize(240, 480);
    form.VBarLayout();
    EXPECT_EQ(Left(*form.controls().picVBAR), 2600);
}

TEST_F(MainWindow, TheBarFollowsTheMouseAndTheListsFollowAtRelease) {
    setToolSetting("Files Location", test::temporaryFolder());
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    MainControls& c = form.controls();
    const float listLeft = Left(*c.lvwFOUND);
    emit c.picVBAR->MouseMove(1, 300, 0);
    EXPECT_EQ(Left(*c.picVBAR), 3885);
    EXPECT_EQ(Left(*c.lvwFOUND), listLeft);
    emit c.picVBAR->MouseUp(1, 0, 0);
    EXPECT_EQ(Left(*c.lvwFOUND), 4005);
}

TEST_F(MainWindow, TheSplitterMovesByTheKeyboard) {
    mfrmPRGMAIN form(screenSaver_, device_);
    form.Form_Load();
    QTest::keyClick(form.controls().picVBAR, Qt::Key_Right);
    EXPECT_EQ(Left(*form.controls().picVBAR), 3735);
    EXPECT_EQ(Left(*form.controls().lvwFOUND), 3855);
}

}  // namespace
}  // namespace velorama
