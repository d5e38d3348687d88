#pragma once

#include "platform/web/http_fetch.h"

#include <QString>

#include <functional>

class QWidget;

namespace velorama {

enum class UpdateOutcome { NoAnswer, Newer, Latest };

/// What an answer of the server means to a program of the version `current`. Only the numbers that
/// the texts begin with are compared.
UpdateOutcome updateOutcome(const QString& current, const QString& result);

/// Asks the publisher's server for the newest version, when the user wants to know, and tells what
/// came of it in a dialog. Nothing is remembered.
class UpdateCheck {
public:
    /// Shows the small window that asks for patience, and returns when it is gone.
    using Wait = std::function<void(QWidget* owner)>;

    UpdateCheck(HttpFetch& netCHECKUPDATE, Wait wait)
        : netCHECKUPDATE_(netCHECKUPDATE), wait_(std::move(wait)) {}

    /// Returns when the dialog is gone. `closeCaption` is what btnNO reads where there is no
    /// question to answer.
    void run(QWidget* owner, const QString& closeCaption = QStringLiteral("&Close"));

private:
    QString fetch();

    HttpFetch& netCHECKUPDATE_;
    Wait wait_;
};

}  // namespace velorama
