#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/progress_bar.h"
#include "controls/lists/list_box.h"

#include <QAbstractButton>
#include <QStringList>
#include <QTimer>

#include <array>
#include <functional>

namespace velorama {

/// The controls of the main window that the music works on. They outlive whoever is given them; one
/// that is null makes its steps do nothing.
struct MusicControls {
    ListBox* lstMUSIC = nullptr;
    QTimer* tmrMUSIC = nullptr;
    ProgressBar* prgPLAY = nullptr;
    Label* lblM1 = nullptr;    // length in whole seconds
    Label* lblM2 = nullptr;    // position in whole seconds
    Label* lblFile = nullptr;  // path of the track
    std::array<QAbstractButton*, 6> cbtnAUDIO = {};
    QAbstractButton* Command1 = nullptr;
    QAbstractButton* Command2 = nullptr;
};

/// What the user is asked for when music is added.
struct MusicFileRequest {
    QString InitDir;
    QString Filter;  // description and patterns by turns, "|" between them, patterns joined by ";"
    int FilterIndex = 1;
    QString DialogTitle;
    int Flags = 0;
    QString FileName;
};

/// Asks for files. Full paths in the dialog's order, none if it was cancelled.
using MusicFileChooser = std::function<QStringList(const MusicFileRequest&)>;

}  // namespace velorama
