#include "ui/workshop.h"

#include "core/globals.h"
#include "platform/session/shell.h"

#include <QMessageBox>

namespace velorama {
namespace {

/// The small ones are those of the slide bar, which are kept; a large one is not worth its room.
SampleSlides::Load loadSamples(const CellSource& cells) {
    return [cells](const QString& path, int side) {
        if (side < SampleSlides::photoSide) {
            return cells.load(path, side);
        }
        const Fit fit = Fit::cell(side);
        const Picture picture = LoadPicture(path, fit);
        return picture.isNull() ? QImage() : fitted(picture, fit);
    };
}

}  // namespace

Workshop::Workshop(QWidget& form, Pages& pages, SlideBar& slideBar, Commands& commands,
                   CommonDialog& cdlDIALOG, const MainServices& services)
    : pictures_(services.thumbnails),
      thumbnails_(*pages.pictures->found.imlFOUNDICONS, *slideBar.slides.imlTHUMBNAILS, pictures_,
                  form.devicePixelRatioF()),
      slides(slideBar.slides, pages.pictures->found, commands, thumbnails_),
      found(pages.pictures->found, *slideBar.slides.prgBARSLIDES, thumbnails_),
      albums(pages.slideshows->albums, cdlDIALOG),
      album(slideBar.slides, commands, cdlDIALOG, slides, thumbnails_, albums),
      audio(pages.music->controls, services.device, cdlDIALOG),
      webAlbum(slideBar.slides, commands, [&pages] { return pages.webAlbum->values(); }),
      drags_(pages.pictures->found, slideBar.slides, found, slides),
      form_(form),
      commands_(commands),
      pages_(pages),
      slideBar_(slideBar),
      boxes_(*slideBar.slides.lvwSLIDEBAR->parentWidget()),
      foundNotes_(pages.pictures->found, *slideBar.slides.lvwSLIDEBAR),
      slideNotes_(slideBar.slides, thumbnails_),
      albumNotes_(pages.slideshows->albums),
      touched_(*slideBar.slides.lvwSLIDEBAR, *pages.pictures->found.lvwFOUND,
               *pages.pictures->found.flbFOUND),
      preview_(touched_, [this]() -> const PreviewControls& { return previewWindow(); }),
      wallpaper_(touched_, boxes_, services.desktop),
      sampleSlides_(*slideBar.slides.lvwSLIDEBAR, *pages.webAlbum, loadSamples(pictures_.cells())) {
    connectFound();
    connectSlides();
    connectWebAlbum();
    connectCommands();
    enablePictureCommands();
}

void Workshop::connectFound() {
    connect(&found, &FoundList::FolderRead, pages_.pictures, &PicturesPage::showCount);
    connect(&found, &FoundList::FolderRead, this, &Workshop::enablePictureCommands);
    connect(&found, &FoundList::Clicked, &slides, &SlideList::FoundButtonsCheck);
    connect(&found, &FoundList::Listed, &slides, [this] {
        slides.FoundButtonsCheck();
        slides.SelectChk();
        slides.selectFirstSlide();
    });
    connect(&found, &FoundList::Chosen, &slides, &SlideList::Add);
    connect(&found, &FoundList::KeyDown, &slides, &SlideList::ListKeysCheck);
}

// Without a found picture they do nothing, also where there are slides.
void Workshop::enablePictureCommands() {
    const bool acts = pages_.pictures->found.flbFOUND->ListCount() > 0;
    commands_.preview.setEnabled(acts);
    commands_.wallpaper.setEnabled(acts);
}

void Workshop::connectSlides() {
    connect(&pages_, &Pages::Turned, &slideBar_,
            [this] { slideBar_.setPicturesShown(&pages_.shown() == pages_.pictures); });
    const ListView& list = *slideBar_.slides.lvwSLIDEBAR;
    connect(list.model(), &QAbstractItemModel::modelReset, pages_.webAlbum,
            [this, &list] { pages_.webAlbum->setHasSlides(list.Count() > 0); });
    connect(&slideBar_, &SlideBar::Pressed, &slides, &SlideList::SelectChk);
    connect(&albums, &AlbumList::JoinedAgain, &albumNotes_, &AlbumNotes::lookSoon);
    connect(pages_.pictures, &PicturesPage::KeyDown, &slides, &SlideList::ListKeysCheck);
}

void Workshop::tellAlbumFolder() {
    const bool hasTitle = !pages_.webAlbum->txtTITLE->text().isEmpty();
    pages_.webAlbum->setAlbumFolder(hasTitle ? webAlbum.folder() : QString());
}

void Workshop::connectWebAlbum() {
    connect(pages_.webAlbum->txtTITLE, &QLineEdit::textChanged, this, &Workshop::tellAlbumFolder);
    connect(&webAlbum, &WebAlbum::NoTitle, this, [this](const QString& text, const QString& title) {
        QMessageBox::critical(&form_, title, text);
    });
    connect(&webAlbum, &WebAlbum::Complete, this,
            [this](const QString& text, const QString& title) {
                QMessageBox::information(&form_, title, text);
            });
}

// Those of slides and albums are connected by who carries them out.
void Workshop::connectCommands() {
    const auto on = [this](const Command& command, auto handler) {
        connect(&command, &Command::triggered, this, handler);
    };
    connect(&preview_, &Preview::Ready, this, &Workshop::showPreview);
    on(commands_.preview, [this] { preview_.PicturePreview(); });
    on(commands_.wallpaper, [this] { wallpaper_.DESKTOPWALLPAPER(); });
    commands_.showSamples.setEnabled(!sampleFolder().isEmpty());
    on(commands_.showSamples,
       [this] { pages_.pictures->found.ftvFOLDER->setPath(sampleFolder()); });
    on(commands_.createWebAlbum, [this] { webAlbum.cbtnWEBALBUM_Click(); });
    on(commands_.viewWebAlbum,
       [this] { webAlbum.cbtnVIEWWEBALB_Click(QString::number(form_.winId())); });
}

const PreviewControls& Workshop::previewWindow() {
    if (!previewForm_) {
        previewForm_ = new frmPICTUREPREVIEW(&form_);
        connect(previewForm_, &frmPICTUREPREVIEW::Walk, &preview_, &Preview::PicturePreviewCertain);
        connect(previewForm_, &frmPICTUREPREVIEW::Wallpaper, this,
                [this] { wallpaper_.DESKTOPWALLPAPERPREVIEW(preview_.position()); });
    }
    return previewForm_->controls;
}

void Workshop::showPreview() const {
    const QPointer<frmPICTUREPREVIEW> form = previewForm_;
    form->exec();
    delete form;
}

void Workshop::load(const QString& albumPath) {
    albums.load();
    audio.list.ListboxLoad(*pages_.music->controls.lstMUSIC, musicListName);
    loaded_ = true;
    albums.AlbumListSelect(albumPath);
    album.openAtStart(albumPath);
}

void Workshop::saveLists() const {
    if (loaded_) {
        audio.list.ListboxSave(*pages_.music->controls.lstMUSIC, musicListName);
        albums.save();
    }
}

void Workshop::showFirstSlide() {
    ActiveList = QStringLiteral("SELECTED");
    slides.selectFirstSlide();
    ActiveList = QStringLiteral("SELECTED");
}

void Workshop::stop() {
    audio.closeDevice();
    pages_.music->controls.tmrMUSIC->stop();
    found.stop();
    slides.stop();
    album.stop();
    webAlbum.stop();
}

}  // namespace velorama
