#include "table.h"

#include <QStringList>
#include <QTextStream>

namespace velorama::bench {
namespace {

constexpr const char* head[] = {"#", "work",           "ours", "against",
                                "",  "ratio (rounds)", "goal", "met"};
constexpr int widths[] = {2, 50, 10, 36, 10, 21, 5, 3};
constexpr int columns = 8;

void printLine(const QStringList& cells) {
    QTextStream out(stdout);
    for (int i = 0; i < columns; ++i) {
        const bool number = i == 0 || i == 2 || i == 4 || i == 6;
        const QString cell = cells.value(i);
        out << "| " << (number ? cell.rightJustified(widths[i]) : cell.leftJustified(widths[i]))
            << ' ';
    }
    out << "|\n";
}

QString amount(double value, const QString& unit) {
    const int decimals = value < 10 ? 2 : value < 100 ? 1 : 0;
    return QString::number(value, 'f', decimals) + QLatin1Char(' ') + unit;
}

QString amountOrNone(const std::optional<double>& value, const QString& unit) {
    return value ? amount(*value, unit) : QStringLiteral("-");
}

QString short2(double ratio) {
    return QString::number(ratio, 'f', ratio < 0.1 ? 3 : 2);
}

QString ratios(const Row& row) {
    return QStringLiteral("%1 (%2-%3)")
        .arg(short2(row.ratio), short2(row.leastRatio), short2(row.mostRatio));
}

}  // namespace

void printHead() {
    QStringList names;
    QStringList rules;
    for (int i = 0; i < columns; ++i) {
        names.append(QString::fromLatin1(head[i]));
        rules.append(QString(widths[i], QLatin1Char('-')));
    }
    printLine(names);
    printLine(rules);
}

void printRow(int number, const Row& row) {
    const bool whole = row.ours && row.theirs;
    printLine({QString::number(number), row.work, amountOrNone(row.ours, row.unit), row.against,
               amountOrNone(row.theirs, row.unit), whole ? ratios(row) : row.absent,
               row.goal > 0 ? short2(row.goal) : QStringLiteral("-"),
               !whole || row.goal <= 0 ? QStringLiteral("-")
               : row.ratio <= row.goal ? QStringLiteral("yes")
                                       : QStringLiteral("no")});
}

}  // namespace velorama::bench
