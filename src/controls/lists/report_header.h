#pragma once

#include <QHeaderView>

namespace velorama {

/// The head of a ReportView. Behind its last column it goes on as an empty one.
class ReportHeader : public QHeaderView {
    Q_OBJECT
public:
    explicit ReportHeader(QWidget* view);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velorama
