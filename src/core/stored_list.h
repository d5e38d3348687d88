#pragma once

#include <QString>
#include <QStringList>

namespace velorama {

/// A list of paths as the settings keep it: their count under "<key>\Items Total", each path by its
/// number under "<key>\Details", all value names beginning with the list's own. Values above the
/// count stay behind when a list gets shorter, and are not read.
struct StoredList {
    QString key;
    QString name;
    /// Number of the first path.
    int first = 0;

    void save(const QStringList& paths) const;
    /// The paths without the blanks at their ends; none is empty. `now` is what the list holds:
    /// what is too long for the settings comes from there.
    QStringList load(const QStringList& now) const;

private:
    QString detailsKey() const { return key + QStringLiteral("\\Details"); }
    QString pathName(int number) const { return name + QString::number(number); }
};

}  // namespace velorama
