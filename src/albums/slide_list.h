#pragma once

#include "albums/found_files.h"
#include "albums/slide_history.h"
#include "albums/slide_store.h"
#include "browse/found_controls.h"
#include "browse/popup_request.h"
#include "browse/slide_controls.h"
#include "controls/lists/hidden_list.h"
#include "core/commands.h"
#include "platform/process/command_turn.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <utility>

namespace velorama {

/// The ordered set of pictures picked for the show. Its only store in memory are the items of
/// lvwSLIDEBAR; a second copy in the settings, kept by SlideStore, is what the player reads.
///
/// Making a thumbnail lets events run, so that any operation may come inside a running Add or
/// AddAll, which add the files that they were pressed for, whatever folder is shown then. They end
/// where all slides are taken away. Add itself is not begun inside Add, nor AddAll inside AddAll:
/// what was to be added is noted and follows.
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
    /// The same as part of another command, with which it is undone.
    void empty();
    /// Another album's slides come: a running Add or AddAll ends at its next file.
    void leaveBatches();
    /// The current slide one place towards the start or the end.
    void MoveBack();
    void MoveForward();

    // -- slide_drop.cpp: gaps are told by the number of slides before them --
    /// Brings the selected slides together into a gap, in their order, as so many exchanges with
    /// their neighbours would, but that all keep their texts. They stay selected; where they are
    /// there already, nothing happens.
    void MoveSelectedTo(int gap);
    /// Add, and what it has added is then brought to the gap in the order of the folder, and
    /// selected.
    void AddAt(int gap);
    /// Adds picture files, and those that lie in a folder itself, in their order, as AddAll does,
    /// and brings what is new to the gap. What is missing or no picture is passed over; if there is
    /// nothing else, nothing happens. They are looked for on another thread while events run, and
    /// what is dropped meanwhile does not wait for them.
    void AddFiles(const QStringList& paths, int gap);
    /// How dropped paths are looked at from here on, on that thread; `pattern` is a FileList's.
    using Look = std::function<QList<FoundFile>(const QStringList& paths, const QString& pattern)>;
    void setLook(Look look) { look_ = std::move(look); }

    /// Makes entry `Index` (from 0) of flbFOUND a slide: at the current item, or first in an empty
    /// list.
    void SlideInsert(int Index);
    /// Rebuilds the list from its copy in the settings.
    void SlideListReload();
    /// Writes count and paths to the settings.
    void SELECTIONSAVE();
    /// The same as the last thing that is done with the list.
    void saveAtEnd() { store_.writePathsFirst(); }

    /// Switches the commands on the slides on or off by the list.
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
    /// Slides have come that no mark of changes tells of yet: a batch sets it at its end.
    bool hasUnmarked() const { return unmarked_; }
    /// The list as it is now has been saved.
    void forgetUnmarked() { unmarked_ = false; }
    /// The window is closing: a running Add or AddAll ends at its next file.
    void stop();
    SlideHistory& history() { return history_; }

signals:
    /// In the coordinates of the surface.
    void Popup(const PopupRequest& request);

private:
    void connectEvents();
    void connectCommands();
    void connectHistory();
    void historyArrived();
    void lvwSLIDEBAR_KeyDown(int KeyCode, int Shift);
    void lvwSLIDEBAR_MouseUp(int Button, float X, float Y);

    // slide_insert.cpp
    using IsLeft = std::function<bool()>;
    IsLeft batchLeft() const;
    void insert(const FoundFile& file, const IsLeft& isLeft);
    bool addFirst(const FoundFile& file);
    bool addAtCurrent(const FoundFile& file);
    int imageOf(const FoundFile& file) const;
    int currentIndex() const;
    QString textOf(const FoundFile& file) const;

    /// Add or AddAll: its turn, and the files of the latest press that waits.
    struct Batch {
        CommandTurn turn;
        QList<FoundFile> files;
    };

    // slide_batch.cpp
    void press(Batch& batch, const QList<FoundFile>& files, const std::function<void()>& add);
    void hideFound();
    void runAdd(const std::function<void()>& insertFiles);
    void runAddAll(const std::function<void()>& insertFiles);
    bool settleBatch();
    void insertAll(const QList<FoundFile>& files);
    void insertFolder(const QList<FoundFile>& files);

    // slide_drop.cpp
    QString slideBehind(int gap) const;
    QSet<QString> keys() const;
    void addDropped(const QList<FoundFile>& files, const QString& before);
    void insertAt(const QString& before, const QList<FoundFile>& files,
                  const std::function<void()>& insertFiles);
    void bringNew(const QList<FoundFile>& files, const QSet<QString>& known, const QString& before);
    bool bring(const QStringList& slides, const QString& before);
    bool arrange(const QStringList& order);
    void select(const QStringList& slides, const QString& current);

    bool removeSelected();
    void move(int step);
    void exchange(ListItem& s, ListItem& t);
    void fill(ListItem& item, const QString& key);
    void enableStart();
    void markModified();
    void nudgeWidth();

    const SlideControls& c_;
    const FoundControls& found_;
    Commands& commands_;
    Thumbnails& thumbnails_;
    FoundFiles files_;
    SlideStore store_;
    SlideHistory history_;
    bool stopped_ = false;
    /// Files that the batch begun last has come to.
    int inserted_ = 0;
    /// How often batches were left.
    int left_ = 0;
    bool unmarked_ = false;
    HiddenList hidden_;

    Batch add_;
    Batch addAll_;
    Look look_ = picturesOf;
};

}  // namespace velorama
