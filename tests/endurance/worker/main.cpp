// A user's session in the home that the environment names, as a program of its own: the operations
// whose letters stand on the command line.

#include "endurance/session_work.h"
#include "platform/process/worker_threads.h"

#include <QApplication>

#include <chrono>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    velorama::endurance::workThrough(argc > 1 ? QByteArray(argv[1]) : QByteArray(), [](char) {});
    return velorama::endWorkers(std::chrono::minutes(1)) ? 0 : 3;
}
