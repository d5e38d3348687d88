#include "browser.h"

#include "desktop/program.h"
#include "desktop/session.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velorama::test {
namespace {

const QStringList options = {
    QStringLiteral("--headless=new"),
    QStringLiteral("--no-sandbox"),  // The tests may run as the superuser.
    QStringLiteral("--remote-debugging-pipe"),
    QStringLiteral("--disable-gpu"),
    QStringLiteral("--disable-dev-shm-usage"),
    QStringLiteral("--disable-background-networking"),
    QStringLiteral("--disable-extensions"),
    QStringLiteral("--no-first-run"),
    QStringLiteral("--window-size=1280,960"),
};

/// Open at both ends, so that nobody waits for the other to come.
int pipeAt(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    return ::mkfifo(name.constData(), 0600) == 0
               ? ::open(name.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC)
               : -1;
}

}  // namespace

Browser::Browser() {
    const QString in = folder_.filePath(QStringLiteral("commands"));
    const QString out = folder_.filePath(QStringLiteral("answers"));
    commands_ = pipeAt(in);
    answers_ = pipeAt(out);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), folder_.path());
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"}) {
        environment.remove(QLatin1String(name));
    }
    process_.setProcessEnvironment(environment);
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardErrorFile(QProcess::nullDevice());
    desktop::dieWithTest(process_);
    // The browser reads commands from descriptor 3 and answers on 4.
    process_.start(
        QStringLiteral("sh"),
        QStringList{QStringLiteral("-c"), QStringLiteral(R"(exec 3<"$0" 4>"$1"; shift; exec "$@")"),
                    in, out, QStringLiteral("chromium"),
                    u"--user-data-dir=" + folder_.filePath(QStringLiteral("profile"))} +
            options);
    if (commands_ < 0 || answers_ < 0 || !process_.waitForStarted()) {
        return;
    }
    const QJsonObject target = call(QStringLiteral("Target.createTarget"),
                                    {{QStringLiteral("url"), QStringLiteral("about:blank")}});
    session_ = call(QStringLiteral("Target.attachToTarget"),
                    {{QStringLiteral("targetId"), target[u"targetId"]},
                     {QStringLiteral("flatten"), true}})[u"sessionId"]
                   .toString();
    call(QStringLiteral("Page.enable"));
}

Browser::~Browser() {
    session_.clear();
    if (process_.state() != QProcess::NotRunning) {
        call(QStringLiteral("Browser.close"));
        if (!process_.waitForFinished()) {
            process_.kill();
            process_.waitForFinished();
        }
    }
    ::close(commands_);
    ::close(answers_);
}

QJsonObject Browser::nextMessage() {
    const QDeadlineTimer deadline(desktop::kDeadline);
    while (true) {
        const qsizetype end = received_.indexOf('\0');
        if (end >= 0) {
            const QByteArray message = received_.first(end);
            received_.remove(0, end + 1);
            return QJsonDocument::fromJson(message).object();
        }
        pollfd ready{answers_, POLLIN, 0};
        constexpr int milliseconds = 200;
        if (::poll(&ready, 1, milliseconds) == 1) {
            char block[65536];
            const ssize_t got = ::read(answers_, block, sizeof block);
            received_.append(block, got > 0 ? got : 0);
        } else if (deadline.hasExpired() || process_.waitForFinished(0) ||
                   process_.state() == QProcess::NotRunning) {
            return {};
        }
    }
}

QJsonObject Browser::call(const QString& method, const QJsonObject& parameters) {
    QJsonObject command{{QStringLiteral("id"), ++calls_},
                        {QStringLiteral("method"), method},
                        {QStringLiteral("params"), parameters}};
    if (!session_.isEmpty()) {
        command[QStringLiteral("sessionId")] = session_;
    }
    const QByteArray text = QJsonDocument(command).toJson(QJsonDocument::Compact) + '\0';
    if (::write(commands_, text.constData(), static_cast<size_t>(text.size())) != text.size()) {
        return {};
    }
    while (true) {
        const QJsonObject message = nextMessage();
        if (message.isEmpty() || message[u"id"].toInt() == calls_) {
            return message[u"result"].toObject();
        }
        loads_ += message[u"method"] == QLatin1String("Page.loadEventFired") ? 1 : 0;
    }
}

bool Browser::waitForLoad() {
    while (loads_ == 0) {
        const QJsonObject message = nextMessage();
        if (message.isEmpty()) {
            return false;
        }
        loads_ += message[u"method"] == QLatin1String("Page.loadEventFired") ? 1 : 0;
    }
    return true;
}

bool Browser::open(const QUrl& address) {
    loads_ = 0;
    const QJsonObject result =
        call(QStringLiteral("Page.navigate"),
             {{QStringLiteral("url"), QString::fromLatin1(address.toEncoded())}});
    return result.contains(u"frameId") && !result.contains(u"errorText") && waitForLoad();
}

QJsonValue Browser::evaluate(const QString& expression) {
    const QJsonObject result =
        call(QStringLiteral("Runtime.evaluate"), {{QStringLiteral("expression"), expression},
                                                  {QStringLiteral("awaitPromise"), true},
                                                  {QStringLiteral("returnByValue"), true}});
    return result.contains(u"exceptionDetails") ? QJsonValue(QJsonValue::Undefined)
                                                : result[u"result"].toObject()[u"value"];
}

bool Browser::click(const QString& selector) {
    const QJsonArray middle = evaluate(QStringLiteral(R"((() => {
            const element = document.querySelector(`%1`);
            element.scrollIntoView({block: 'center', inline: 'center'});
            const box = element.getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2];
        })())")
                                           .arg(selector))
                                  .toArray();
    if (middle.size() != 2) {
        return false;
    }
    loads_ = 0;
    for (const char* type : {"mousePressed", "mouseReleased"}) {
        call(QStringLiteral("Input.dispatchMouseEvent"),
             {{QStringLiteral("type"), QLatin1String(type)},
              {QStringLiteral("x"), middle[0]},
              {QStringLiteral("y"), middle[1]},
              {QStringLiteral("button"), QStringLiteral("left")},
              {QStringLiteral("clickCount"), 1}});
    }
    return waitForLoad();
}

QUrl Browser::address() {
    return QUrl(evaluate(QStringLiteral("location.href")).toString());
}

}  // namespace velorama::test
