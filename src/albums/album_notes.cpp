#include "albums/album_notes.h"

#include "albums/album_fields.h"
#include "browse/picture_facts.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"

#include <QEvent>
#include <QFileInfo>

namespace velorama {
namespace {

bool isThere(const QString& path) {
    return QFileInfo(hostFile(path)).isFile();
}

QString counted(qint64 slides) {
    return decimalText(slides) + (slides == 1 ? u" slide" : u" slides");
}

}  // namespace

AlbumNotes::AlbumNotes(const AlbumControls& controls) : c_(controls) {
    ReportView* list = controls.lvwALBUMS;
    list->setNotes(this);
    list->installEventFilter(this);
    connect(list->model(), &QAbstractItemModel::rowsInserted, this, &AlbumNotes::lookSoon);
}

bool AlbumNotes::eventFilter(QObject* list, QEvent* event) {
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        lookSoon();
    }
    return ItemNotes::eventFilter(list, event);
}

void AlbumNotes::lookSoon() {
    if (!isDue_) {
        isDue_ = true;
        QMetaObject::invokeMethod(this, &AlbumNotes::lookAtAll, Qt::QueuedConnection);
    }
}

/// One look for all: albums on a place that does not answer must not take every thread.
void AlbumNotes::lookAtAll() {
    isDue_ = false;
    QStringList albums;
    for (int i = 1; c_.lvwALBUMS->isVisible() && i <= c_.lvwALBUMS->Count(); ++i) {
        albums.append(c_.lvwALBUMS->item(i)->Key());
    }
    looks_.ask([this, albums]() -> SlowLooks::Answer {
        QSet<QString> missing;
        for (const QString& album : albums) {
            if (!isThere(album)) {
                missing.insert(album);
            }
        }
        return [this, albums, missing] {
            for (const QString& album : albums) {
                learn(album, !missing.contains(album));
            }
        };
    });
}

void AlbumNotes::learn(const QString& path, bool isThere) {
    if (isThere == missing_.contains(path)) {
        if (isThere) {
            missing_.remove(path);
        } else {
            missing_.insert(path);
        }
        emit Changed();
    }
}

ItemMark AlbumNotes::mark(const QString& key) {
    return missing_.contains(key) ? ItemMark{{}, fileNotFound} : ItemMark();
}

QStringList AlbumNotes::tip(const QString& key) {
    QStringList lines(key);
    if (missing_.contains(key)) {
        lines += fileNotFound;
    } else if (key == path_ && slides_) {
        lines += counted(*slides_);
    }
    return lines;
}

void AlbumNotes::look(const QString& key) {
    path_ = key;
    slides_.reset();
    looks_.ask([this, key]() -> SlowLooks::Answer {
        return [this, key, found = isThere(key), slides = albumSlides(key)] {
            if (key == path_) {
                slides_ = slides;
                emit Changed();
            }
            learn(key, found);
        };
    });
}

}  // namespace velorama
