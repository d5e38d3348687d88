#include "controls/browser/page_cost.h"

#include <QRegularExpression>
#include <QTextFrame>
#include <QTextTable>

#include <algorithm>
#include <optional>

namespace velorama {
namespace {

// The time of laying out tables doubles with each one that stands in another. What is counted are
// the tables that have been read, since one is made for cells that stand in none too.
constexpr int deepestTable = 6;
// It grows with the square of open tags and with the cells of a table, the spanned ones included.
constexpr int mostTags = 1500;
constexpr qint64 mostCells = 50000;

QRegularExpression anyCase(const QString& pattern) {
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

/// More cells than the tables can have; nothing where a span may be larger than it looks.
std::optional<qint64> cellBound(const QString& html) {
    static const auto span = anyCase(QStringLiteral("(?:col|row)span"));
    static const auto small =
        anyCase(QStringLiteral("(?:col|row)span\\s*=\\s*[\"']?(\\d{1,2})(?!\\d)"));
    // A letter or a digit that is written as its number.
    static const auto masked =
        anyCase(QStringLiteral("&#(?:0*(?:4[89]|5[0-7]|6[5-9]|[78]\\d|90|9[789]|1[01]\\d|12[0-2])|"
                               "x0*(?:3\\d|[46][1-9a-f]|[57][0-9a]))(?![0-9a-f])"));
    static const auto row = anyCase(QStringLiteral("<tr\\b"));
    static const auto cell = anyCase(QStringLiteral("<t[dh]\\b"));
    qint64 spanned = 1;
    qsizetype known = 0;
    for (auto match = small.globalMatch(html); match.hasNext(); ++known) {
        spanned += match.next().captured(1).toInt();
    }
    if (html.count(span) != known || html.contains(masked)) {
        return std::nullopt;
    }
    return (html.count(row) + spanned) * (html.count(cell) + spanned);
}

/// Tables in tables, and further down than `depth` of them.
bool holdsDeeper(const QTextFrame& frame, int depth) {
    const QList<QTextFrame*> inner = frame.childFrames();
    return std::any_of(inner.begin(), inner.end(), [depth](const QTextFrame* child) {
        const bool isTable = qobject_cast<const QTextTable*>(child) != nullptr;
        return (isTable && depth == 0) || holdsDeeper(*child, isTable ? depth - 1 : depth);
    });
}

}  // namespace

bool isLight(const QString& html) {
    return html.count(u'<') <= mostTags && cellBound(html).value_or(mostCells + 1) <= mostCells;
}

bool isLight(const QTextDocument& page) {
    return !holdsDeeper(*page.rootFrame(), deepestTable);
}

}  // namespace velorama
