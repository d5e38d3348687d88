#pragma once

#include "browse/popup_request.h"
#include "browse/thumbnails.h"
#include "controls/boxes/progress_bar.h"
#include "controls/lists/file_list.h"
#include "controls/lists/folder_tree.h"
#include "controls/lists/list_view.h"

#include <QObject>

#include <functional>
#include <optional>

namespace velorama {

struct FoundListControls {
    FolderTree* ftvFOLDER = nullptr;
    FileList* flbFOUND = nullptr;
    ListView* lvwFOUND = nullptr;
    ImageList* imlFOUNDICONS = nullptr;
    ProgressBar* prgBARSLIDES = nullptr;
};

/// What the found list asks of the slide list and of the window. An empty one is a step that does
/// nothing.
struct FoundListCalls {
    std::function<void()> FoundButtonsCheck;
    std::function<void()> SelectChk;
    /// Selects item 1 of lvwSLIDEBAR and runs its click handler, if the list holds items.
    std::function<void()> selectFirstSlide;
    std::function<void()> Add;
    std::function<void(int KeyCode, int Shift)> ListKeysCheck;
    PopupHandler popup;
};

/// The pictures of the folder chosen in ftvFOLDER, as thumbnails in lvwFOUND. Row i of the list is
/// entry i - 1 of flbFOUND.
class FoundList : public QObject {
    Q_OBJECT
public:
    /// All controls, and the thumbnails, must outlive this object; their events are taken over
    /// here.
    FoundList(const FoundListControls& controls, Thumbnails& thumbnails, FoundListCalls calls,
              QObject* parent = nullptr);

    /// Lists a folder. Lets events run between pictures, so that another call may come inside.
    /// Takes its own copy of the path: the tree may move on to another while events run.
    void ftvFOLDER_NodeChange(QString path);
    void lvwFOUND_Click();
    /// The window is closing: listings under way end at their next picture, later ones do not
    /// begin.
    void stop() { stopped_ = true; }

private:
    void connectEvents();
    void lvwFOUND_KeyDown(int KeyCode, int Shift);
    void lvwFOUND_MouseUp(int Button, float X, float Y);
    void list(const QString& path);
    void emptyList();
    void fill();
    void addRow(int row);
    void expectFrom(int row);
    void selectFirst();
    /// Lets events run; false if the window went meanwhile.
    bool yield();

    FoundListControls c_;
    Thumbnails& thumbnails_;
    FoundListCalls calls_;
    bool stopped_ = false;
    int depth_ = 0;
    QString chosen_;  // the folder of the latest node change
    std::optional<QString> postponed_;
};

}  // namespace velorama
