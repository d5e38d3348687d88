#include "core/globals.h"
#include "core/lib_txt.h"
#include "core/show_colours.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"
#include "ui/dialogs/frm_toolssettings.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString absent = QStringLiteral("absent");

class SettingsDialog : public testing::Test {
protected:
    SettingsDialog() {
        fillTextConstants(2026, QStringLiteral("http://localhost/"));
        makeServices(store_, shell_);
        albums_.setColumns({QStringLiteral("Name"), QStringLiteral("Description")});
    }
    ~SettingsDialog() override {
        CommonDialog::answerColourWith({});
        form_.reset();
        releaseServices();
    }

    static void store(const char* name, const QString& value) {
        const QLatin1String key(name);
        saveSetting(key.startsWith(QLatin1String("pic"))
                        ? QStringLiteral("\\frmTOOLSSETTINGS\\Items")
                        : QStringLiteral("\\frmCONFIG\\Items"),
                    key, value);
    }
    static QString stored(const char* name) {
        const QLatin1String key(name);
        return loadSetting(key.startsWith(QLatin1String("pic"))
                               ? QStringLiteral("\\frmTOOLSSETTINGS\\Items")
                               : QStringLiteral("\\frmCONFIG\\Items"),
                           key, absent);
    }
    static QStringList all() {
        return {stored("TBAR"), stored("INTERVAL"), stored("TRANSITION"), stored("picBACKGROUND"),
                stored("picGRADCOLOR")};
    }

