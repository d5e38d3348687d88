#pragma once

#include <QTest>

#include <functional>

namespace velorama::test {

/// Turns the event loop until the condition is true; false once the deadline has passed, which
/// happens only where something is wrong, on however busy a machine. This is how a test waits.
inline bool comesTrue(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 120'000);
}

}  // namespace velorama::test
