#include "contest.h"

#include "machine.h"

#include <algorithm>
#include <limits>

namespace velorama::bench {
namespace {

/// The measurements of one side, round by round.
using Series = std::vector<std::optional<double>>;

std::vector<double> made(const Series& series) {
    std::vector<double> values;
    for (const auto& value : series) {
        if (value) {
            values.push_back(*value);
        }
    }
    return values;
}

void setRatios(Row& row, const Series& ours, const Series& theirs) {
    row.ratio = *row.ours / *row.theirs;
    row.leastRatio = std::numeric_limits<double>::max();
    for (size_t round = 0; round < ours.size(); ++round) {
        if (ours[round] && theirs[round]) {
            const double ratio = *ours[round] / *theirs[round];
            row.leastRatio = std::min(row.leastRatio, ratio);
            row.mostRatio = std::max(row.mostRatio, ratio);
        }
    }
}

Row rowOf(const Contest& contest, const Opponent& opponent, const Series& ours,
          const Series& theirs) {
    Row row{.work = contest.work,
            .against = opponent.name,
            .unit = contest.unit,
            .goal = opponent.goal,
            .ours = std::nullopt,
            .theirs = std::nullopt,
            .absent = contest.absent.isEmpty() ? opponent.absent : contest.absent};
    const std::vector<double> our = made(ours);
    const std::vector<double> their = made(theirs);
    if (!our.empty()) {
        row.ours = median(our);
    }
    if (!their.empty()) {
        row.theirs = median(their);
    }
    if (row.ours && row.theirs) {
        setRatios(row, ours, theirs);
    } else if (row.absent.isEmpty()) {
        row.absent = QStringLiteral("failed");
    }
    return row;
}

void measureInto(Series& series, const Measure& measure, const QString& absent) {
    if (!absent.isEmpty() || !measure) {
        series.push_back(std::nullopt);
        return;
    }
    waitForQuietMachine();
    series.push_back(measure());
}

}  // namespace

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t half = values.size() / 2;
    return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

std::vector<Row> run(const Contest& contest, int rounds) {
    Series ours;
    std::vector<Series> theirs(contest.against.size());
    for (int round = contest.warmUp ? 0 : 1; round <= rounds; ++round) {
        measureInto(ours, contest.ours, contest.absent);
        for (size_t i = 0; i < theirs.size(); ++i) {
            const Opponent& opponent = contest.against[i];
            measureInto(theirs[i], opponent.measure, contest.absent + opponent.absent);
        }
        if (round == 0) {  // Warm file cache, warm code; not counted.
            ours.clear();
            theirs.assign(theirs.size(), {});
        }
    }
    std::vector<Row> rows;
    for (size_t i = 0; i < theirs.size(); ++i) {
        rows.push_back(rowOf(contest, contest.against[i], ours, theirs[i]));
    }
    return rows;
}

}  // namespace velorama::bench
