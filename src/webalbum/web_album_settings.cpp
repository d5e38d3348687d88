#include "webalbum/web_album_settings.h"

#include "core/globals.h"
#include "platform/numbers.h"

#include <utility>

namespace velorama {
namespace {

const QString settings = QStringLiteral("\\mfrmPRGMAIN\\webalbum");

const QString arial = QStringLiteral("Arial, Helvetica, Sans-Serif");
const QString georgia = QStringLiteral("Georgia, \"Times New Roman\", Times, Serif");

QStringList fontsWith(const QString& geneva) {
    return {arial,
            QStringLiteral("Verdana, Arial, Helvetica, Sans-Serif"),
            QStringLiteral("Courier New, Courier, Monospace"),
            QStringLiteral("Tahoma, Sans-Serif"),
            QStringLiteral("\"Times New Roman\", Times, Serif"),
            geneva,
            georgia};
}

void loadColour(const char* name, Colour& colour) {
    const QString stored = loadSetting(settings, QLatin1String(name), decimalText(colour));
    colour = wholeNumber(stored).value_or(colour);
}

/// As it stands, be it no entry of the list: a style sheet takes it all the same.
void loadText(const char* name, QString& text) {
    text = loadSetting(settings, QLatin1String(name), text);
}

void loadSize(const char* name, QString& size) {
    const QString stored = loadSetting(settings, QLatin1String(name), size);
    size = wholeNumber(stored) ? stored : size;
}

}  // namespace

QStringList webAlbumFonts() {
    return fontsWith(QStringLiteral("Geneva, Arial, Helvetica, Sans-Serif"));
}

QStringList webAlbumBarFonts() {
    return fontsWith(QStringLiteral("Geneva, Arial, Helvetica, sans-serif"));
}

QStringList webAlbumFontSizes() {
    return {QStringLiteral("1 (8 pt)"),  QStringLiteral("2 (10 pt)"), QStringLiteral("3 (12 pt)"),
            QStringLiteral("4 (14 pt)"), QStringLiteral("5 (18 pt)"), QStringLiteral("6 (24 pt)"),
            QStringLiteral("7 (36 pt)")};
}

WebAlbumValues webAlbumDesign() {
    // Colours are 0x00BBGGRR.
    return {.txtTITLE = {},
            .picBACKGROUND = 16708836,
            .picTEXTCOLOR = 4194304,
            .picBARCOL = 16761024,
            .picTITLEBARCOL = 16744576,
            .picTITLEBARTEXTCOL = 16777215,
            .cboFONTS = arial,
            .cboFONTSIZE = QStringLiteral("3 (12 pt)"),
            .cboFONTSBAR = georgia,
            .cboFONTSSIZEBAR = QStringLiteral("6 (24 pt)"),
            .udnPHOTO = QStringLiteral("500"),
            .udnTHUMBNAIL = QStringLiteral("95")};
}

WebAlbumValues loadWebAlbumValues(WebAlbumValues fallback) {
    WebAlbumValues& values = fallback;
    loadColour("BackColor", values.picBACKGROUND);
    loadColour("TextColor", values.picTEXTCOLOR);
    loadText("Fonts", values.cboFONTS);
    loadText("FontsSize", values.cboFONTSIZE);
    loadColour("TitleBarColor", values.picTITLEBARCOL);
    loadColour("BarColor", values.picBARCOL);
    loadColour("TitleBarTextColor", values.picTITLEBARTEXTCOL);
    loadText("FontsBar", values.cboFONTSBAR);
    loadText("FontsSizeBar", values.cboFONTSSIZEBAR);
    loadSize("PhotoSize", values.udnPHOTO);
    loadSize("ThumbnailSize", values.udnTHUMBNAIL);
    return fallback;
}

void saveWebAlbumValues(const WebAlbumValues& values) {
    const std::pair<const char*, QString> stored[] = {
        {"BackColor", decimalText(values.picBACKGROUND)},
        {"TextColor", decimalText(values.picTEXTCOLOR)},
        {"Fonts", values.cboFONTS},
        {"FontsSize", values.cboFONTSIZE},
        {"BarColor", decimalText(values.picBARCOL)},
        {"TitleBarColor", decimalText(values.picTITLEBARCOL)},
        {"TitleBarTextColor", decimalText(values.picTITLEBARTEXTCOL)},
        {"FontsBar", values.cboFONTSBAR},
        {"FontsSizeBar", values.cboFONTSSIZEBAR},
        {"PhotoSize", values.udnPHOTO},
        {"ThumbnailSize", values.udnTHUMBNAIL},
    };
    for (const auto& [name, value] : stored) {
        saveSetting(settings, QLatin1String(name), value);
    }
}

}  // namespace velorama
