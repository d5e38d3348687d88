#include "ui/parts/show_length.h"

namespace velorama {
namespace {

constexpr qint64 tenth = 100;  // milliseconds
constexpr qint64 second = 10 * tenth;
constexpr qint64 minute = 60 * second;
constexpr qint64 hour = 60 * minute;

qint64 rounded(qint64 milliseconds, qint64 unit) {
    return (milliseconds + unit / 2) / unit * unit;
}

QString secondsText(qint64 milliseconds) {
    const QString whole = QString::number(milliseconds / second);
    const qint64 tenths = milliseconds % second / tenth;
    return (tenths == 0 ? whole : whole + u'.' + QString::number(tenths)) + QStringLiteral(" s");
}

QString twoUnits(qint64 milliseconds, qint64 large, const char* largeName, qint64 small,
                 const char* smallName) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(milliseconds / large)
        .arg(QLatin1String(largeName))
        .arg(milliseconds % large / small, 2, 10, QLatin1Char('0'))
        .arg(QLatin1String(smallName));
}

}  // namespace

QString durationText(qint64 milliseconds) {
    if (rounded(milliseconds, tenth) < minute) {
        return secondsText(rounded(milliseconds, tenth));
    }
    if (rounded(milliseconds, second) < hour) {
        return twoUnits(rounded(milliseconds, second), minute, "min", second, "s");
    }
    return twoUnits(rounded(milliseconds, minute), hour, "h", minute, "min");
}

QString slidesText(int slides) {
    const QString noun = slides == 1 ? QStringLiteral(" slide") : QStringLiteral(" slides");
    return slides == 0 ? QString() : QString(QString::number(slides) + noun);
}

QString showLengthText(int slides, int interval) {
    const QString time = durationText(qint64{slides} * interval);
    return slides == 0 ? QString() : QString(slidesText(slides) + QStringLiteral(", ") + time);
}

}  // namespace velorama
