#pragma once

#include <QLocale>

namespace velorama::test {

/// The user's language, for as long as it lives.
class DefaultLocale {
public:
    explicit DefaultLocale(const QString& name) { QLocale::setDefault(QLocale(name)); }
    DefaultLocale(const DefaultLocale&) = delete;
    DefaultLocale& operator=(const DefaultLocale&) = delete;
    ~DefaultLocale() { QLocale::setDefault(before_); }

private:
    QLocale before_;
};

}  // namespace velorama::test
