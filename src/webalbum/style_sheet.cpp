#include "core/documents.h"
#include "imaging/pixels/colours.h"
#include "platform/files/private_files.h"
#include "platform/numbers.h"
#include "platform/session/shell.h"
#include "webalbum/mod_webalbum.h"

#include <QDir>

#include <array>

namespace velorama {
namespace {

struct SizeLabel {
    QLatin1String label;
    QLatin1String css;
};

// As many pixels as the label says points.
constexpr std::array<SizeLabel, 7> sizeLabels = {{
    {QLatin1String("1 (8 pt)"), QLatin1String("8px")},
    {QLatin1String("2 (10 pt)"), QLatin1String("10px")},
    {QLatin1String("3 (12 pt)"), QLatin1String("12px")},
    {QLatin1String("4 (14 pt)"), QLatin1String("14px")},
    {QLatin1String("5 (18 pt)"), QLatin1String("18px")},
    {QLatin1String("6 (24 pt)"), QLatin1String("24px")},
    {QLatin1String("7 (36 pt)"), QLatin1String("36px")},
}};

QString cssSize(const QString& label) {
    for (const SizeLabel& size : sizeLabels) {
        if (label == size.label) {
            return size.css;
        }
    }
    return QStringLiteral("12px");
}

QString pageColour(Colour swatch) {
    return clsCOLRSTYLE().ColorSTRtoHTML(decimalText(swatch)).value_or(QString());
}

QString styleSheet(const WebAlbumValues& values) {
    const QString tableSize = cssSize(values.cboFONTSIZE);
    const QString topSize = cssSize(values.cboFONTSSIZEBAR);
    const QStringList lines = {
        QStringLiteral("Body {"),
        u"        font-family: " % values.cboFONTS % u";",
        u"        background-COLOR:" % pageColour(values.picBACKGROUND) % u";",
        u"        COLOR:" % pageColour(values.picTEXTCOLOR) % u";",
        QStringLiteral("}"),
        QString(),
        QString(),
        QStringLiteral("Table {"),
        u"        font-size: " % tableSize % u";",
        QStringLiteral("}"),
        QString(),
        QString(),
        QStringLiteral(".barcol {"),
        u"    background-COLOR:" % pageColour(values.picBARCOL) % u";",
        QStringLiteral("}"),
        QString(),
        QString(),
        QStringLiteral(".topbar {"),
        u"    background-COLOR:" % pageColour(values.picTITLEBARCOL) % u";",
        u"        font-family: " % values.cboFONTSBAR % u";",
        u"         font-size: " % topSize % u";",
        u"        COLOR:" % pageColour(values.picTITLEBARTEXTCOL) % u";",
        QStringLiteral("}"),
    };
    return lines.join(QLatin1String("\r\n"));
}

}  // namespace

void modWEBALBUM::WebAlbumStyleSheetWrite(const WebAlbumValues& values) {
    const QString images = applicationFolder() + QStringLiteral("/images");
    makePrivateFolder(applicationFolder());
    QDir().mkpath(images);
    WebAlbumStyleSheetSave(values, images + QStringLiteral("/mainwa.css"));
}

bool modWEBALBUM::WebAlbumStyleSheetSave(const WebAlbumValues& values, const QString& file) {
    return DocumentSaveText(styleSheet(values), file, Lasting::No);
}

}  // namespace velorama
