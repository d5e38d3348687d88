#include "core/lib_txt.h"

#include "platform/numbers.h"

namespace velorama {
namespace {

const QString companyName = QStringLiteral("Brightquay");
const QString productName = QStringLiteral("Velorama");
constexpr int firstYear = 2026;

QString registryRoot() {
    return QStringLiteral("SOFTWARE\\") + companyName + u'\\' + productName + u'\\';
}

QString threeDigits(int number) {
    return QString::number(number).rightJustified(3, u'0');
}

QString legalLine(int currentYear) {
    const QString first = decimalText(firstYear);
    const QString years = currentYear > firstYear ? first + u'-' + decimalText(currentYear) : first;
    return QStringLiteral("Copyright \u00A9 ") + years + u' ' + companyName;
}

QString legalBlock(int currentYear) {
    return legalLine(currentYear) +
           QStringLiteral(
               ".\n\n"
               "This program is protected by copyright law and by international "
               "treaties. It is provided as it is, without warranty of any kind: its "
               "makers answer for no damage that comes from its use.\n\n"
               "All pictures and icons of this program were drawn for it.");
}

}  // namespace

TextConstants libTxt;

void fillTextConstants(int currentYear, const QString& serverRoot) {
    const QString major = decimalText(VELORAMA_VERSION_MAJOR);
    const QString minor = threeDigits(VELORAMA_VERSION_MINOR);
    const QString revision = threeDigits(VELORAMA_VERSION_REVISION);

    libTxt.ProductName = productName;
    libTxt.RegistryRoot = registryRoot();
    libTxt.WebsiteUrl = serverRoot + productName + QStringLiteral("/index.html");
    libTxt.SupportUrl = serverRoot + QStringLiteral("support/index.html");
    libTxt.UpdateUrl = serverRoot + QStringLiteral("updates/update_vr.txt");
    libTxt.HelpUrl = serverRoot + QStringLiteral("help/vrhelp/");
    libTxt.LegalLine = legalLine(currentYear);
    libTxt.VersionNumber = major + u'.' + minor + revision;
    libTxt.VersionText = QStringLiteral("Version: ") + major + u'.' + minor + u'.' + revision;
    libTxt.AboutText = QStringLiteral("Thank you for using ") + productName + u'\n' +
                       QString(43, u'_') + u'\n' + legalBlock(currentYear);
    libTxt.ProtocolHttp = QStringLiteral("http://");
    libTxt.ProtocolFile = QStringLiteral("file://");
    libTxt.ShellVerbOpen = QStringLiteral("OPEN");
}

QString ServerRoot() {
    const QString chosen = qEnvironmentVariable("VELORAMA_SERVER_ROOT");
    const QString root = chosen.isEmpty() ? QStringLiteral(VELORAMA_SERVER_ROOT) : chosen;
    return root.endsWith(u'/') ? root : root + u'/';
}

QString keyPath(const QString& segment) {
    return registryRoot() + (segment.startsWith(u'\\') ? segment.mid(1) : segment);
}

}  // namespace velorama
