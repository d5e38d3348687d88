#pragma once

#include "controls/dialogs/colour_dialog.h"
#include "controls/dialogs/file_dialog.h"

#include <QPointer>
#include <QStandardPaths>
#include <QWidget>

#include <functional>

namespace velorama {

/// The numbers mean one thing in a file dialog and another in a colour dialog.
enum DialogFlag : int {
    FlagRgbInit = 1,
    FlagFullOpen = 2,
    FlagOverwritePrompt = 2,
    FlagHideReadOnly = 4,
    FlagAllowMultiselect = 512,
    FlagExplorer = 524288,
    FlagLongNames = 2097152,
};

/// The common dialog of the system, `cdlDIALOG`: its properties keep their values from one showing
/// to the next.
class CommonDialog {
public:
    /// The dialog blocks the window of `owner` while it is up.
    explicit CommonDialog(QWidget* owner = nullptr) : owner_(owner) {}

    QString DialogTitle;
    QString Filter;
    /// From 1. After a showing: the kind that the user left chosen.
    int FilterIndex = 1;
    /// Where the dialog starts.
    QString InitDir;
    /// Where it starts if that folder is not there: the place for files of its kind, without which
    /// it is the documents folder.
    QStandardPaths::StandardLocation StandIn = QStandardPaths::DocumentsLocation;
    /// Sum of DialogFlag. The read-only box, the explorer style and long names need nothing here.
    int Flags = 0;
    /// Whether a cancel counts as a failure.
    bool CancelError = false;
    /// The name offered; after a showing the full path of the (first) file chosen.
    QString FileName;
    /// The colour dialog starts from it with FlagRgbInit, otherwise from black; afterwards the
    /// plain colour chosen.
    Colour Color = 0;

    /// Show the dialog and wait for it. False only for a cancel with CancelError on; a cancel
    /// leaves FileName as it was and FileNames empty.
    bool ShowOpen() { return showDialog(false); }
    bool ShowSave() { return showDialog(true); }
    /// The same with a colour: a cancel leaves Color as it was. The dialog is always the full one.
    bool ShowColor();

    /// Full paths of the files of the last showing, in the dialog's order: at most one unless the
    /// flags allow several, and one always when saving.
    QStringList FileNames() const { return fileNames_; }

    using Answer = std::function<FileDialogAnswer(const FileDialogRequest&)>;
    /// Lets a function answer in place of all dialogs; an empty one brings the dialogs back.
    static void answerWith(Answer answer);
    using ColourAnswer = std::function<std::optional<Colour>(const ColourDialogRequest&)>;
    /// The same for colour dialogs; nothing is a cancel.
    static void answerColourWith(ColourAnswer answer);

private:
    bool showDialog(bool save);
    FileDialogRequest request(bool save) const;

    QPointer<QWidget> owner_;
    QStringList fileNames_;
};

}  // namespace velorama
