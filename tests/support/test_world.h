#pragma once

#include <QString>
#include <QStringList>

namespace velorama::test {

/// A fresh folder below the test run's temporary home. It lives until the program ends.
QString temporaryFolder();

/// Announces that the next Qt message that contains `part` is wanted. Messages that nobody
/// announced, of level warning or above, fail the running test.
void expectMessage(const QString& part);

}  // namespace velorama::test
