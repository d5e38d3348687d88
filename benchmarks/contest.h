#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace velorama::bench {

/// Makes one measurement and returns it in the unit of its contest; nothing if it failed. Whatever
/// it has to prepare, it prepares outside of the time it returns.
using Measure = std::function<std::optional<double>()>;

/// What the program is held against: one row of the table.
struct Opponent {
    QString name;
    /// The ratio ours / theirs that the program is not to exceed; 0 if there is no such limit.
    double goal = 0;
    Measure measure;
    /// Why there is nothing to measure, e.g. a program that is not installed; empty otherwise.
    QString absent = {};
};

/// One kind of work, done by the program and by its opponents in turn.
struct Contest {
    QString work;
    QString unit;
    int rounds = 0;
    Measure ours;
    std::vector<Opponent> against;
    /// Why our side cannot be measured; empty otherwise.
    QString absent = {};
    /// Whether a first round is run that does not count.
    bool warmUp = true;
};

struct Row {
    QString work;
    QString against;
    QString unit;
    double goal = 0;
    std::optional<double> ours;
    std::optional<double> theirs;
    /// Ratio of the medians, and the smallest and largest ratio of a single round.
    double ratio = 0;
    double leastRatio = 0;
    double mostRatio = 0;
    QString absent;
};

/// Runs ours and every opponent once for warming up, unless told not to, then `rounds` times in
/// turn, each time waiting a little for the machine to be quiet.
std::vector<Row> run(const Contest& contest, int rounds);

double median(std::vector<double> values);

}  // namespace velorama::bench
