#include "controls/lists/report_header.h"

#include <QPainter>
#include <QStyleOptionHeader>

namespace velorama {

ReportHeader::ReportHeader(QWidget* view) : QHeaderView(Qt::Horizontal, view) {
    setSectionsMovable(false);
    // The owner lays the columns out to the twip, and 0 is a width too.
    setStretchLastSection(false);
    setMinimumSectionSize(0);
    setTextElideMode(Qt::ElideRight);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void ReportHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    const int end = length() - offset();
    QStyleOptionHeader rest;
    initStyleOption(&rest);
    rest.state |= QStyle::State_Horizontal;
    rest.position = QStyleOptionHeader::End;
    rest.rect = QRect(end, 0, viewport()->width() - end, viewport()->height());
    if (!rest.rect.isEmpty()) {
        QPainter painter(viewport());
        style()->drawControl(QStyle::CE_HeaderSection, &rest, &painter, this);
    }
}

}  // namespace velorama
