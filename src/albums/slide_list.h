#pragma once

#include "browse/found_controls.h"
#include "browse/popup_request.h"
#include "browse/slide_controls.h"
#include "browse/thumbnails.h"
#include "core/commands.h"
#include "platform/process/command_turn.h"

#include <QObject>

#include <functional>

namespace velorama {

/// The ordered set of pictures picked for the show. Its only store in memory are the items of
/// lvwSLIDEBAR; a second copy in the settings, Items and Selection, is what the player reads.
///
/// Making a thumbnail lets events run, so that any operation may come inside a running Add or
/// AddAll. Add itself is not begun inside Add, nor AddAll inside AddAll: what was to be added is
/// noted and follows.
class SlideList : public QObject {
    Q_OBJECT
public:
    /// What it is given must outlive this object. The events of lvwSLIDEBAR and the commands on the
    /// slides are taken over here.
    SlideList(const SlideControls& controls, const FoundControls& found, Commands& commands,
              Thumbnails& thumbnails);

    /// Adds the selected files of lvwFOUND.
    void Add();
    /// Adds every file of flbFOUND; their order is kept.
    void AddAll();
    /// Removes the selected slides, or the last one if none is selected.
    void Clear();
    void ClearAll();
    /// The current slide one place towards the start or the end.
    void MoveBack() { move(-1); }
    void MoveForward() { move(1); }

    /// Makes entry `Index` (from 0) of flbFOUND a slide: at the current item, or first in an empty
    /// list.
    void SlideInsert(int Index);
    /// Rebuilds the list from its copy in the settings.
    void SlideListReload();
    /// Writes count and paths to the settings.
    void SELECTIONSAVE();

    /// Switches the commands on the slides on or off by the list; the one place where that is
    /// decided.
    void SelectChk();
    /// The same for what the folder on show decides, and for the start of the show.
    void FoundButtonsCheck();
    /// Ctrl+Del removes, Ins adds. Codes and masks of controls/keys.h.
    void ListKeysCheck(int KeyCode, int Shift);

    void lvwSLIDEBAR_Click();
    void lvwSLIDEBAR_AfterLabelEdit(const QString& NewString);
    /// lvwSLIDEBAR is out of sight while it changes. Whoever works it from the keyboard stays in
    /// it.
    void hideSlides();
    void showSlides();
    /// If the list holds items: selects item 1, and only that, and runs the list's click handler.
    void selectFirstSlide();
    /// The window is closing: a running Add or AddAll ends at its next file.
    void stop() { stopped_ = true; }

signals:
    /// In the coordinates of the surface.
    void Popup(const PopupRequest& request);

private:
    void connectEvents();
    void connectCommands();
    void lvwSLIDEBAR_KeyDown(int KeyCode, int Shift);
    void lvwSLIDEBAR_MouseUp(int Button, float X, float Y);

    /// A file of the found list, for the time when that list may show another folder.
    struct FoundFile {
        QString entry;
        QString path;
        bool operator==(const FoundFile&) const = default;
    };

    // slide_insert.cpp
    QString slidePath(const QString& entry) const;
    FoundFile foundFile(int index) const;
    void insert(const FoundFile& file);
    bool addSlide(const QString& path, bool first);
    int currentIndex() const;
    void saveAndReload();
    bool writeSelection();
    void readSelection();
    void beginBatch() { ++batches_; }
    void endBatch();
    void settle();
    bool isUndisturbed() const;
    void remember();
    void expectSelected(int row);
    void expectAbove(int index);
    void appendIfNew(QStringList& paths, int index) const;

    /// Add or AddAll: its turn, and the files of the latest press that waits.
    struct Batch {
        CommandTurn turn;
        QList<FoundFile> files;
    };

    // slide_batch.cpp
    void press(Batch& batch, const QList<FoundFile>& files, const std::function<void()>& now,
               const std::function<void()>& later);
    QList<FoundFile> selectedFiles() const;
    QList<FoundFile> folderFiles() const;
    void runAdd(const std::function<void()>& insertFiles);
    void runAddAll(const std::function<void()>& insertFiles);
    void addSelected();
    void addFolder();
    void insertAll(const QList<FoundFile>& files);

    bool removeSelected();
    void blankSelection(int count);
    void move(int step);
    void exchange(ListItem& s, ListItem& t);
    void enableStart();
    void markModified();
    void nudgeWidth();

    const SlideControls& c_;
    const FoundControls& found_;
    Commands& commands_;
    Thumbnails& thumbnails_;
    bool stopped_ = false;
    /// The keyboard was in lvwSLIDEBAR when it was hidden.
    bool hadFocus_ = false;

    Batch add_;
    Batch addAll_;
    /// Add and AddAll running, one inside the other.
    int batches_ = 0;
    /// Slides were added since the list was last written and rebuilt.
    bool pending_ = false;
    /// Writing and rebuilding would bring back the same keys: it may wait for the end of the batch.
    bool reproducible_ = false;
    /// The list as the last insertion left it; anything else means that others have worked on it.
    int rememberedCount_ = 0;
    QString rememberedFirst_;
};

}  // namespace velorama
