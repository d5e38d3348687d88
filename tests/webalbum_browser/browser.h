#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

namespace velorama::test {

/// Chromium without a window, led through a pair of pipes by its debugging protocol. It has a
/// profile of its own and no network to speak of. Ends with this object, also when the test dies.
class Browser {
public:
    Browser();
    ~Browser();
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

    /// True if it runs and has a page open. Assert it first.
    bool isUp() const { return !session_.isEmpty(); }

    /// Goes to an address and waits until everything on the page is loaded. False if it cannot.
    bool open(const QUrl& address);
    /// What an expression of the page's script language gives, as JSON; undefined if it throws.
    QJsonValue evaluate(const QString& expression);
    /// Clicks an element of the page with the mouse and waits until the page it leads to is loaded.
    bool click(const QString& selector);
    QUrl address();

private:
    QJsonObject call(const QString& method, const QJsonObject& parameters = {});
    bool waitForLoad();
    /// The next message; empty once the deadline has passed or the browser is gone.
    QJsonObject nextMessage();

    QTemporaryDir folder_;
    QProcess process_;
    int commands_ = -1;
    int answers_ = -1;
    QByteArray received_;
    QString session_;
    int calls_ = 0;
    int loads_ = 0;
};

}  // namespace velorama::test
