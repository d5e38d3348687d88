#include "core/lib_txt.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(LibTxt, HoldsTheProgramsConstants) {
    fillTextConstants(2026, QStringLiteral("http://server.invalid/"));
    EXPECT_EQ(libTxt.ProductName, QStringLiteral("Velorama"));
    EXPECT_EQ(libTxt.RegistryRoot, QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\"));
    EXPECT_EQ(libTxt.WebsiteUrl, QStringLiteral("http://server.invalid/Velorama/index.html"));
    EXPECT_EQ(libTxt.SupportUrl, QStringLiteral("http://server.invalid/support/index.html"));
    EXPECT_EQ(libTxt.UpdateUrl, QStringLiteral("http://server.invalid/updates/update_vr.txt"));
    EXPECT_EQ(libTxt.HelpUrl, QStringLiteral("http://server.invalid/help/vrhelp/"));
    EXPECT_EQ(libTxt.ProtocolHttp, QStringLiteral("http://"));
    EXPECT_EQ(libTxt.ProtocolFile, QStringLiteral("file://"));
    EXPECT_EQ(libTxt.ShellVerbOpen, QStringLiteral("OPEN"));
}

TEST(LibTxt, TheVersionHasThreeDigitsForMinorAndRevision) {
    fillTextConstants(2026, QString());
    const QRegularExpression number(QStringLiteral("^(\\d+)\\.(\\d{3})(\\d{3})$"));
    const QRegularExpressionMatch match = number.match(libTxt.VersionNumber);
    ASSERT_TRUE(match.hasMatch()) << libTxt.VersionNumber.toStdString();
    EXPECT_EQ(libTxt.VersionText, QStringLiteral("Version: ") + match.captured(1) + u'.' +
                                      match.captured(2) + u'.' + match.captured(3));
}

TEST(LibTxt, TheLegalLineRunsToTheCurrentYear) {
    fillTextConstants(2031, QString());
    EXPECT_EQ(libTxt.LegalLine, QStringLiteral("Copyright \u00A9 2026-2031 Brightquay"));
    fillTextConstants(2026, QString());
    EXPECT_EQ(libTxt.LegalLine, QStringLiteral("Copyright \u00A9 2026 Brightquay"));
    fillTextConstants(1999, QString());
    EXPECT_EQ(libTxt.LegalLine, QStringLiteral("Copyright \u00A9 2026 Brightquay"));
}

TEST(LibTxt, TheAboutTextIsThanksRuleAndNotice) {
    fillTextConstants(2026, QString());
    const QStringList lines = libTxt.AboutText.split(u'\n');
    ASSERT_GT(lines.size(), 2);
    EXPECT_EQ(lines[0], QStringLiteral("Thank you for using Velorama"));
    EXPECT_EQ(lines[1], QString(43, u'_'));
    EXPECT_TRUE(lines[2].startsWith(libTxt.LegalLine));
}

TEST(LibTxt, TheServerRootEndsInASlash) {
    EXPECT_TRUE(ServerRoot().endsWith(u'/'));
    qputenv("VELORAMA_SERVER_ROOT", "http://localhost:8080");
    EXPECT_EQ(ServerRoot(), QStringLiteral("http://localhost:8080/"));
    qunsetenv("VELORAMA_SERVER_ROOT");
}

}  // namespace
}  // namespace velorama
