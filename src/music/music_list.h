#pragma once

#include "controls/dialogs/common_dialog.h"
#include "music/music_controls.h"

namespace velorama {

/// The name under which the program keeps its music list.
inline const QString musicListName = QStringLiteral("mfrmPRGMAINAUD");

/// The music list: adding, removing and ordering its rows, and its copy in the settings. Nothing
/// here touches the device.
class MusicList {
public:
    /// Both must outlive this object.
    MusicList(const MusicControls& controls, CommonDialog& cdlDIALOG);

    void MusicBrowse();
    /// Takes the files with the ending of a music file; their paths become lower case.
    void MusicDrop(const QStringList& paths);
    void removeRow();
    void Command1_Click();
    void Command2_Click();

    /// Under "<name>\Items Total" and "<name>\Details", by the list's own object name.
    void ListboxSave(const ListBox& list, const QString& name) const;
    void ListboxLoad(ListBox& list, const QString& name) const;

private:
    QStringList chooseFiles();
    void exchangeWith(int offset);
    void enableRestart(bool enabled) const;

    const MusicControls& c_;
    CommonDialog& cdlDIALOG_;
};

}  // namespace velorama
