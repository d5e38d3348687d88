#pragma once

#include "endurance/home.h"
#include "support/test_world.h"

#include <string>

namespace velorama::endurance {

struct Outcome {
    /// -1 where it did not start, crashed or hung.
    int code = -1;
    QByteArray err;
};

/// Runs a program to its end.
Outcome runProgram(const QString& program, const QStringList& words,
                   const QProcessEnvironment& environment);

/// Two slides, an album and a web album of them, a wallpaper, kept thumbnails of the half of the
/// pictures and settings to import, all by the program's own hand; then the home is kept.
void liveIn(Home& home);

/// The stored slides, which are written while they come: a count, or one of the pictures or none.
Between slidesBetween(const Home& home);

std::string joined(const QStringList& lines);

}  // namespace velorama::endurance
