#include "webalbum/web_album_settings.h"

#include "platform/session/shell.h"
#include "support/services.h"
#include "support/test_world.h"
#include "webalbum/mod_webalbum.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString section = QStringLiteral("\\mfrmPRGMAIN\\webalbum");

/// The eleven values in the order of the page, from the background on.
std::string asText(const WebAlbumValues& values) {
    QStringList words;
    for (const Colour colour : {values.picBACKGROUND, values.picTEXTCOLOR, values.picBARCOL,
                                values.picTITLEBARCOL, values.picTITLEBARTEXTCOL}) {
        words.append(QString::number(colour));
    }
    words << values.cboFONTS << values.cboFONTSIZE << values.cboFONTSBAR << values.cboFONTSSIZEBAR
          << values.udnPHOTO << values.udnTHUMBNAIL;
    return words.join(u'|').toStdString();
}

TEST(WebAlbumSettings, EachComesFromItsOwnName) {
    const test::Services services;
    const char* const names[] = {"BackColor",         "TextColor", "BarColor",     "TitleBarColor",
                                 "TitleBarTextColor", "Fonts",     "FontsSize",    "FontsBar",
                                 "FontsSizeBar",      "PhotoSize", "ThumbnailSize"};
    int number = 10;
    for (const char* name : names) {
        saveSetting(section, QLatin1String(name), QString::number(++number));
    }
    WebAlbumValues fallback = webAlbumDesign();
    fallback.txtTITLE = QStringLiteral("mine");
    const WebAlbumValues values = loadWebAlbumValues(fallback);
    EXPECT_EQ(asText(values), "11|12|13|14|15|16|17|18|19|20|21");
    EXPECT_EQ(values.txtTITLE, QStringLiteral("mine"));
}

TEST(WebAlbumSettings, ThoseAbsentAreTheFallbacks) {
    const test::Services services;
    EXPECT_EQ(asText(loadWebAlbumValues(webAlbumDesign())),
              "16708836|4194304|16761024|16744576|16777215|Arial, Helvetica, Sans-Serif|3 (12 pt)|"
              "Georgia, \"Times New Roman\", Times, Serif|6 (24 pt)|500|95");
    saveSetting(section, QStringLiteral("BarColor"), QStringLiteral("red"));
    for (const char* size : {"large", "12abc", "300px", "5 000", "", "99999999999"}) {
        saveSetting(section, QStringLiteral("PhotoSize"), QLatin1String(size));
        saveSetting(section, QStringLiteral("ThumbnailSize"), QLatin1String(size));
        EXPECT_EQ(asText(loadWebAlbumValues(webAlbumDesign())), asText(webAlbumDesign())) << size;
    }
}

TEST(WebAlbumSettings, WhatIsSavedComesBack) {
    const test::Services services;
    WebAlbumValues values = webAlbumDesign();
    values.picBARCOL = 1;
    values.picTITLEBARCOL = 2;
    values.cboFONTSBAR = QStringLiteral("a, b");
    values.cboFONTSIZE = QStringLiteral("7 (36 pt)");
    values.udnTHUMBNAIL = QStringLiteral("96");
    saveWebAlbumValues(values);
    EXPECT_EQ(asText(loadWebAlbumValues({})), asText(values));
}

// The folder may be made by the first album's style sheet: what lies there is the user's alone.
TEST(WebAlbumSettings, TheStyleSheetsFolderIsPrivateFromTheFirst) {
    const test::Services services;
    const bool wasSet = qEnvironmentVariableIsSet("XDG_DATA_HOME");
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    const QString data = test::temporaryFolder();
    qputenv("XDG_DATA_HOME", data.toUtf8());
    modWEBALBUM::WebAlbumStyleSheetWrite(webAlbumDesign());
    wasSet ? qputenv("XDG_DATA_HOME", before) : qunsetenv("XDG_DATA_HOME");
    const QString folder = data + QStringLiteral("/velorama");
    EXPECT_TRUE(QFileInfo(folder + QStringLiteral("/images/mainwa.css")).isFile());
    EXPECT_EQ(
        QFileInfo(folder).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                           QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
        QFile::Permissions());
}

}  // namespace
}  // namespace velorama
