// What the page WebAlbum keeps between two runs.

#include "core/globals.h"
#include "platform/numbers.h"
#include "ui/pages/web_album_page.h"

namespace velorama {
namespace {

const QString webAlbumSettings = QStringLiteral("\\mfrmPRGMAIN\\webalbum");

}  // namespace

void WebAlbumPage::load() {
    const auto colour = [](const char* name, ColourField* field) {
        const QString stored =
            loadSetting(webAlbumSettings, QLatin1String(name), decimalText(field->BackColor()));
        field->setBackColor(wholeNumber(stored).value_or(field->BackColor()));
    };
    const auto entry = [](const char* name, QComboBox* list) {
        list->setCurrentText(
            loadSetting(webAlbumSettings, QLatin1String(name), list->currentText()));
    };
    const auto size = [](const char* name, updown* field) {
        const QString design = field->Text();
        field->setText(loadSetting(webAlbumSettings, QLatin1String(name), design));
        if (!field->hasNumber()) {
            field->setText(design);
        }
    };
    colour("BackColor", picBACKGROUND);
    colour("TextColor", picTEXTCOLOR);
    entry("Fonts", cboFONTS);
    entry("FontsSize", cboFONTSIZE);
    colour("TitleBarColor", picTITLEBARCOL);
    colour("BarColor", picBARCOL);
    colour("TitleBarTextColor", picTITLEBARTEXTCOL);
    entry("FontsBar", cboFONTSBAR);
    entry("FontsSizeBar", cboFONTSSIZEBAR);
    size("PhotoSize", udnPHOTO);
    size("ThumbnailSize", udnTHUMBNAIL);
    WebAlbumSampleUpdate();
}

void WebAlbumPage::save() const {
    const std::pair<const char*, QString> values[] = {
        {"BackColor", decimalText(picBACKGROUND->BackColor())},
        {"TextColor", decimalText(picTEXTCOLOR->BackColor())},
        {"Fonts", cboFONTS->currentText()},
        {"FontsSize", cboFONTSIZE->currentText()},
        {"BarColor", decimalText(picBARCOL->BackColor())},
        {"TitleBarColor", decimalText(picTITLEBARCOL->BackColor())},
        {"TitleBarTextColor", decimalText(picTITLEBARTEXTCOL->BackColor())},
        {"FontsBar", cboFONTSBAR->currentText()},
        {"FontsSizeBar", cboFONTSSIZEBAR->currentText()},
        {"PhotoSize", udnPHOTO->Text()},
        {"ThumbnailSize", udnTHUMBNAIL->Text()},
    };
    for (const auto& [name, value] : values) {
        saveSetting(webAlbumSettings, QLatin1String(name), value);
    }
}

WebAlbumValues WebAlbumPage::values() const {
    return {.txtTITLE = txtTITLE->text(),
            .picBACKGROUND = picBACKGROUND->BackColor(),
            .picTEXTCOLOR = picTEXTCOLOR->BackColor(),
            .picBARCOL = picBARCOL->BackColor(),
            .picTITLEBARCOL = picTITLEBARCOL->BackColor(),
            .picTITLEBARTEXTCOL = picTITLEBARTEXTCOL->BackColor(),
            .cboFONTS = cboFONTS->currentText(),
            .cboFONTSIZE = cboFONTSIZE->currentText(),
            .cboFONTSBAR = cboFONTSBAR->currentText(),
            .cboFONTSSIZEBAR = cboFONTSSIZEBAR->currentText(),
            .udnPHOTO = udnPHOTO->Text(),
            .udnTHUMBNAIL = udnTHUMBNAIL->Text()};
}

}  // namespace velorama
