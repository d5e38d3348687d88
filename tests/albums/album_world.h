#pragma once

#include "albums/album_file.h"
#include "albums/slide_world.h"
#include "controls/boxes/label.h"
#include "controls/geometry/caption.h"
#include "support/sound_files.h"

#include <QPushButton>

namespace velorama::test {

/// Answers every message that comes up while it lives, and remembers what was said.
class MessageWatch {
public:
    /// `button`: btnYES, btnNO, btnCANCEL or btnOK. A message without that button is closed.
    explicit MessageWatch(const QString& button = QStringLiteral("btnOK")) : button_(button) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { answer(); });
        timer_.start(0);
    }

    struct Message {
        QString description;
        QString fileName;
        QString helpText;
        bool operator==(const Message&) const = default;
        friend void PrintTo(const Message& message, std::ostream* out) {
            *out << message.description.toStdString() << '#' << message.fileName.toStdString()
                 << '#' << message.helpText.toStdString();
        }
    };
    std::vector<Message> messages;

private:
    static QString textOf(const QWidget& form, const char* name) {
        const QWidget* label = form.findChild<QWidget*>(QLatin1String(name));
        const Label* line = qobject_cast<const Label*>(label);
        return line ? line->Caption() : label ? label->property("text").toString() : QString();
    }
    QAbstractButton* visibleButton(const QWidget& form, const QString& name) const {
        for (QAbstractButton* button : form.findChildren<QAbstractButton*>(name)) {
            if (button->isVisible()) {
                return button;
            }
        }
        return nullptr;
    }
    void answer() {
        QWidget* form = QApplication::activeModalWidget();
        if (!form) {
            return;
        }
        EXPECT_EQ(form->objectName(), QStringLiteral("frmHELPMESSAGEBOX"));
        messages.push_back({textOf(*form, "lblDESCRIPTION"), textOf(*form, "lblFILENAME"),
                            textOf(*form, "lblHELPTEXT")});
        for (const QString& name : {button_, QStringLiteral("btnOK")}) {
            if (QAbstractButton* button = visibleButton(*form, name)) {
                button->click();
                return;
            }
        }
        form->close();
    }

    QString button_;
    QTimer timer_;
};

inline MessageWatch::Message saveQuestion(const QString& path) {
    return {QStringLiteral("Do you wish to save before you close?"), path,
            QStringLiteral("Press Yes to save, press No to close the file, or cancel to return.")};
}
inline MessageWatch::Message cannotOpen(const QString& path) {
    return {QStringLiteral("The file cannot be opened."), path,
            QStringLiteral("The file may no longer exist or has not been saved yet.")};
}

/// Slide list, album list and album file with all their controls on one form. File dialogs answer
/// with `chosen`; empty cancels.
class WithAlbums : public WithSlides {
protected:
    WithAlbums() {
        SaveCancelled = false;
        form.setWindowTitle(QStringLiteral("untouched"));
        lvwALBUMS->show();
        makeAlbums();
        unmodify();
        CommonDialog::answerWith([this](const FileDialogRequest& request) {
            asked.push_back(request);
            hookedInDialog = gDlgHook->isHooked();
            return FileDialogAnswer{chosen.isEmpty() ? QStringList() : QStringList(chosen), 1};
        });
    }
    ~WithAlbums() override { CommonDialog::answerWith({}); }

    void makeAlbums() {
        albums = std::make_unique<AlbumList>(albumControls, cdlDIALOG);
        file = std::make_unique<AlbumFile>(slideControls, commands, cdlDIALOG, *list, thumbnails,
                                           *albums);
        QObject::connect(file.get(), &AlbumFile::CaptionChanged, &form,
                         [this](const QString& caption) { setCaption(form, caption); });
    }

    /// An album file of these bytes in a folder of its own; its path.
    QString album(const QByteArray& bytes, const QString& name = QStringLiteral("a.vlr")) {
        return saved(temporaryFolder(), name, bytes);
    }
    /// The bytes of an album as Save As writes it.
    static QByteArray formA(const QStringList& paths) {
        return QByteArray::number(paths.size()) + "\r\n" +
               paths.join(QLatin1String("\r\n")).toUtf8() + (paths.isEmpty() ? "\r\n" : "\r\n\r\n");
    }
    /// Pictures of these names in a folder of their own; their paths.
    QStringList pictures(const QStringList& names) {
        const QString folder = temporaryFolder();
        QStringList paths;
        for (const QString& name : names) {
            paths.append(savePicture(folder, name));
        }
        return paths;
    }
    void fill(const QStringList& paths) {
        for (const QString& path : paths) {
            lvwSLIDEBAR->Add(lvwSLIDEBAR->Count() + 1, path, path, 0);
        }
    }
    /// As a change of the list marks it.
    void modify() {
        commands.save.setEnabled(true);
        commands.saveAs.setEnabled(true);
    }
    bool isUnmodified() const { return !commands.save.isEnabled(); }

    /// Runs `action` once the list holds `count` slides, at a place where events are let run: after
    /// a slide, or while the next thumbnail is made.
    void atSlide(int count, std::function<void()> action) {
        atNextYield([this, count, action = std::move(action)] {
            lvwSLIDEBAR->Count() >= count ? action() : atSlide(count, action);
        });
    }

    QStringList albumKeys() const {
        QStringList all;
        for (int i = 1; i <= lvwALBUMS->Count(); ++i) {
            all.append(lvwALBUMS->item(i)->Key());
        }
        return all;
    }
    /// Key of the selected album; empty for none.
    QString selectedAlbum() const {
        const ReportItem* item = lvwALBUMS->SelectedItem();
        return item ? item->Key() : QString();
    }
    std::vector<int> icons() const {
        std::vector<int> all;
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            all.push_back(lvwSLIDEBAR->item(i)->Icon());
        }
        return all;
    }

    std::optional<QString> storedSlideshow() const {
        return raw(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("Slideshow"));
    }
    std::optional<QString> storedFolder() const {
        return raw(QStringLiteral("mfrmPRGMAIN\\Details"), QStringLiteral("CMD Open Folder"));
    }
    std::optional<QString> storedTotal() const {
        return raw(QStringLiteral("mfrmPRGMAIN\\Items Total"),
                   QStringLiteral("lvwALBUMSList Total"));
    }
    std::optional<QString> storedAlbum(int number) const {
        return raw(QStringLiteral("mfrmPRGMAIN\\Details"),
                   QStringLiteral("lvwALBUMS%1").arg(number));
    }
    void setProjectList(const QString& value) {
        saveSetting(QStringLiteral("frmTOOLSSETTINGS"), QStringLiteral("projectlist"), value);
    }

    const AlbumControls albumControls{form};
    ReportView* lvwALBUMS = albumControls.lvwALBUMS;
    CommonDialog cdlDIALOG{&form};
    std::unique_ptr<AlbumList> albums;
    std::unique_ptr<AlbumFile> file;

    QString chosen;
    std::vector<FileDialogRequest> asked;
    bool hookedInDialog = false;
};

}  // namespace velorama::test
