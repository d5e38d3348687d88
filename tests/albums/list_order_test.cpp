// What each command on the slides and on albums writes, shows, hides and switches, in which order.

#include "albums/album_world.h"
#include "support/files.h"
#include "support/sight_notes.h"

namespace velorama {
namespace {

class ListOrder : public test::WithAlbums {
protected:
    ListOrder() {
        noting.before = [this](const QString& text) {
            if (!text.startsWith(QLatin1String("read "))) {
                noteChanges();
            }
        };
        makeServices(noting, shell);
        list->FoundButtonsCheck();
        list->SelectChk();
        noteCommand(commands.save, "save");
        noteCommand(commands.saveAs, "save as");
        noteCommand(commands.remove, "remove");
        noteCommand(commands.start, "start");
        QObject::connect(
            file.get(), &AlbumFile::CaptionChanged, &form,
            [this](const QString& caption) { noting.note(QStringLiteral("caption ") + caption); });
        CommonDialog::answerWith([this](const FileDialogRequest&) {
            noting.note(QStringLiteral("dialog"));
            return FileDialogAnswer{QStringList(chosen), 1};
        });
    }
    ~ListOrder() override { makeServices(store, shell); }

    /// The notes of a command, but for the reads of other values than `reads`.
    std::string noted(const std::function<void()>& command, const QStringList& reads = {}) {
        noteChanges();
        noting.notes.clear();
        command();
        noteChanges();
        QStringList kept;
        for (const QString& note : std::as_const(noting.notes)) {
            if (!note.startsWith(QLatin1String("read ")) || reads.contains(note.mid(5))) {
                kept.append(QString(note).replace(places, QString()));
            }
        }
        return kept.join(QLatin1String(", ")).toStdString();
    }
    std::string noted(Command& command, const QStringList& reads = {}) {
        return noted([&command] { command.trigger(); }, reads);
    }

    /// Slides with their copy in the settings, and nothing to save.
    void listed(const QStringList& paths) {
        fill(paths);
        list->selectFirstSlide();
        list->FoundButtonsCheck();
        list->SELECTIONSAVE();
        unmodify();
    }

    test::NotingStore noting;
    /// Folders, which are others in each run.
    const QRegularExpression places{QStringLiteral("/[^ ,]*/")};

private:
    void noteCommand(const Command& command, const char* name) {
        QObject::connect(&command, &QAction::enabledChanged, &form, [this, name](bool on) {
            noting.note(QLatin1String(on ? "+" : "-") + QLatin1String(name));
        });
    }
    /// The slides, the albums and the first line of the file of the dialog as they are now, where
    /// they are others than at the note before.
    void noteChanges() {
        noteList(slides_, keys(), "slides");
        noteList(albums_, albumKeys(), "albums");
        const QByteArray content = chosen.isEmpty() ? QByteArray() : test::contentOf(chosen);
        const QString line = QString::fromUtf8(content.left(content.indexOf('\r')));
        if (line != line_) {
            line_ = line;
            noting.notes.append(QStringLiteral("file: ") + line);
        }
    }
    void noteList(QStringList& known, const QStringList& now, const char* name) {
        if (known != now) {
            known = now;
            QStringList files;
            for (const QString& path : now) {
                files.append(path.section(u'/', -1).section(u'.', 0, 0));
            }
            noting.notes.append(QLatin1String(name) + QLatin1String(": ") + files.join(u' '));
        }
    }

