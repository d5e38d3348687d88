#pragma once

#include <QAbstractItemView>
#include <QHelpEvent>

#include <optional>

namespace velorama {

/// The tooltip of a list's row. What it tells may grow while it is up.
class RowTip {
public:
    explicit RowTip(QAbstractItemView& view) : view_(view) {}

    /// The place of the viewport that is told of, while the tooltip is up; nothing otherwise.
    std::optional<QPoint> place() const;
    /// Shows the lines, or another tooltip's end where there are none.
    void show(const QHelpEvent& event, const QStringList& lines);
    /// Shows other lines in the same place, if the tooltip is up.
    void renew(const QStringList& lines);

private:
    void show(const QPoint& screen, const QStringList& lines);

    QAbstractItemView& view_;
    QPoint at_;
    QPoint screen_;
    QString shown_;
};

}  // namespace velorama
