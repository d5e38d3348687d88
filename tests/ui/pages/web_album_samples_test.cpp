#include "ui/pages/web_album_world.h"

namespace velorama {
namespace {

/// The colour that a label's text is painted in.
QColor textColour(Label& label) {
    const QFont before = label.font();
    QFont large = before;
    large.setPixelSize(40);
    const QRect place = label.geometry();
    label.setFont(large);
    label.resize(300, 60);
    QImage image(label.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    label.setFont(before);
    label.setGeometry(place);
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255) {
                ++counts[image.pixel(x, y)];
            }
        }
    }
    const auto most =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? QColor() : QColor(most->first);
}

class WebAlbumSamplesTest : public test::WithWebAlbumPage {
protected:
    std::vector<Label*> captions() const {
        std::vector<Label*> labels(samples().lbltxtMAINCOL.begin(), samples().lbltxtMAINCOL.end());
        labels.push_back(samples().lbltxtSLIDECOL);
        return labels;
    }
    void expectCaptionFont(const char* family) {
        for (const Label* label : captions()) {
            EXPECT_EQ(label->font().family(), QLatin1String(family))
                << label->objectName().toStdString();
        }
    }
    /// Answers the colour dialog while it lives through `asked`; nothing cancels.
    void answerColour(std::optional<Colour> answer) {
        CommonDialog::answerColourWith([this, answer](const ColourDialogRequest& request) {
            asked.push_back(request);
            hooked = gDlgHook->isHooked();
            return answer;
        });
    }
    std::vector<ColourDialogRequest> asked;
    bool hooked = false;
};

TEST_F(WebAlbumSamplesTest, ShowTheDefaultsFromTheStart) {
    EXPECT_EQ(samples().shpBARMAINCOL->FillColor(), QColor(0xC0, 0xC0, 0xFF));
    EXPECT_EQ(samples().shpSLIDEBARCOL->FillColor(), QColor(0xC0, 0xC0, 0xFF));
    EXPECT_EQ(samples().picWAMAIN->BackColor(), QColor(0xE4, 0xF4, 0xFE));
    EXPECT_EQ(samples().picWASLIDE->BackColor(), QColor(0xE4, 0xF4, 0xFE));
    EXPECT_EQ(samples().shpTTLMAINCOL->FillColor(), QColor(0x80, 0x80, 0xFF));
    EXPECT_EQ(textColour(*samples().lblTTLMAINCOL), QColor(0xFF, 0xFF, 0xFF));
    for (Label* label : captions()) {
        EXPECT_EQ(textColour(*label), QColor(0x00, 0x00, 0x40));
    }
    expectCaptionFont("Arial");
    EXPECT_EQ(titleFont(), QStringLiteral("Georgia"));
}

TEST_F(WebAlbumSamplesTest, AChosenColourGoesToItsSwatchAndItsSamples) {
    emit page->picBACKGROUND->dropDown()->ColorClick(QStringLiteral("255"));
    emit page->picTEXTCOLOR->dropDown()->ColorClick(QStringLiteral("65280"));
    emit page->picBARCOL->dropDown()->ColorClick(QStringLiteral("16711680"));
    emit page->picTITLEBARCOL->dropDown()->ColorClick(QStringLiteral("65535"));
    emit page->picTITLEBARTEXTCOL->dropDown()->ColorClick(QStringLiteral("16776960"));
    EXPECT_EQ(samples().picWAMAIN->BackColor(), QColor(255, 0, 0));
    EXPECT_EQ(samples().picWASLIDE->BackColor(), QColor(255, 0, 0));
    for (Label* label : captions()) {
        EXPECT_EQ(textColour(*label), QColor(0, 255, 0));
    }
    EXPECT_EQ(samples().shpBARMAINCOL->FillColor(), QColor(0, 0, 255));
    EXPECT_EQ(samples().shpSLIDEBARCOL->FillColor(), QColor(0, 0, 255));
    EXPECT_EQ(samples().shpTTLMAINCOL->FillColor(), QColor(255, 255, 0));
    EXPECT_EQ(textColour(*samples().lblTTLMAINCOL), QColor(0, 255, 255));
    EXPECT_EQ(page->picBACKGROUND->button()->swatch()->BackColor(), QColor(255, 0, 0));
    EXPECT_EQ(page->picBACKGROUND->BackColor(), 255);
}

TEST_F(WebAlbumSamplesTest, TheKeyboardChoosesAlike) {
    for (ColourField* field : fields()) {
        emit field->dropDown()->ColorKey(QStringLiteral("4660"));
        EXPECT_EQ(field->BackColor(), 4660);
        EXPECT_EQ(field->dropDown()->Color(), 4660);
    }
    EXPECT_EQ(samples().picWAMAIN->BackColor(), QColor(0x34, 0x12, 0x00));
}

