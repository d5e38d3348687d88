#include "controls/dialogs/file_dialog.h"

#include "controls/input/one_line.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>

namespace velorama {
namespace {

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

}  // namespace

FileDialogAnswer askForFiles(const FileDialogRequest& request, QWidget* owner) {
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

}  // namespace velorama
