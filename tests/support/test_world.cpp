#include "support/test_world.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

QStringList wantedMessages;

void onMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) {
        return;
    }
    for (auto wanted = wantedMessages.begin(); wanted != wantedMessages.end(); ++wanted) {
        if (text.contains(*wanted)) {
            wantedMessages.erase(wanted);
            return;
        }
    }
    ADD_FAILURE() << "unexpected message: " << text.toStdString();
}

}  // namespace

void expectMessage(const QString& part) {
    wantedMessages.append(part);
}

QString temporaryFolder() {
    static int number = 0;
    const QString path = QDir::homePath() + QStringLiteral("/t%1").arg(++number);
    QDir().mkpath(path);
    return path;
}

void installMessageTrap() {
    qInstallMessageHandler(onMessage);
}

}  // namespace velorama::test
