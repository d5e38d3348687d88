#pragma once

#include <QString>

namespace velorama {

/// Codes of MessageBoxClick, the platform's own.
enum MessageAnswer : qint32 { AnswerCancel = 2, AnswerYes = 6, AnswerNo = 7 };

/// Messages to the user, told by a number: the number alone decides texts and buttons. A message
/// is modal: the call returns when the user has answered, and events run meanwhile.
class clsSTATUS {
public:
    /// Message 8: the file cannot be opened. `Text` is shown below the statement.
    void MessageBoxOpen(qint32 Number, const QString& Text);
    /// Question 6: save before closing. The answer as MessageBoxClick has it afterwards.
    qint32 MessageBoxQuestionOpen(qint32 Number, const QString& Text);

    /// The code of the last button pressed in any message; 0 before the first.
    qint32 MessageBoxClick() const { return messageBoxClick_; }
    void setMessageBoxClick(qint32 code) { messageBoxClick_ = code; }

    /// Finds the line of help for a menu entry's text and hands it to the status area.
    void MenuText(const QString& Text);
    /// That line by itself.
    static QString menuHelp(const QString& Text);

private:
    void StatusTextShow(const QString& text);

    qint32 messageBoxClick_ = 0;
};

}  // namespace velorama
