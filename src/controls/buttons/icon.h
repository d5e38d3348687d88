#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace velorama {

/// The symbol `:/icons/<name>.svg`, drawn at the size and pixel density of the moment in the
/// colours of the application's palette. A null icon if there is no such symbol.
QIcon symbolIcon(const QString& name);

/// Paints the same symbol in a colour of the caller's choice, as large as fits into `bounds`.
void paintSymbol(QPainter& painter, const QRectF& bounds, const QString& name,
                 const QColor& colour);

}  // namespace velorama