    frmTOOLSSETTINGS& load(const QString& albumPath = {}) {
        form_ = std::make_unique<frmTOOLSSETTINGS>(nullptr, albumPath, albums_);
        return *form_;
    }
    void show() {
        // The offscreen platform has no window manager to tell the fixed size to.
        test::expectMessage(QStringLiteral("propagateSizeHints"));
        form_->show();
        form_->activateWindow();
        QApplication::processEvents();
    }
    template <typename Control>
    Control& control(const char* name) const {
        auto* found = form_->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    QCheckBox& chkTBAR() const { return control<QCheckBox>("chkTBAR"); }
    updown& udnINTERVAL() const { return control<updown>("udnINTERVAL"); }
    updown& udnTRANSITIONVAL() const { return control<updown>("udnTRANSITIONVAL"); }
    QLineEdit& txtDESC() const { return control<QLineEdit>("txtDESC"); }
    QImage sample() const { return control<PictureBox>("picSAMPLE").Image(); }
    QColor swatch(const char* name) const { return control<Swatch>(name).BackColor(); }
    // Opens a palette by its button and chooses the colour named.
    void pick(const char* button, const QString& colour) {
        test::expectMessage(QStringLiteral("raise()"));
        test::expectMessage(QStringLiteral("grabbing the keyboard"));
        QTest::mouseClick(&control<QWidget>(button), Qt::LeftButton);
        for (auto* entry : QApplication::activePopupWidget()->findChildren<QAbstractButton*>()) {
            if (entry->accessibleName() == colour) {
                QTest::mouseClick(entry, Qt::LeftButton);
                break;
            }
        }
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    MemoryRegistryStore store_;
    test::RecordingShell shell_;
    ReportView albums_;
    std::unique_ptr<frmTOOLSSETTINGS> form_;
};

TEST_F(SettingsDialog, HasTheTextsOfItsDesign) {
    load();
    EXPECT_EQ(form_->windowTitle(), QStringLiteral("Slideshow Settings"));
    EXPECT_EQ(form_->objectName(), QStringLiteral("frmTOOLSSETTINGS"));
    QStringList groups;
    for (const QGroupBox* group : form_->findChildren<QGroupBox*>()) {
        groups.append(group->title());
    }
    EXPECT_EQ(groups,
              QStringList({QStringLiteral(" Toolbar "), QStringLiteral(" Slide Interval Time "),
                           QStringLiteral(" Slideshow Background Colors "),
                           QStringLiteral(" Slideshow Description ")}));
    EXPECT_EQ(chkTBAR().text(), QStringLiteral("&Auto-hide slideshow toolbar"));
    EXPECT_EQ(control<QPushButton>("btnOK").text(), QStringLiteral("OK "));
    EXPECT_EQ(control<QPushButton>("btnCANCEL").text(), QStringLiteral("Cancel "));
}

TEST_F(SettingsDialog, EveryLabelLeadsToItsControl) {
    load();
    const struct {
        const char* caption;
        const char* buddy;
    } rows[] = {
        {"Picture I&nterval (Default 4s):", "udnINTERVAL"},
        {"T&ransition Interval (Default 15ms):", "udnTRANSITIONVAL"},
        {"&Background:", "btnBACK"},
        {"&Gradient:", "btnGRADCOLOR"},
        {"&Text:", "txtDESC"},
    };
    QList<QLabel*> labels = form_->findChildren<QLabel*>();
    labels.removeIf([](const QLabel* label) { return label->buddy() == nullptr; });
    EXPECT_EQ(labels.size(), 5);
    for (const auto& row : rows) {
        const auto label = std::find_if(labels.begin(), labels.end(), [&row](const QLabel* l) {
            return l->text() == QLatin1String(row.caption);
        });
        ASSERT_NE(label, labels.end()) << row.caption;
        EXPECT_EQ((*label)->buddy(), &control<QWidget>(row.buddy));
    }
}

TEST_F(SettingsDialog, HasEveryControlByItsName) {
    load();
    for (const char* name :
         {"chkTBAR", "udnINTERVAL", "udnTRANSITIONVAL", "picBACKGROUND", "cddGRADSHDW", "btnBACK",
          "darBACKGROUND", "picGRADCOLOR", "cddGRAD", "btnGRADCOLOR", "darGRAD", "txtDESC",
          "picSAMPLE", "Image1", "btnOK", "btnCANCEL"}) {
        EXPECT_EQ(form_->findChildren<QObject*>(QLatin1String(name)).size(), 1) << name;
    }
}

TEST_F(SettingsDialog, ShowsTheDefaultsOfAnEmptyStoreAndWritesNothing) {
    load();
    EXPECT_TRUE(chkTBAR().isChecked());
    EXPECT_EQ(udnINTERVAL().Text(), QStringLiteral("4"));
    EXPECT_EQ(udnTRANSITIONVAL().Text(), QStringLiteral("15"));
    EXPECT_EQ(form_->background(), 0x00000040);
    EXPECT_EQ(form_->gradient(), 0x000000FF);
    EXPECT_EQ(swatch("picBACKGROUND"), QColor(0x40, 0, 0));
    EXPECT_EQ(swatch("picGRADCOLOR"), QColor(0xFF, 0, 0));
    EXPECT_EQ(control<cbtnddp>("cddGRADSHDW").Color(), 0x40);
    EXPECT_EQ(control<cbtnddp>("cddGRAD").Color(), 0xFF);
    EXPECT_EQ(txtDESC().text(), QString());
    EXPECT_EQ(all(), QStringList({absent, absent, absent, absent, absent}));
    EXPECT_FALSE(form_->isUnloaded());
    EXPECT_FALSE(form_->isVisible());
}

TEST_F(SettingsDialog, ShowsWhatIsStored) {
    store("TBAR", QStringLiteral("0"));
    store("INTERVAL", QStringLiteral("12"));
    store("TRANSITION", QStringLiteral("40"));
    store("picBACKGROUND", QStringLiteral("16708836"));
    store("picGRADCOLOR", QStringLiteral("4194304"));
    load();
    EXPECT_FALSE(chkTBAR().isChecked());
    EXPECT_EQ(udnINTERVAL().Value(), 12);
    EXPECT_EQ(udnTRANSITIONVAL().Value(), 40);
    EXPECT_EQ(swatch("picBACKGROUND"), QColor(0xE4, 0xF4, 0xFE));
    EXPECT_EQ(swatch("picGRADCOLOR"), QColor(0, 0, 0x40));
}

TEST_F(SettingsDialog, IntervalsThatTheSpinnersRefuseLeaveTheirDesignValues) {
    const struct {
        const char* stored;
        int interval;
        int transition;
    } rows[] = {
        {"1", 1, 1},   {"1000", 1000, 1000}, {"0", 4, 15},    {"1001", 4, 15},
        {"-3", 4, 15}, {"", 4, 15},          {"four", 4, 15}, {"12x", 4, 15},
        {" 7 ", 7, 7}, {"2.5", 2, 2},        {"0.5", 4, 15},  {"99999999999", 4, 15},
    };
    for (const auto& row : rows) {
        store("INTERVAL", QLatin1String(row.stored));
        store("TRANSITION", QLatin1String(row.stored));
        load();
        EXPECT_EQ(udnINTERVAL().Value(), row.interval) << row.stored;
        EXPECT_EQ(udnTRANSITIONVAL().Value(), row.transition) << row.stored;
    }
}

TEST_F(SettingsDialog, TellsHowLongAFadeLastsAndWarnsOfOneThatIsCut) {
    load();
    const QLabel& fade = control<QLabel>("lblFADE");
    EXPECT_EQ(fade.text(), QStringLiteral("The fade lasts 3.6 s."));
    EXPECT_FALSE(fade.font().bold());
    const struct {
        int interval;
        int transition;
        const char* text;
        bool warns;
    } rows[] = {
        {4, 1, "The fade lasts 0.2 s.", false},
        {4, 16, "The fade lasts 3.8 s.", false},
        {4, 17, "The fade lasts 4.1 s, longer than a picture stays.", true},
        {3, 17, "The fade lasts 4.1 s, longer than a picture stays.", true},
        {6, 25, "The fade lasts 6 s.", false},
        {5, 25, "The fade lasts 6 s, longer than a picture stays.", true},
        {240, 1000, "The fade lasts 4 min 00 s.", false},
    };
    for (const auto& row : rows) {
        udnINTERVAL().setValue(row.interval);
        udnTRANSITIONVAL().setValue(row.transition);
        EXPECT_EQ(fade.text(), QLatin1String(row.text));
        EXPECT_EQ(fade.font().bold(), row.warns) << row.text;
    }
}

TEST_F(SettingsDialog, SaysThatTheDescriptionIsOnlyShown) {
    load();
    const QString hint = QStringLiteral("Only shown here: what you change is not saved.");
    EXPECT_EQ(control<QLabel>("lblDESCHINT").text(), hint);
    EXPECT_EQ(txtDESC().accessibleDescription(), hint);
}

TEST_F(SettingsDialog, OnlyAOneChecksTheToolbarBox) {
    const struct {
        const char* stored;
        bool checked;
    } rows[] = {{"1", true},   {"0", false}, {"2", false},
                {"-1", false}, {"", false},  {"yes", false}};
    for (const auto& row : rows) {
        store("TBAR", QLatin1String(row.stored));
        load();
        EXPECT_EQ(chkTBAR().isChecked(), row.checked) << row.stored;
    }
}

TEST_F(SettingsDialog, ColoursThatAreNoNumbersLeaveTheDesignColours) {
    for (const char* text : {"", "red", "#400000", "99999999999"}) {
        store("picBACKGROUND", QLatin1String(text));
        store("picGRADCOLOR", QLatin1String(text));
        load();
        EXPECT_EQ(form_->background(), 0x40) << text;
        EXPECT_EQ(form_->gradient(), 0xFF) << text;
    }
}

TEST_F(SettingsDialog, ASystemColourIsShownAndStoredAgainAsItIs) {
    store("picBACKGROUND", QStringLiteral("-2147483633"));
    load();
    EXPECT_EQ(form_->background(), systemColour(15));
    EXPECT_EQ(swatch("picBACKGROUND"), QApplication::palette().color(QPalette::Button));
    form_->btnOK_Click();
    EXPECT_EQ(stored("picBACKGROUND"), QStringLiteral("-2147483633"));
}

TEST_F(SettingsDialog, ShowsTheDescriptionOfTheOpenAlbum) {
    const QString album = test::temporaryFolder() + QStringLiteral("/trip.vlr");
    QFile file(album);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("2|of the file\r\n/a.jpg\r\n/b.jpg\r\n");
    file.close();
    albums_.Add(QStringLiteral("/other.vlr"), QStringLiteral("other"))
        ->setSubItems(1, QStringLiteral("another"));
    albums_.Add(album, QStringLiteral("trip"))->setSubItems(1, QStringLiteral("of the row"));
    load(album);
    EXPECT_EQ(txtDESC().text(), QStringLiteral("of the row"));
    // The row counts, also where the file has gone.
    QFile::remove(album);
    load(album);
    EXPECT_EQ(txtDESC().text(), QStringLiteral("of the row"));
}

TEST_F(SettingsDialog, WithoutARowTheDescriptionStaysEmpty) {
    albums_.Add(QStringLiteral("/other.vlr"), QStringLiteral("other"))
        ->setSubItems(1, QStringLiteral("another"));
    const QString folder = test::temporaryFolder();
    QFile empty(folder + QStringLiteral("/empty.vlr"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    for (const QString& path : {QString(), QStringLiteral("/gone.vlr"), empty.fileName(), folder}) {
        load(path);
        EXPECT_EQ(txtDESC().text(), QString());
        EXPECT_EQ(udnINTERVAL().Value(), 4);
    }
}

TEST_F(SettingsDialog, OkWritesTheFiveValuesAndNoDescription) {
    load();
    chkTBAR().setChecked(false);
    udnINTERVAL().setValue(7);
    udnTRANSITIONVAL().setValue(1000);
    txtDESC().setText(QStringLiteral("not kept"));
    form_->btnOK_Click();
    EXPECT_EQ(all(), QStringList({QStringLiteral("0"), QStringLiteral("7"), QStringLiteral("1000"),
                                  QStringLiteral("64"), QStringLiteral("255")}));
    EXPECT_TRUE(form_->isUnloaded());
    load();
    EXPECT_FALSE(chkTBAR().isChecked());
    EXPECT_EQ(udnINTERVAL().Value(), 7);
    EXPECT_EQ(txtDESC().text(), QString());
}

TEST_F(SettingsDialog, OkWritesInTheOrderOfItsText) {
    // A store that remembers who was written when.
    class Watched : public MemoryRegistryStore {
    public:
        bool setValue(Hive hive, const QString& key, const QString& name,
                      const RegistryValue& value) override {
            names.append(name);
            return MemoryRegistryStore::setValue(hive, key, name, value);
        }
        QStringList names;
    };
    Watched watched;
    makeServices(watched, shell_);
    load();
    EXPECT_TRUE(watched.names.isEmpty());
    form_->btnOK_Click();
    EXPECT_EQ(watched.names,
              QStringList({QStringLiteral("TBAR"), QStringLiteral("INTERVAL"),
                           QStringLiteral("TRANSITION"), QStringLiteral("picGRADCOLOR"),
                           QStringLiteral("picBACKGROUND")}));
    makeServices(store_, shell_);
}

TEST_F(SettingsDialog, EachPaletteChangesItsOwnSwatchAndTheSampleAndStoresNothing) {
    load();
    show();
    const QImage before = sample();
    pick("btnBACK", QStringLiteral("#E4F4FE"));
    EXPECT_EQ(form_->background(), 16708836);
    EXPECT_EQ(form_->gradient(), 0xFF);
    const QImage between = sample();
    EXPECT_NE(between, before);
    pick("btnGRADCOLOR", QStringLiteral("#000040"));
    EXPECT_EQ(form_->background(), 16708836);
    EXPECT_EQ(form_->gradient(), 0x400000);
    EXPECT_NE(sample(), between);
    EXPECT_EQ(swatch("picGRADCOLOR"), QColor(0, 0, 0x40));
    EXPECT_EQ(all(), QStringList({absent, absent, absent, absent, absent}));
    form_->btnOK_Click();
    EXPECT_EQ(stored("picBACKGROUND"), QStringLiteral("16708836"));
    EXPECT_EQ(stored("picGRADCOLOR"), QStringLiteral("4194304"));
}

TEST_F(SettingsDialog, BothColourEventsAreHandledAlike) {
    load();
    emit control<cbtnddp>("cddGRAD").ColorClick(QStringLiteral("1"));
    EXPECT_EQ(form_->gradient(), 1);
    emit control<cbtnddp>("cddGRAD").ColorKey(QStringLiteral("2"));
    EXPECT_EQ(form_->gradient(), 2);
    emit control<cbtnddp>("cddGRADSHDW").ColorClick(QStringLiteral("3"));
    EXPECT_EQ(form_->background(), 3);
    emit control<cbtnddp>("cddGRADSHDW").ColorKey(QStringLiteral("4"));
    EXPECT_EQ(form_->background(), 4);
    emit control<cbtnddp>("cddGRADSHDW").ColorKey(QStringLiteral("no number"));
    EXPECT_EQ(form_->background(), 4);
    EXPECT_EQ(form_->gradient(), 2);
}

TEST_F(SettingsDialog, TheSampleIsTheGradientBehindAShow) {
    store("picBACKGROUND", QStringLiteral("65280"));
    load();
    show();
    const QImage shown = sample();
    QImage wanted(shown.size(), QImage::Format_RGB32);
    GradientPaint(wanted, 45, 65280, 0xFF);
    EXPECT_EQ(shown, wanted);
    EXPECT_EQ(control<QWidget>("Image1").parentWidget(), &control<QWidget>("picSAMPLE"));
    const QWidget& box = control<QWidget>("picSAMPLE");
    const QColor slide =
        form_->grab().toImage().pixelColor(box.mapTo(form_.get(), box.rect().center()));
    EXPECT_NE(slide, shown.pixelColor(shown.rect().center()));
}

TEST_F(SettingsDialog, CustomGoesToTheColourDialogOfTheSystem) {
    load();
    ColourDialogRequest asked;
    bool hooked = false;
    std::optional<Colour> answer = 0x030201;
    CommonDialog::answerColourWith([&](const ColourDialogRequest& request) {
        asked = request;
        hooked = gDlgHook->isHooked();
        return answer;
    });
    emit control<cbtnddp>("cddGRAD").Custom();
    EXPECT_EQ(asked.title, QStringLiteral("Custom Color"));
    EXPECT_EQ(asked.colour, 0xFF);
    EXPECT_TRUE(hooked);
    EXPECT_FALSE(gDlgHook->isHooked());
    EXPECT_EQ(form_->gradient(), 0x030201);
    EXPECT_EQ(control<cbtnddp>("cddGRAD").Color(), 0x030201);
    EXPECT_EQ(form_->background(), 0x40);
    answer.reset();
    emit control<cbtnddp>("cddGRADSHDW").Custom();
    EXPECT_EQ(asked.colour, 0x40);
    EXPECT_EQ(form_->background(), 0x40);
}

TEST_F(SettingsDialog, CancellingAfterTryingColoursLeavesTheStoreUnchanged) {
    load();
    show();
    pick("btnBACK", QStringLiteral("#FFFFFF"));
    udnINTERVAL().setValue(9);
    chkTBAR().setChecked(false);
    form_->btnCANCEL_Click();
    EXPECT_TRUE(form_->isUnloaded());
    EXPECT_FALSE(form_->isVisible());
    EXPECT_EQ(all(), QStringList({absent, absent, absent, absent, absent}));
    load();
    EXPECT_EQ(form_->background(), 0x40);
}

TEST_F(SettingsDialog, EscAndTheTitleBarCancel) {
    for (const bool byKey : {true, false}) {
        load();
        show();
        udnINTERVAL().setValue(9);
        if (byKey) {
            QTest::keyClick(&udnINTERVAL(), Qt::Key_Escape);
        } else {
            form_->close();
        }
        EXPECT_TRUE(form_->isUnloaded());
        EXPECT_FALSE(form_->isVisible());
        EXPECT_EQ(stored("INTERVAL"), absent);
    }
}

TEST_F(SettingsDialog, EnterIsOkFromEveryControl) {
    for (const char* name : {"chkTBAR", "udnINTERVAL", "btnBACK", "btnGRADCOLOR", "txtDESC"}) {
        store("INTERVAL", QStringLiteral("6"));
        load();
        show();
        udnINTERVAL().setValue(9);
        control<QWidget>(name).setFocus();
        QTest::keyClick(&control<QWidget>(name), Qt::Key_Return);
        EXPECT_TRUE(form_->isUnloaded()) << name;
        EXPECT_EQ(stored("INTERVAL"), QStringLiteral("9")) << name;
    }
}

TEST_F(SettingsDialog, EnterOnCancelCancels) {
    load();
    show();
    control<QWidget>("btnCANCEL").setFocus();
    QTest::keyClick(&control<QWidget>("btnCANCEL"), Qt::Key_Return);
    EXPECT_TRUE(form_->isUnloaded());
    EXPECT_EQ(stored("INTERVAL"), absent);
}

TEST_F(SettingsDialog, TheButtonsUnloadOnceAndTellIt) {
    load();
    show();
    QSignalSpy told(form_.get(), &QDialog::finished);
    QTest::mouseClick(&control<QWidget>("btnOK"), Qt::LeftButton);
    EXPECT_TRUE(form_->isUnloaded());
    EXPECT_EQ(stored("INTERVAL"), QStringLiteral("4"));
    store("INTERVAL", QStringLiteral("6"));
    form_->btnOK_Click();
    form_->btnCANCEL_Click();
    EXPECT_EQ(stored("INTERVAL"), QStringLiteral("6"));
    EXPECT_EQ(told.count(), 1);
}

TEST_F(SettingsDialog, IsModalOverItsOwnerAndOfAFixedSize) {
    load();
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    QTimer::singleShot(0, form_.get(), [this] {
        EXPECT_EQ(QApplication::activeModalWidget(), form_.get());
        EXPECT_EQ(form_->minimumSize(), form_->size());
        EXPECT_EQ(form_->maximumSize(), form_->size());
        form_->btnCANCEL_Click();
    });
    form_->exec();
    EXPECT_TRUE(form_->isUnloaded());
}

TEST_F(SettingsDialog, CutsNoTextInALargeFont) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 2);
    QApplication::setFont(large);
    load();
    show();
    for (const QLabel* label : form_->findChildren<QLabel*>()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
    }
    for (const QAbstractButton* button : form_->findChildren<QAbstractButton*>()) {
        EXPECT_GE(button->width(), button->sizeHint().width());
        EXPECT_GE(button->height(), button->sizeHint().height());
    }
    QApplication::setFont(usual);
}

TEST_F(SettingsDialog, TabWalksTheControlsInTheirOrder) {
    load();
    show();
    QStringList walked;
    for (int i = 0; i < 8; ++i) {
        walked.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(walked, QStringList({QStringLiteral("chkTBAR"), QStringLiteral("udnINTERVAL"),
                                   QStringLiteral("udnTRANSITIONVAL"), QStringLiteral("btnBACK"),
                                   QStringLiteral("btnGRADCOLOR"), QStringLiteral("txtDESC"),
                                   QStringLiteral("btnOK"), QStringLiteral("btnCANCEL")}));
}

TEST_F(SettingsDialog, F1OpensItsPageOfTheHelpCenter) {
    QStringList pages;
    QObject::connect(gLibrary.get(), &clsLIBRARY::helpPageWanted,
                     [&pages](const QString& address) { pages.append(address); });
    load();
    show();
    for (const char* name : {"chkTBAR", "udnINTERVAL", "txtDESC"}) {
        QTest::keyClick(&control<QWidget>(name), Qt::Key_F1);
    }
    ASSERT_EQ(pages.size(), 3);
    EXPECT_EQ(pages.first(), libTxt.HelpUrl + QStringLiteral("menutoolsoptions.html"));
}

TEST_F(SettingsDialog, TheDescriptionTakesNoSeparatorThatIsTyped) {
    load();
    QTest::keyClicks(&txtDESC(), QStringLiteral("a,b'c|d\"e<f\\g"));
    EXPECT_EQ(txtDESC().text(), QStringLiteral("abcd\"e<f\\g"));
}

TEST_F(SettingsDialog, TheDescriptionFiltersKeyCodesAndCharacters) {
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* character;
        const char* text;
    } rows[] = {
        // Cancelled on key down, whatever character they would give.
        {Qt::Key_Apostrophe, Qt::NoModifier, "x", ""},
        {Qt::Key_Comma, Qt::NoModifier, "x", ""},
        {Qt::Key_Backslash, Qt::ShiftModifier, "x", ""},
        {Qt::Key_Bar, Qt::ShiftModifier, "x", ""},
        // The other state of Shift passes, its character permitting.
        {Qt::Key_Apostrophe, Qt::ShiftModifier, "\"", "\""},
        {Qt::Key_Comma, Qt::ShiftModifier, "<", "<"},
        {Qt::Key_Backslash, Qt::NoModifier, "\\", "\\"},
        {Qt::Key_Apostrophe, Qt::ShiftModifier, "'", ""},
        {Qt::Key_Comma, Qt::ShiftModifier, ",", ""},
        {Qt::Key_Bar, Qt::NoModifier, "|", ""},
        // Other layouts have the characters on other keys.
        {Qt::Key_7, Qt::ShiftModifier, "'", ""},
        {Qt::Key_unknown, Qt::NoModifier, ",", ""},
        {Qt::Key_unknown, Qt::GroupSwitchModifier, "|", ""},
        {Qt::Key_unknown, Qt::NoModifier, ";", ";"},
    };
    load();
    for (const auto& row : rows) {
        txtDESC().clear();
        QKeyEvent press(QEvent::KeyPress, row.key, row.modifiers, QLatin1String(row.character));
        QApplication::sendEvent(&txtDESC(), &press);
        EXPECT_EQ(txtDESC().text(), QLatin1String(row.text)) << row.character << row.key;
    }
}

TEST_F(SettingsDialog, TheDescriptionTakesOneLine) {
    load();
    QApplication::clipboard()->setText(QStringLiteral("A day, out\nand home"));
    txtDESC().clear();
    txtDESC().paste();
    EXPECT_EQ(txtDESC().text(), QStringLiteral("A day, out"));
}

TEST_F(SettingsDialog, ACancelledKeyReachesNobodyElse) {
    load();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Comma, Qt::NoModifier, QStringLiteral(","));
    QApplication::sendEvent(&txtDESC(), &press);
    EXPECT_TRUE(press.isAccepted());
}

TEST_F(SettingsDialog, WhatAnInputMethodDeliversIsTypedToo) {
    load();
    QInputMethodEvent typed;
    typed.setCommitString(QStringLiteral("l'\u00E9t\u00E9, | 2025"));
    QApplication::sendEvent(&txtDESC(), &typed);
    EXPECT_EQ(txtDESC().text(), QStringLiteral("l\u00E9t\u00E9  2025"));
}

TEST_F(SettingsDialog, APastePasses) {
    load();
    QApplication::clipboard()->setText(QStringLiteral("Ann's trip, part 1|2"));
    QTest::keyClick(&txtDESC(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(txtDESC().text(), QStringLiteral("Ann's trip, part 1|2"));
}

TEST_F(SettingsDialog, TheColoursAreTheOnesAShowReads) {
    store("picBACKGROUND", QStringLiteral("123"));
    load();
    EXPECT_EQ(form_->background(), showBackground());
    EXPECT_EQ(form_->gradient(), showGradient());
}

}  // namespace
}  // namespace velorama
