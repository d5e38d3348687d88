#pragma once

#include <QTimer>
#include <QWidget>

namespace velorama {

/// The sign over the middle of the show that it is paused, for where the bar that says so is
/// hidden. It takes no clicks: they are for the picture below.
class PauseMark : public QWidget {
    Q_OBJECT
public:
    explicit PauseMark(QWidget* form);

    /// Comes up for a second.
    void showBriefly();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer second_{this};
};

}  // namespace velorama
