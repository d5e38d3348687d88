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
    explicit OneLine(QLineEdit& field) : QObject(&field), field_(field) {
        connect(&field, &QLineEdit::textEdited, this, &OneLine::mend);
        // The field tells these after the text, so what is kept here is of before an edit.
        connect(&field, &QLineEdit::textChanged, this, &OneLine::keep);
        connect(&field, &QLineEdit::selectionChanged, this, &OneLine::keep);
        connect(&field, &QLineEdit::cursorPositionChanged, this, &OneLine::keep);
        keep();
    }

private:
    void keep() {
        before_ = field_.text();
        place_ = field_.hasSelectedText() ? field_.selectionStart() : field_.cursorPosition();
    }

    /// What has just come in ends at the cursor. It begins where the cursor or the selection was;
    /// after an undo earlier, where the texts cease to be the same.
    void mend(const QString& text) {
        const qsizetype end = field_.cursorPosition();
        const auto same =
            std::mismatch(text.begin(), text.begin() + end, before_.cbegin(), before_.cend());
        const qsizetype start = qMin<qsizetype>(same.first - text.begin(), place_);
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
    int place_ = 0;
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
