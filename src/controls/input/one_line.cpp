#include "controls/input/one_line.h"

#include <algorithm>

namespace velorama {
namespace {

bool isLineEnd(QChar c) {
    switch (c.unicode()) {
        case u'\n':
        case u'\v':
        case u'\f':
        case u'\r':
        case 0x0085:
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
            return true;
        default:
            return false;
    }
}

QString firstLine(const QString& text) {
    const auto begin = std::find_if_not(text.begin(), text.end(), isLineEnd);
    return QString(begin, std::find_if(begin, text.end(), isLineEnd) - begin);
}

class OneLine : public QObject {
public:
    explicit OneLine(QLineEdit& field) : QObject(&field), field_(field), before_(field.text()) {
        connect(&field, &QLineEdit::textEdited, this, &OneLine::mend);
        connect(&field, &QLineEdit::textChanged, this, [this] { before_ = field_.text(); });
    }

private:
    /// What has just come in stands between what is as before and the cursor.
    void mend(const QString& text) {
        const qsizetype end = field_.cursorPosition();
        const auto same =
            std::mismatch(text.begin(), text.begin() + end, before_.cbegin(), before_.cend());
        const qsizetype start = same.first - text.begin();
        const QString come = text.mid(start, end - start);
        if (lineEndOf(come) < 0) {
            return;
        }
        const QString line = firstLine(come);
        field_.setText(text.left(start) + line + text.mid(end));
        field_.setCursorPosition(static_cast<int>(start + line.size()));
    }

    QLineEdit& field_;
    QString before_;
};

}  // namespace

qsizetype lineEndOf(QStringView text) {
    const auto found = std::find_if(text.begin(), text.end(), isLineEnd);
    return found == text.end() ? -1 : found - text.begin();
}

void keepOneLine(QLineEdit& field) {
    new OneLine(field);
}

}  // namespace velorama
