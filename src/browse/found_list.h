#pragma once

#include "browse/found_controls.h"
#include "browse/popup_request.h"
#include "browse/thumbnails.h"
#include "controls/boxes/progress_bar.h"
#include "controls/lists/hidden_list.h"
#include "platform/process/command_turn.h"

#include <QObject>

#include <functional>
#include <optional>
#include <utility>

namespace velorama {

/// What of dropped paths is to be shown: a folder, and pictures in it to be selected. No folder,
/// nothing.
struct FoundWish {
    QString folder;
    QStringList names;
};

/// The pictures of the folder chosen in ftvFOLDER, as thumbnails in lvwFOUND. Row i of the list is
/// entry i - 1 of flbFOUND.
class FoundList : public QObject {
    Q_OBJECT
public:
    /// What it is given must outlive this object. The events of tree and list are taken over here.
    FoundList(const FoundControls& controls, ProgressBar& prgBARSLIDES, Thumbnails& thumbnails);

    /// Lists a folder. Lets events run between pictures, so that another call may come inside.
    /// Takes its own copy of the path: the tree may move on to another while events run.
    void ftvFOLDER_NodeChange(QString path);
    void lvwFOUND_Click();
    /// Shows the folder of the first that is a folder or a picture, and selects the pictures among
    /// `paths` that lie in it, in the place of what was selected. Where none is either, nothing
    /// happens. They are looked for on another thread; the folder is listed from the event loop. As
    /// soon as more is dropped, or a folder chosen, nobody waits for them any more.
    void showDropped(const QStringList& paths);
    /// How dropped paths are looked at from here on, on that thread; `pattern` is a FileList's.
    using Look = std::function<FoundWish(const QStringList& paths, const QString& pattern)>;
    void setLook(Look look) { look_ = std::move(look); }
    /// Paths of the selected pictures.
    QStringList selectedFiles() const;
    /// The window is closing: listings under way end at their next picture, later ones do not
    /// begin.
    void stop() { stopped_ = true; }

signals:
    /// The names of a folder's pictures are known; their thumbnails are still to come.
    void FolderRead();
    /// A listing is over.
    void Listed();
    /// A picture has been made current.
    void Clicked();
    /// A double click, or Enter.
    void Chosen();
    void KeyDown(int KeyCode, int Shift);
    /// In the coordinates of the page.
    void Popup(const PopupRequest& request);

private:
    void connectEvents();
    void lvwFOUND_KeyDown(int KeyCode, int Shift);
    void lvwFOUND_MouseUp(int Button, float X, float Y);
    void list(const QString& path);
    void show(const QString& path, const FolderFiles& files);
    /// Listing number `listing` has no rows to add any more: the window is closing, or another
    /// folder was chosen.
    bool isLeft(int listing) const;
    void emptyList();
    void fill();
    void addRow(int row, int listing);
    void expectFrom(int row);
    void selectFirst();
    // found_drop.cpp
    static FoundWish lookAt(const QStringList& paths, const QString& pattern);
    bool isCurrent(int wish) const;
    void fulfil(const QString& folder, const QStringList& names);
    void selectLate();
    /// That folder is on show, and its listing is over.
    bool shows(const QString& folder) const;
    bool lists(const QStringList& names) const;
    void select(const QStringList& names);
    /// Lets events run; false if the window went meanwhile.
    bool yield();

    const FoundControls& c_;
    ProgressBar& prgBARSLIDES_;
    Thumbnails& thumbnails_;
    bool stopped_ = false;
    int depth_ = 0;
    int listings_ = 0;
    QString chosen_;  // the folder of the latest node change
    std::optional<QString> postponed_;
    /// How often something was dropped or a folder chosen: the last alone counts.
    int wishes_ = 0;
    /// Dropped pictures of a folder on show that wait for the end of all listings.
    FoundWish late_;
    Look look_ = lookAt;
    /// Of files dropped while others are looked for, the last alone count.
    CommandTurn drop_;
    HiddenList hidden_;
};

}  // namespace velorama
