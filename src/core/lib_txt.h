#pragma once

#include <QString>

namespace velorama {

/// The program's text constants. `fillTextConstants` computes them, first thing at start.
struct TextConstants {
    QString ProductName;
    QString RegistryRoot;
    QString WebsiteUrl;
    QString SupportUrl;
    QString UpdateUrl;
    QString HelpUrl;
    QString LegalLine;
    QString VersionNumber;
    QString VersionText;
    QString AboutText;
    QString ProtocolHttp;
    QString ProtocolFile;
    QString ShellVerbOpen;
};

extern TextConstants libTxt;

/// `currentYear` stands in LegalLine. `serverRoot` has its closing slash.
void fillTextConstants(int currentYear, const QString& serverRoot);
/// The server root this build was made with, or VELORAMA_SERVER_ROOT of the environment.
QString ServerRoot();

/// Key path of a segment under the program's root. A segment with and one without a leading
/// backslash lead to the same key.
QString keyPath(const QString& segment);

}  // namespace velorama