TEST_F(WebAlbumSamplesTest, AChoiceThatIsNoNumberChangesNothing) {
    for (ColourField* field : fields()) {
        emit field->dropDown()->ColorClick(QStringLiteral("blue"));
        emit field->dropDown()->ColorKey(QString());
    }
    page->save();
    EXPECT_EQ(values(), defaults);
}

TEST_F(WebAlbumSamplesTest, ACustomColourIsAskedForFromTheOneThatStands) {
    for (ColourField* field : fields()) {
        const Colour before = field->BackColor();
        answerColour(0x112233);
        emit field->dropDown()->Custom();
        EXPECT_EQ(asked.back().title, QStringLiteral("Custom Color"));
        EXPECT_EQ(asked.back().colour, before);
        EXPECT_TRUE(hooked);
        EXPECT_FALSE(gDlgHook->isHooked());
        EXPECT_EQ(cdlDIALOG.Flags, 3);
        EXPECT_EQ(field->BackColor(), 0x112233);
        EXPECT_EQ(field->dropDown()->Color(), 0x112233);
    }
    EXPECT_EQ(asked.size(), 5U);
    EXPECT_EQ(samples().shpTTLMAINCOL->FillColor(), QColor(0x33, 0x22, 0x11));
}

TEST_F(WebAlbumSamplesTest, CancellingTheCustomColourKeepsTheOldOne) {
    cdlDIALOG.Color = 1;
    answerColour(std::nullopt);
    for (ColourField* field : fields()) {
        emit field->dropDown()->Custom();
    }
    EXPECT_EQ(asked.size(), 5U);
    EXPECT_EQ(values(), defaults);
}

TEST_F(WebAlbumSamplesTest, EachFontOfTheTextGoesToTheCaptions) {
    const char* families[] = {"Arial",           "Verdana", "Courier New", "Tahoma",
                              "Times New Roman", "Arial",   "Georgia"};
    for (int i = 0; i < 7; ++i) {
        choose(*page->cboFONTS, i);
        expectCaptionFont(families[i]);
        EXPECT_EQ(titleFont(), QStringLiteral("Georgia")) << i;
    }
}

TEST_F(WebAlbumSamplesTest, EachFontOfTheBarGoesToTheTitle) {
    const char* families[] = {"Arial",           "Verdana", "Courier New", "Tahoma",
                              "Times New Roman", "Arial",   "Georgia"};
    for (int i = 0; i < 7; ++i) {
        choose(*page->cboFONTSBAR, i);
        EXPECT_EQ(titleFont(), QLatin1String(families[i]));
        expectCaptionFont("Arial");
    }
}

TEST_F(WebAlbumSamplesTest, AnEntryWithoutACommaLeavesTheFont) {
    page->cboFONTS->addItem(QStringLiteral("Verdana"));
    page->cboFONTSBAR->addItem(QStringLiteral("Verdana"));
    choose(*page->cboFONTS, 7);
    choose(*page->cboFONTSBAR, 7);
    expectCaptionFont("Arial");
    EXPECT_EQ(titleFont(), QStringLiteral("Georgia"));
}

TEST_F(WebAlbumSamplesTest, TheKeyboardInAFontListShowsAtOnce) {
    QTest::keyClick(page->cboFONTS, Qt::Key_Down);
    expectCaptionFont("Verdana");
}

TEST_F(WebAlbumSamplesTest, FontSizesDoNotTouchThem) {
    const QFont caption = samples().lbltxtMAINCOL.at(0)->font();
    const QFont title = samples().lblTTLMAINCOL->font();
    // A colour that the samples have not been told of shows whether they are drawn anew.
    page->picBACKGROUND->setBackColor(255);
    choose(*page->cboFONTSIZE, 6);
    choose(*page->cboFONTSSIZEBAR, 0);
    EXPECT_EQ(samples().lbltxtMAINCOL.at(0)->font(), caption);
    EXPECT_EQ(samples().lblTTLMAINCOL->font(), title);
    EXPECT_EQ(samples().picWAMAIN->BackColor(), QColor(0xE4, 0xF4, 0xFE));
    choose(*page->cboFONTS, 0);
    EXPECT_EQ(samples().picWAMAIN->BackColor(), QColor(255, 0, 0));
}

TEST_F(WebAlbumSamplesTest, LoadingDrawsThem) {
    setStored("BackColor", QStringLiteral("255"));
    setStored("Fonts", QStringLiteral("Tahoma, Sans-Serif"));
    page->load();
    EXPECT_EQ(samples().picWASLIDE->BackColor(), QColor(255, 0, 0));
    expectCaptionFont("Tahoma");
}

}  // namespace
}  // namespace velorama
