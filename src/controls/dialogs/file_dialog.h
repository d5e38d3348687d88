#pragma once

#include "controls/dialogs/file_kinds.h"

class QWidget;

namespace velorama {

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

/// Shows the program's own file dialog and waits for it. It blocks the window of `owner`.
FileDialogAnswer askForFiles(const FileDialogRequest& request, QWidget* owner);

}  // namespace velorama
