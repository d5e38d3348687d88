#include "support/test_world.h"

#include <QDir>
#include <QTest>
#include <QWidget>

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

/// A button that a test leaves pressed would be pressed in every later test too.
class ButtonRelease : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        const Qt::MouseButtons pressed = QGuiApplication::mouseButtons();
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            if (pressed.testFlag(button)) {
                QWidget elsewhere;
                elsewhere.show();
                QTest::mouseRelease(&elsewhere, button);
            }
        }
    }
};

}  // namespace

void expectMessage(const QString& part) {
    wantedMessages.append(part);
}

QString temporaryFolder() {
    static int number = 0;
    QString path = QDir::homePath() + QStringLiteral("/t%1").arg(++number);
    QDir().mkpath(path);
    return path;
}

void installMessageTrap() {
    qInstallMessageHandler(onMessage);
}

void installButtonRelease() {
    testing::UnitTest::GetInstance()->listeners().Append(new ButtonRelease);
}

}  // namespace velorama::test
