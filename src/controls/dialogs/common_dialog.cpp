#include "controls/dialogs/common_dialog.h"

#include "controls/input/one_line.h"
#include "platform/files/paths.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QStandardPaths>

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

QStringList patternsOf(const QString& text) {
    QStringList patterns;
    for (const QString& part : text.split(QLatin1Char(';'))) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty()) {
            patterns.append(pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern);
        }
    }
    return patterns.isEmpty() ? QStringList(QStringLiteral("*")) : patterns;
}

QString existingFolder(const QString& wanted) {
    const QString folder = hostFile(wanted);
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
        return folder;
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

// The kinds are shown by their names alone: these already tell the endings.
QComboBox* kindBox(const QFileDialog& dialog) {
    return dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
}

void offerKinds(QFileDialog& dialog, const FileDialogRequest& request) {
    QStringList filters;
    for (const FileKind& kind : request.kinds) {
        filters.append(kind.name + QStringLiteral(" (") + kind.patterns.join(QLatin1Char(' ')) +
                       QLatin1Char(')'));
    }
    if (filters.isEmpty()) {
        return;
    }
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.filterIndex - 1));
    if (QComboBox* box = kindBox(dialog); box != nullptr && box->count() == filters.size()) {
        for (int row = 0; row < box->count(); ++row) {
            box->setItemText(row, request.kinds.at(row).name);
        }
    }
}

/// The base opens what is selected before what is typed, and selects on its own: the folders that a
/// typed path passes through, and, when the line is emptied, the folder that is shown. That one
/// stayed selected beside what was then picked, and was entered anew instead of opening it.
class TypedFileDialog : public QFileDialog {
public:
    TypedFileDialog(QWidget* owner, const FileDialogRequest& request)
        : QFileDialog(owner, request.title, request.folder) {
        // The program's own dialog, as a desktop's may come up in another process and cannot be
        // placed.
        setOption(QFileDialog::DontUseNativeDialog);
        line_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        list_ = findChild<QListView*>(QStringLiteral("listView"));
        if (!line_ || !list_) {
            return;
        }
        keepOneLine(*line_);
        connect(line_, &QLineEdit::textEdited, this, [this] { typed_ = true; });
        connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                [this] { typed_ = typed_ && line_->hasFocus(); });
        connect(line_, &QLineEdit::textChanged, this, [this](const QString& text) {
            if (text.isEmpty()) {
                list_->selectionModel()->clearSelection();
            }
        });
    }

    void accept() override {
        if (typed_ && !line_->text().isEmpty()) {
            list_->selectionModel()->clearSelection();
        }
        QFileDialog::accept();
    }

private:
    QLineEdit* line_ = nullptr;
    QListView* list_ = nullptr;
    bool typed_ = false;
};

FileDialogAnswer askUser(const FileDialogRequest& request, QWidget* owner) {
    TypedFileDialog dialog(owner, request);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save      ? QFileDialog::AnyFile
                       : request.several ? QFileDialog::ExistingFiles
                                         : QFileDialog::ExistingFile);
    offerKinds(dialog, request);
    if (!request.fileName.isEmpty()) {
        dialog.selectFile(request.fileName);
    }
    FileDialogAnswer answer;
    if (dialog.exec() == QDialog::Accepted) {
        answer.files = dialog.selectedFiles();
    }
    const QComboBox* box = kindBox(dialog);
    answer.filterIndex = box == nullptr ? request.filterIndex : box->currentIndex() + 1;
    return answer;
}

std::optional<Colour> askUserColour(const ColourDialogRequest& request, QWidget* owner) {
    const Colour start = request.colour;
    QColorDialog dialog(QColor(start & 255, (start >> 8) & 255, (start >> 16) & 255), owner);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(request.title);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    const QColor chosen = dialog.selectedColor();
    return chosen.red() | chosen.green() << 8 | chosen.blue() << 16;
}

}  // namespace

QList<FileKind> fileKinds(const QString& filter) {
    const QStringList pieces = filter.split(QLatin1Char('|'));
    QList<FileKind> kinds;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        kinds.append({pieces.at(i).trimmed(), patternsOf(pieces.at(i + 1))});
    }
    return kinds;
}

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
    const std::optional<Colour> given = answer ? answer(asked) : askUserColour(asked, owner_);
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
    request.folder = existingFolder(InitDir);
    request.fileName = FileName;
    request.several = !save && (Flags & FlagAllowMultiselect) != 0;
    request.overwritePrompt = (Flags & FlagOverwritePrompt) != 0;
    return request;
}

bool CommonDialog::showDialog(bool save) {
    const FileDialogRequest asked = request(save);
    const Answer& answer = answerer();
    const FileDialogAnswer given = answer ? answer(asked) : askUser(asked, owner_);

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
