#pragma once

#include <QString>

#include <vector>

namespace velorama {

enum class CallKind {
    Play,
    WebAlbum,
    Check,
    Wallpaper,
    ExportSettings,
    ImportSettings,
    Help,
    Version
};

/// An option of the command line. Those of a call follow the one that names it.
struct OptionRow {
    CallKind call;
    /// Without its dashes.
    QString name;
    /// What the help calls its value; empty for an option without one.
    QString value;
    /// Lines of at most 50 characters.
    QString help;
    /// It names its call.
    bool leads = false;
    /// It may be said several times, and the words that belong to no option are values of it too.
    bool takesMany = false;
};

/// All there are, in the order of the help.
const std::vector<OptionRow>& optionTable();

}  // namespace velorama