    QStringList slides_;
    QStringList albums_;
    QString line_;
    test::SightNotes slidesSight_{*lvwSLIDEBAR, "slides", noting};
    test::SightNotes foundSight_{*lvwFOUND, "found", noting};
    test::SightNotes barSight_{*prgBARSLIDES, "bar", noting};
};

const QString a = QStringLiteral("/p/a.jpg");
const QString b = QStringLiteral("/p/b.jpg");
const QString c = QStringLiteral("/p/c.jpg");

TEST_F(ListOrder, OfAdd) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    selectFound({1, 3});
    list->FoundButtonsCheck();
    EXPECT_EQ(noted(commands.add),
              "hide found, hide slides, slides: a, +start, write Items, write 1, slides: c a, "
              "write Items, write 2, write Items, write 1, write 2, +remove, show found, +save, "
              "+save as, show slides");
}

TEST_F(ListOrder, OfAddAll) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    list->FoundButtonsCheck();
    EXPECT_EQ(noted(commands.addAll),
              "hide slides, show bar, slides: b, +start, write Items, write 1, slides: a b, "
              "write Items, write 2, write Items, write 1, write 2, hide bar, +remove, +save, "
              "+save as, show slides");
}

TEST_F(ListOrder, OfRemove) {
    listed({a, b, c});
    selectSlides({1, 3});
    EXPECT_EQ(noted(commands.remove),
              "hide slides, write Items, slides: b, +save, +save as, show slides");
}

TEST_F(ListOrder, OfRemoveAll) {
    listed({a, b});
    EXPECT_EQ(noted(commands.removeAll, {QStringLiteral("Items")}),
              "hide slides, read Items, slides: , -start, -remove, write 1, write 2, write Items, "
              "+save, +save as, show slides");
}

TEST_F(ListOrder, OfMoves) {
    listed({a, b, c});
    EXPECT_EQ(noted(commands.moveForward),
              "slides: b a c, +save, +save as, write Items, write 1, write 2, write 3");
    unmodify();
    list->SelectChk();
    EXPECT_EQ(noted(commands.moveBack),
              "slides: a b c, +save, +save as, write Items, write 1, write 2, write 3");
}

TEST_F(ListOrder, OfNew) {
    listed({a, b});
    EXPECT_EQ(noted(commands.newAlbum),
              "hide slides, slides: , -start, -remove, write 1, write 2, write Items, +save, "
              "+save as, show slides, caption Velorama, write Slideshow, -save");
}

TEST_F(ListOrder, OfOpen) {
    listed({a});
    chosen = album(formA(pictures({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")})));
    EXPECT_EQ(noted(commands.open, {QStringLiteral("projectlist")}),
              "dialog, hide slides, slides: , -start, -remove, write 1, write Items, +save, "
              "+save as, show slides, caption Velorama, write Slideshow, -save, read projectlist, "
              "albums: a, hide slides, show bar, slides: x y, hide bar, show slides, caption a.vlr "
              "- Velorama, write CMD Open Folder, write Slideshow, +remove, +start");
}

TEST_F(ListOrder, OfAnAlbumOfTheList) {
    const QString known = album(formA(pictures({QStringLiteral("x.bmp")})));
    albums->AlbumListAdd(known);
    listed({a});
    EXPECT_EQ(noted([this, known] { emit albums->OpenAsked(known); }),
              "hide slides, slides: , -start, -remove, write 1, write Items, +save, +save as, show "
              "slides, caption Velorama, write Slideshow, -save, hide slides, show bar, slides: x, "
              "hide bar, show slides, caption a.vlr - Velorama, write Slideshow, +remove, +start");
}

TEST_F(ListOrder, OfSave) {
    chosen = album(formA({}));
    commands.open.trigger();
    listed({a, b});
    modify();
    EXPECT_EQ(noted(commands.save, {QStringLiteral("lvwALBUMSList Total")}),
              "file: 2| , caption a.vlr - Velorama, -save, write lvwALBUMSList Total, write "
              "lvwALBUMS1, read lvwALBUMSList Total");
}

TEST_F(ListOrder, OfSaveAs) {
    listed({a, b});
    modify();
    chosen = test::temporaryFolder() + QStringLiteral("/a.vlr");
    EXPECT_EQ(noted(commands.saveAs, {QStringLiteral("projectlist")}),
              "dialog, file: 2, caption a.vlr - Velorama, read projectlist, albums: a, write "
              "Slideshow, -save");
}

}  // namespace
}  // namespace velorama
