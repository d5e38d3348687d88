#include "controls/dialogs/common_dialog.h"

#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>

namespace velorama {
namespace {

CommonDialog::Answer& answerer() {
    static CommonDialog::Answer answer;
    return answer;
}

CommonDialog::ColourAnswer& colourAnswerer() {
    static CommonDialog::ColourAnswer answer;
    return answer;
}

QString existingFolder(const QString& wanted, QStandardPaths::StandardLocation standIn) {
    for (const QString& folder :
         {hostFile(wanted), QStandardPaths::writableLocation(standIn),
          QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
            return folder;
        }
    }
    return QDir::homePath();
}

}  // namespace

void CommonDialog::answerWith(Answer answer) {
    answerer() = std::move(answer);
}

void CommonDialog::answerColourWith(ColourAnswer answer) {
    colourAnswerer() = std::move(answer);
}

bool CommonDialog::ShowColor() {
    ColourDialogRequest asked;
    asked.title = DialogTitle;
    asked.colour = (Flags & FlagRgbInit) != 0 ? OleTranslateColor(Color) & 0xFFFFFF : 0;
    const ColourAnswer& answer = colourAnswerer();
    const std::optional<Colour> given = answer ? answer(asked) : askForColour(asked, owner_);
    if (!given) {
        return !CancelError;
    }
    Color = *given;
    return true;
}

FileDialogRequest CommonDialog::request(bool save) const {
    FileDialogRequest request;
    request.save = save;
    request.title = DialogTitle;
    request.kinds = fileKinds(Filter);
    const auto count = static_cast<int>(request.kinds.size());
    request.filterIndex = FilterIndex >= 1 && FilterIndex <= count ? FilterIndex : qMin(1, count);
    request.folder = existingFolder(InitDir, StandIn);
    request.fileName = FileName;
    request.several = !save && (Flags & FlagAllowMultiselect) != 0;
    request.overwritePrompt = (Flags & FlagOverwritePrompt) != 0;
    return request;
}

bool CommonDialog::showDialog(bool save) {
    const FileDialogRequest asked = request(save);
    const Answer& answer = answerer();
    const FileDialogAnswer given = answer ? answer(asked) : askForFiles(asked, owner_);

    fileNames_ = asked.several ? given.files : given.files.mid(0, 1);
    if (fileNames_.isEmpty()) {
        return !CancelError;
    }
    FileName = fileNames_.first();
    if (given.filterIndex >= 1 && given.filterIndex <= asked.kinds.size()) {
        FilterIndex = given.filterIndex;
    }
    return true;
}

}  // namespace velorama
