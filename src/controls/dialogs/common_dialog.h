#pragma once

#include "platform/session/system_colours.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <optional>

namespace velorama {

/// One line of a file dialog's list of kinds.
struct FileKind {
    QString name;
    /// Wildcards; "*" for all files.
    QStringList patterns;
    bool operator==(const FileKind&) const = default;
};

/// Reads "name|*.a; *.b|name|*.c". A name without patterns at the end is dropped. "*.*" stands for
/// all files, also those without a dot.
QList<FileKind> fileKinds(const QString& filter);

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

/// What a file dialog is asked, and what it answers. No file: it was cancelled.
struct FileDialogRequest {
    bool save = false;
    QString title;
    QList<FileKind> kinds;
    /// From 1; 0 where there are no kinds.
    int filterIndex = 0;
    /// A folder that exists, in this machine's form.
    QString folder;
    QString fileName;
    bool several = false;
    bool overwritePrompt = false;
};

struct FileDialogAnswer {
    QStringList files;
    int filterIndex = 0;
};

/// What a colour dialog is asked: the plain colour (0x00BBGGRR) it starts from.
struct ColourDialogRequest {
    QString title;
    Colour colour = 0;
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
    /// Where the dialog starts. A folder that is not there gives the documents folder.
    QString InitDir;
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
