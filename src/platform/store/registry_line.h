#pragma once

#include <QString>

#include <optional>

namespace velorama {

/// One line of a registry text, read from its start on.
class RegistryLine {
public:
    explicit RegistryLine(QString line = {});

    void skipBlanks();
    /// True if nothing is left: blanks and a comment do not count.
    bool isDone();

    /// Each takes what stands next, if it is that.
    bool take(QChar wanted);
    /// Letter case is ignored.
    bool takeWord(QLatin1String word);
    /// A number of one to `most` hexadecimal digits.
    std::optional<quint32> takeHex(int most);
    /// What follows a double quote, up to the next one that has no backslash in front of it.
    /// Nothing where that is missing or a backslash stands before something else; `fault` then says
    /// so.
    std::optional<QString> takeQuoted(QString& fault);

    /// What is left, without the blanks at its end.
    QStringView rest() const;

private:
    QString line_;
    qsizetype at_ = 0;
};

}  // namespace velorama
