#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace velorama {

/// What the owner of a list shows of an item beside its picture and its texts.
struct ItemMark {
    /// As of symbolIcon.
    QString symbol;
    /// What it means, for those who do not see it; empty: the item has no mark.
    QString text;
    /// On a disc in the corner of the picture, or large in its middle.
    enum class Place { Corner, Middle } place = Place::Corner;

    bool isNull() const { return text.isEmpty(); }
};

/// Tells of a list's items, named by their keys, what the list itself does not know. Asked when an
/// item is painted, read out or pointed at, so that thousands of others cost nothing.
class ItemNotes : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Quick: painting waits for it.
    virtual ItemMark mark(const QString& key) = 0;
    /// A tooltip, by what is known now: plain texts, each of which begins a line.
    virtual QStringList tip(const QString& key) = 0;
    /// The pointer has come to rest on the item. What is not known yet may be found out, without
    /// letting the caller wait.
    virtual void look(const QString& key) = 0;

signals:
    /// Some mark or tooltip is another one now.
    void Changed();
};

}  // namespace velorama
