#pragma once

#include <QTimer>
#include <QWidget>

namespace velorama {

/// Tells at the start of a show how it is left, paused and stepped through, on the status line of
/// the bar, also while that is hidden. Who has used a key of a show once is not told again. It
/// takes no clicks.
class StartHint : public QWidget {
    Q_OBJECT
public:
    explicit StartHint(QWidget* form);

    /// Comes up for three seconds, unless a key has been used before. In the middle of the form are
    /// `room` logical pixels for it; where they are few it says less.
    void showBriefly(int room);
    /// A key has been used, in this show or an earlier one.
    static bool areKeysKnown();
    static void setKeysKnown();
    void keyUsed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString wordsFor(int room) const;

    QString words_;
    QTimer end_{this};
};

}  // namespace velorama
