#pragma once

#include "controls/boxes/progress_bar.h"
#include "controls/lists/list_view.h"
#include "support/folder_files.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"
#include "webalbum/second_writer.h"
#include "webalbum/web_album.h"

#include <gtest/gtest.h>

namespace velorama::test {

/// Bytes of a small picture file of this size.
QByteArray pictureBytes(QSize size);
void writeFile(const QString& path, const QByteArray& bytes);
/// Every file and folder below a folder, sorted.
QStringList entriesBelow(const QString& folder);

/// The page WebAlbum, the slide list and the screen without a window.
class AlbumWorld : public testing::Test {
protected:
    AlbumWorld();
    ~AlbumWorld() override;

    /// A slide for a new picture file in the folder of pictures.
    void addSlide(const QString& name, QSize size);
    /// The same for a file that is not there.
    void addMissing(const QString& name);
    void build() { album.cbtnWEBALBUM_Click(); }

    QString documents() const { return shell.documents; }
    QString albumFolder() const { return documents() + u"My WebAlbum/" + title + u'/'; }
    QByteArray page(const QString& name) const { return readFile(albumFolder() + name); }
    /// What the second writer expects of the slides added so far.
    QMap<QString, QByteArray> expected() const;
    /// The program's own pictures, and the style sheet as the page has it now.
    QMap<QString, QByteArray> programImages() const;
    void expectAlbum() const;
    WebAlbumValues values() const;

    MemoryRegistryStore store;
    RecordingShell shell;
    QString sources;

    QString title = QStringLiteral("Trip");
    Colour background = 16708836;
    Colour textColour = 4194304;
    Colour bar = 16761024;
    Colour titleBar = 16744576;
    Colour titleBarText = 16777215;
    QString font = QStringLiteral("Arial, Helvetica, Sans-Serif");
    QString fontSize = QStringLiteral("3 (12 pt)");
    QString barFont = QStringLiteral("Georgia, \"Times New Roman\", Times, Serif");
    QString barFontSize = QStringLiteral("6 (24 pt)");
    QString photo = QStringLiteral("500");
    QString thumbnail = QStringLiteral("95");

    QWidget surface;
    SlideControls slides{surface};
    ListView& lvwSLIDEBAR = *slides.lvwSLIDEBAR;
    ProgressBar& prgBARSLIDES = *slides.prgBARSLIDES;
    Commands commands;
    /// "critical|text|caption" and the like, in order; "hourglass" before it where one was shown.
    QStringList shown;
    std::vector<ToldSlide> told;
    WebAlbum album{slides, commands, [this] { return values(); }};

private:
    void record(const QString& box, const QString& text, const QString& caption);
};

}  // namespace velorama::test
