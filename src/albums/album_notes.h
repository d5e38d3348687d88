#pragma once

#include "albums/album_controls.h"
#include "controls/lists/item_notes.h"
#include "platform/process/slow_looks.h"

#include <QHash>
#include <QSet>

#include <optional>

namespace velorama {

/// What the list of known albums tells of each: its path, how many slides it has, and whether it is
/// gone. Looked at when the list comes up, when albums join it, and when one is pointed at.
class AlbumNotes : public ItemNotes {
    Q_OBJECT
public:
    /// Must outlive this object, which becomes the list's.
    explicit AlbumNotes(const AlbumControls& controls);

    ItemMark mark(const QString& key) override;
    QStringList tip(const QString& key) override;
    void look(const QString& key) override;
    /// At all albums, once for what is asked in one go.
    void lookSoon();

    bool eventFilter(QObject* list, QEvent* event) override;

private:
    void lookAtAll();
    void learn(const QString& path, bool isThere);

    const AlbumControls& c_;
    QSet<QString> missing_;
    /// Of the album that was pointed at last.
    QString path_;
    std::optional<qint64> slides_;
    bool isDue_ = false;
    SlowLooks looks_;
};

}  // namespace velorama
