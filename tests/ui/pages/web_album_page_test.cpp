#include "ui/pages/web_album_world.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QWheelEvent>

namespace velorama {
namespace {

using test::fontsWith;

using WebAlbumPageTest = test::WithWebAlbumPage;

QStringList entriesOf(const QComboBox& list) {
    QStringList entries;
    for (int i = 0; i < list.count(); ++i) {
        entries.append(list.itemText(i));
    }
    return entries;
}

// -- design --

TEST_F(WebAlbumPageTest, WithoutSettingsItShowsItsDefaults) {
    page->load();
    EXPECT_EQ(values(), defaults);
    EXPECT_EQ(page->txtTITLE->text(), QString());
}

TEST_F(WebAlbumPageTest, ListsHaveTheirEntriesInOrder) {
    EXPECT_EQ(entriesOf(*page->cboFONTS), fontsWith("Geneva, Arial, Helvetica, Sans-Serif"));
    EXPECT_EQ(entriesOf(*page->cboFONTSBAR), fontsWith("Geneva, Arial, Helvetica, sans-serif"));
    const QStringList sizes = {QStringLiteral("1 (8 pt)"),  QStringLiteral("2 (10 pt)"),
                               QStringLiteral("3 (12 pt)"), QStringLiteral("4 (14 pt)"),
                               QStringLiteral("5 (18 pt)"), QStringLiteral("6 (24 pt)"),
                               QStringLiteral("7 (36 pt)")};
    EXPECT_EQ(entriesOf(*page->cboFONTSIZE), sizes);
    EXPECT_EQ(entriesOf(*page->cboFONTSSIZEBAR), sizes);
    for (const QComboBox* list :
         {page->cboFONTS, page->cboFONTSIZE, page->cboFONTSBAR, page->cboFONTSSIZEBAR}) {
        EXPECT_FALSE(list->isEditable()) << list->objectName().toStdString();
    }
}

TEST_F(WebAlbumPageTest, TheWheelChangesNoFieldThatIsNotWorkedIn) {
    page->load();
    frame.activateWindow();
    page->txtTITLE->setFocus();
    for (QWidget* field : frame.findChildren<QWidget*>()) {
        const QPointF inside(5, 5);
        QWheelEvent wheel(inside, field->mapToGlobal(inside), {}, QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(field, &wheel);
    }
    EXPECT_EQ(values(), defaults);
}

TEST_F(WebAlbumPageTest, SizesHaveTheirBounds) {
    const auto bounds = [](const updown& field) {
        return std::vector{field.property("minimum").toInt(), field.property("maximum").toInt(),
                           field.property("singleStep").toInt()};
    };
    EXPECT_EQ(bounds(*page->udnPHOTO), std::vector({100, 3000, 5}));
    EXPECT_EQ(bounds(*page->udnTHUMBNAIL), std::vector({10, 2000, 5}));
}

TEST_F(WebAlbumPageTest, ControlsHaveTheirNames) {
    for (const char* name :
         {"txtTITLE",       "picBACKGROUND",      "picTEXTCOLOR",    "picBARCOL",
          "picTITLEBARCOL", "picTITLEBARTEXTCOL", "btnBACK",         "btnTEXT",
          "btnBARCOLOR",    "btnTITLEBAR",        "btnTITLEBARTEXT", "cddGRADSHDW",
          "cddGRAD",        "cddBARCOLOR",        "cddTITLEBAR",     "cddTITLEBARTEXT",
          "cboFONTS",       "cboFONTSIZE",        "cboFONTSBAR",     "cboFONTSSIZEBAR",
          "udnPHOTO",       "udnTHUMBNAIL",       "cbtnWEBALBUM",    "cbtnVIEWWEBALB",
          "picWAMAIN",      "picWASLIDE",         "lbltxtMAINCOL0",  "lbltxtMAINCOL5",
          "lblTTLMAINCOL",  "shpTTLMAINCOL",      "shpBARMAINCOL",   "lbltxtSLIDECOL",
          "shpSLIDEBARCOL"}) {
        EXPECT_NE(frame.findChild<QObject*>(QLatin1String(name)), nullptr) << name;
    }
}

TEST_F(WebAlbumPageTest, LabelsLeadToTheirControls) {
    const std::map<QString, QWidget*> captions = {
        {QStringLiteral("Pa&ge Title:"), page->txtTITLE},
        {QStringLiteral("&Page Color:"), page->picBACKGROUND->button()},
        {QStringLiteral("&Text Color:"), page->picTEXTCOLOR->button()},
        {QStringLiteral("Control &Bar:"), page->picBARCOL->button()},
        {QStringLiteral("T&itle Bar:"), page->picTITLEBARCOL->button()},
        {QStringLiteral("Tit&le Bar Text:"), page->picTITLEBARTEXTCOL->button()},
        {QStringLiteral("Text &Font:"), page->cboFONTS},
        {QStringLiteral("Text Font Siz&e:"), page->cboFONTSIZE},
        {QStringLiteral("Bar F&ont:"), page->cboFONTSBAR},
        {QStringLiteral("B&ar Font Size:"), page->cboFONTSSIZEBAR},
        {QStringLiteral("Photo Si&ze:"), page->udnPHOTO},
        {QStringLiteral("Thumb&nail Size:"), page->udnTHUMBNAIL},
    };
    std::map<QString, QWidget*> found;
    for (const QLabel* label : frame.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            found[label->text()] = label->buddy();
        }
    }
    EXPECT_EQ(found, captions);
    EXPECT_EQ(samples().picWAMAIN->accessibleName(), QStringLiteral("Main Page Sample"));
    EXPECT_EQ(samples().picWASLIDE->accessibleName(), QStringLiteral("Slide Page Sample"));
}

// -- the layout --

class WebAlbumLayout : public test::WithWebAlbumPage {
protected:
    void layOut(int width, int height) {
        page->resize(width, height);
        page->makeRoom();
        page->layOut();
        QApplication::processEvents();
    }
    QScrollArea& area() { return *page->findChild<QScrollArea*>(); }
};

TEST_F(WebAlbumLayout, NothingScrollsInTheDesignWindow) {
    layOut(726, 223);
    EXPECT_LE(area().widget()->width(), area().viewport()->width());
    EXPECT_LE(area().widget()->height(), area().viewport()->height());
    EXPECT_GT(samples().picWASLIDE->mapTo(page.get(), QPoint()).x(), 400);
}

TEST_F(WebAlbumLayout, InTheDesignWindowFieldsGiveTheSamplesWhatTheyCanSpare) {
    layOut(726, 223);
    const int line = page->fontMetrics().lineSpacing();
    EXPECT_GE(samples().picWAMAIN->width(), 7 * line);
    EXPECT_GE(samples().picWAMAIN->height(), 8 * line);
}

TEST_F(WebAlbumLayout, TheSmallestWindowScrollsDownwardsOnly) {
    layOut(490, 121);
    EXPECT_LE(area().widget()->width(), area().viewport()->width());
    EXPECT_GT(area().widget()->height(), area().viewport()->height());
    const QPoint sample = samples().picWAMAIN->mapTo(area().widget(), QPoint());
    EXPECT_GT(sample.y(), page->udnTHUMBNAIL->y());
}

TEST_F(WebAlbumLayout, BelowOneAnotherInALargeFontTextsAreWholeAndSamplesLarge) {
    QFont large = page->font();
    large.setPointSize(16);
    page->setFont(large);
    layOut(726, 223);
    for (const QComboBox* list : {page->cboFONTS, page->cboFONTSBAR}) {
        EXPECT_GE(list->width(), list->sizeHint().width());
    }
    EXPECT_LE(area().widget()->width(), area().viewport()->width());
    EXPECT_GT(samples().picWAMAIN->width(), 250);
}

TEST_F(WebAlbumLayout, NoSampleIsSmallerThanSixLinesOfText) {
    for (const int points : {9, 12, 16, 20}) {
        QFont font = page->font();
        font.setPointSize(points);
        page->setFont(font);
        for (int width = 490; width < 1300; width += 30) {
            layOut(width, 223);
            EXPECT_GE(samples().picWAMAIN->width(), 6 * page->fontMetrics().lineSpacing())
                << points << " pt in " << width;
        }
    }
}

TEST_F(WebAlbumLayout, InALargeWindowTheSamplesGrowAndTheFieldsAreAsWideAsTheirContents) {
    layOut(726, 223);
    const int before = samples().picWAMAIN->width();
    layOut(1910, 900);
    EXPECT_GT(samples().picWAMAIN->width(), 2 * before);
    EXPECT_EQ(samples().picWASLIDE->size(), samples().picWAMAIN->size());
    for (const ColourField* field : fields()) {
        EXPECT_EQ(field->button()->width(), field->button()->sizeHint().width());
    }
    for (const QComboBox* list : {page->cboFONTS, page->cboFONTSBAR}) {
        EXPECT_EQ(list->width(), list->sizeHint().width());
    }
    layOut(726, 223);
    EXPECT_EQ(samples().picWAMAIN->width(), before);
}

// -- the settings --

TEST_F(WebAlbumPageTest, AllElevenComeBackAsTheyWereSaved) {
    const QStringList other = {QStringLiteral("1"),
                               QStringLiteral("2"),
                               QStringLiteral("\"Times New Roman\", Times, Serif"),
                               QStringLiteral("7 (36 pt)"),
                               QStringLiteral("3"),
                               QStringLiteral("4"),
                               QStringLiteral("-2147483633"),
                               QStringLiteral("Geneva, Arial, Helvetica, sans-serif"),
                               QStringLiteral("1 (8 pt)"),
                               QStringLiteral("640"),
                               QStringLiteral("80")};
    for (qsizetype i = 0; i < names.size(); ++i) {
        setStored(names.at(i).toUtf8().constData(), other.at(i));
    }
    page->load();
    EXPECT_EQ(values(), other);
    for (const QString& name : names) {
        setStored(name.toUtf8().constData(), QString());
    }
    page->save();
    for (qsizetype i = 0; i < names.size(); ++i) {
        EXPECT_EQ(stored(names.at(i).toUtf8().constData()), other.at(i)) << i;
    }
}

TEST_F(WebAlbumPageTest, ReadsAndWritesInTheirOwnOrders) {
    page->load();
    EXPECT_EQ(store.read,
              QStringList({QStringLiteral("BackColor"), QStringLiteral("TextColor"),
                           QStringLiteral("Fonts"), QStringLiteral("FontsSize"),
                           QStringLiteral("TitleBarColor"), QStringLiteral("BarColor"),
                           QStringLiteral("TitleBarTextColor"), QStringLiteral("FontsBar"),
                           QStringLiteral("FontsSizeBar"), QStringLiteral("PhotoSize"),
                           QStringLiteral("ThumbnailSize")}));
    EXPECT_TRUE(store.written.isEmpty());
    page->save();
    EXPECT_EQ(store.written, names);
}

TEST_F(WebAlbumPageTest, NothingIsWrittenBeforeTheSave) {
    page->load();
    choose(*page->cboFONTS, 3);
    emit page->picBACKGROUND->dropDown()->ColorClick(QStringLiteral("255"));
    page->udnPHOTO->setValue(700);
    EXPECT_TRUE(store.written.isEmpty());
}

TEST_F(WebAlbumPageTest, ColoursThatAreNoNumbersLeaveTheDefaults) {
    for (const char* name :
         {"BackColor", "TextColor", "BarColor", "TitleBarColor", "TitleBarTextColor"}) {
        setStored(name, QStringLiteral("red"));
    }
    setStored("BarColor", QString());
    setStored("TitleBarColor", QStringLiteral("99999999999"));
    page->load();
    EXPECT_EQ(values(), defaults);
}

TEST_F(WebAlbumPageTest, FontsAndSizesThatAreNotOfferedAreKeptUntilOthersAreChosen) {
    for (const char* name : {"Fonts", "FontsSize", "FontsBar", "FontsSizeBar"}) {
        setStored(name, QLatin1String(name) + QStringLiteral(", none of the list"));
    }
    const QImage before = page->cboFONTS->grab().toImage();
    page->load();
    const WebAlbumValues given = page->values();
    EXPECT_EQ(given.cboFONTS, QStringLiteral("Fonts, none of the list"));
    EXPECT_EQ(given.cboFONTSIZE, QStringLiteral("FontsSize, none of the list"));
    EXPECT_EQ(given.cboFONTSBAR, QStringLiteral("FontsBar, none of the list"));
    EXPECT_EQ(given.cboFONTSSIZEBAR, QStringLiteral("FontsSizeBar, none of the list"));
    EXPECT_EQ(page->cboFONTS->count(), 7);
    EXPECT_NE(page->cboFONTS->grab().toImage(), before) << "it is not shown";
    EXPECT_EQ(page->cboFONTS->accessibleDescription(), given.cboFONTS);
    page->save();
    EXPECT_EQ(stored("Fonts"), given.cboFONTS);
    choose(*page->cboFONTS, 1);
    EXPECT_EQ(page->values().cboFONTS, QStringLiteral("Verdana, Arial, Helvetica, Sans-Serif"));
    EXPECT_EQ(page->cboFONTS->accessibleDescription(), QString());
}

TEST_F(WebAlbumPageTest, OneBadValueDoesNotKeepTheOthersFromLoading) {
    setStored("BackColor", QStringLiteral("red"));
    setStored("TextColor", QStringLiteral("255"));
    setStored("ThumbnailSize", QStringLiteral("120"));
    page->load();
    EXPECT_EQ(page->picBACKGROUND->BackColor(), 16708836);
    EXPECT_EQ(page->picTEXTCOLOR->BackColor(), 255);
    EXPECT_EQ(page->udnTHUMBNAIL->Text(), QStringLiteral("120"));
}

TEST_F(WebAlbumPageTest, StoredSizesAreNotHeldToTheBounds) {
    setStored("PhotoSize", QStringLiteral("9000"));
    setStored("ThumbnailSize", QStringLiteral("1"));
    page->load();
    EXPECT_EQ(page->udnPHOTO->Text(), QStringLiteral("9000"));
    EXPECT_EQ(page->udnTHUMBNAIL->Text(), QStringLiteral("1"));
}

TEST_F(WebAlbumPageTest, APastedTitleIsOneLine) {
    const struct {
        const char* pasted;
        const char* title;
    } rows[] = {{"Trip", "Trip"},
                {"Trip\n", "Trip"},
                {"Trip\r\n", "Trip"},
                {"Trip\nDay 2\n", "Trip"},
                {"Trip\xE2\x80\xA8x", "Trip"},
                {"\n\nTrip\n", "Trip"},
                {"\n", ""}};
    for (const auto& row : rows) {
        page->txtTITLE->clear();
        QApplication::clipboard()->setText(QString::fromUtf8(row.pasted));
        page->txtTITLE->paste();
        EXPECT_EQ(page->values().txtTITLE, QLatin1String(row.title)) << row.pasted;
    }
}

TEST_F(WebAlbumPageTest, WhatStoodBehindAPasteStays) {
    page->txtTITLE->setText(QStringLiteral("My trip, day 1"));
    page->txtTITLE->setSelection(3, 4);
    QApplication::clipboard()->setText(QStringLiteral("summer\nand autumn"));
    page->txtTITLE->paste();
    EXPECT_EQ(page->txtTITLE->text(), QStringLiteral("My summer, day 1"));
    EXPECT_EQ(page->txtTITLE->cursorPosition(), 9);
}

TEST_F(WebAlbumPageTest, AStoredSizeWithoutANumberLeavesTheDefault) {
    setStored("PhotoSize", QString());
    setStored("ThumbnailSize", QStringLiteral("large"));
    page->load();
    EXPECT_EQ(values(), defaults);
}

TEST_F(WebAlbumPageTest, TheTitleIsNotSaved) {
    page->txtTITLE->setText(QStringLiteral("Summer"));
    page->save();
    EXPECT_EQ(store.written, names);
    page->load();
    EXPECT_EQ(page->txtTITLE->text(), QStringLiteral("Summer"));
}

TEST_F(WebAlbumPageTest, TheWritersAreGivenWhatTheControlsHold) {
    page->txtTITLE->setText(QStringLiteral("Summer"));
    page->picBARCOL->setBackColor(7);
    page->cboFONTSIZE->setCurrentIndex(0);
    page->udnTHUMBNAIL->setText(QStringLiteral("60"));
    const WebAlbumValues given = page->values();
    EXPECT_EQ(given.txtTITLE, QStringLiteral("Summer"));
    EXPECT_EQ(given.picBARCOL, 7);
    EXPECT_EQ(given.picBACKGROUND, 16708836);
    EXPECT_EQ(given.picTEXTCOLOR, 4194304);
    EXPECT_EQ(given.picTITLEBARCOL, 16744576);
    EXPECT_EQ(given.picTITLEBARTEXTCOL, 16777215);
    EXPECT_EQ(given.cboFONTS, QStringLiteral("Arial, Helvetica, Sans-Serif"));
    EXPECT_EQ(given.cboFONTSIZE, QStringLiteral("1 (8 pt)"));
    EXPECT_EQ(given.cboFONTSBAR, QStringLiteral("Georgia, \"Times New Roman\", Times, Serif"));
    EXPECT_EQ(given.cboFONTSSIZEBAR, QStringLiteral("6 (24 pt)"));
    EXPECT_EQ(given.udnPHOTO, QStringLiteral("500"));
    EXPECT_EQ(given.udnTHUMBNAIL, QStringLiteral("60"));
}

}  // namespace
}  // namespace velorama
