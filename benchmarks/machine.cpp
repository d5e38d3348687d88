#include "machine.h"

#include <QFile>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace velorama::bench {
namespace {

using namespace std::chrono_literals;

// The kernel counts in hundredths of a second: a look must last several of them.
constexpr auto look = 60ms;
constexpr int looks = 25;
constexpr double quietShare = 0.1;

struct Ticks {
    double busy = 0;
    double all = 0;
};

QuietRecord record;

Ticks processorTicks() {
    QFile file(QStringLiteral("/proc/stat"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    // "cpu", then user, nice, system, idle, waiting for disks and others.
    const QList<QByteArray> numbers = file.readLine().simplified().split(' ').mid(1);
    Ticks ticks;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const double count = numbers[i].toDouble();
        ticks.all += count;
        ticks.busy += i == 3 || i == 4 ? 0 : count;
    }
    return ticks;
}

}  // namespace

void waitForQuietMachine() {
    ++record.asked;
    Ticks before = processorTicks();
    for (int i = 0; i < looks; ++i) {
        std::this_thread::sleep_for(look);
        const Ticks now = processorTicks();
        if (now.busy - before.busy <= quietShare * (now.all - before.all)) {
            return;
        }
        before = now;
    }
    ++record.inVain;
}

QuietRecord quietRecord() {
    return record;
}

double machineLoad() {
    double load = 0;
    return getloadavg(&load, 1) == 1 ? load : -1;
}

double ownMemory() {
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:")) {
            return line.mid(4).simplified().split(' ').value(0).toDouble();
        }
    }
    return -1;
}

}  // namespace velorama::bench
