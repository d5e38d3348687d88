#include "controls/dialogs/file_dialog.h"

#include "controls/boxes/list_frame.h"
#include "controls/input/one_line.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>

namespace velorama {
namespace {

QString nameFilter(const FileKind& kind) {
    return kind.name + QStringLiteral(" (") + kind.patterns.join(QLatin1Char(' ')) +
           QLatin1Char(')');
}

/// Versions of the base differ in whether they tell the patterns too. From 1; 0 for none.
int chosenKind(const QFileDialog& dialog, const QList<FileKind>& kinds) {
    const QString chosen = dialog.selectedNameFilter();
    for (int row = 0; row < kinds.size(); ++row) {
        if (chosen == kinds.at(row).name || chosen == nameFilter(kinds.at(row))) {
            return row + 1;
        }
    }
    return 0;
}

void offerKinds(QFileDialog& dialog, const FileDialogRequest& request) {
    if (request.kinds.isEmpty()) {
        return;
    }
    QStringList filters;
    for (const FileKind& kind : request.kinds) {
        filters.append(nameFilter(kind));
    }
    // The names alone already tell the endings.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.filterIndex - 1));
}

/// The ending that the first kind has, with its point; empty where any file will do.
QString firstEnding(const QList<FileKind>& kinds) {
    const QString pattern = kinds.isEmpty() ? QString() : kinds.first().patterns.value(0);
    return pattern.startsWith(QStringLiteral("*.")) ? pattern.mid(1) : QString();
}

/// Folders that people keep such files in and that the side bar does not have yet.
QList<QUrl> missingPlaces(const QList<QUrl>& places) {
    QList<QUrl> missing;
    for (const auto location : {QStandardPaths::PicturesLocation, QStandardPaths::MusicLocation,
                                QStandardPaths::DocumentsLocation}) {
        const QString folder = QStandardPaths::writableLocation(location);
        const QUrl place = QUrl::fromLocalFile(folder);
        // Without a folder of its own such a place is the home folder, which stands there already.
        if (QFileInfo(folder).isDir() && !places.contains(place) && !missing.contains(place)) {
            missing.append(place);
        }
    }
    return missing;
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
        added_ = missingPlaces(sidebarUrls());
        setSidebarUrls(sidebarUrls() + added_);
        for (auto* each : findChildren<QAbstractItemView*>()) {
            // Those that belong to a popup have its frame, and a header stands in its list's.
            if (each->window() == this && qobject_cast<QHeaderView*>(each) == nullptr) {
                frameOtherList(*each);
            }
        }
        layout()->activate();
        // The one line and the one list with columns that such a dialog has.
        line_ = findChild<QLineEdit*>();
        const auto* list = findChild<QTreeView*>();
        if (!line_ || !list) {
            return;
        }
        selection_ = list->selectionModel();
        keepOneLine(*line_);
        connect(line_, &QLineEdit::textEdited, this, [this] { typed_ = true; });
        connect(selection_, &QItemSelectionModel::selectionChanged, this,
                [this] { typed_ = typed_ && line_->hasFocus(); });
        connect(line_, &QLineEdit::textChanged, this, [this](const QString& text) {
            if (text.isEmpty()) {
                selection_->clearSelection();
            }
        });
    }

    // The base keeps the places of the side bar for every program that has this dialog: those of
    // this one alone are taken out again, what the user has put there stays.
    ~TypedFileDialog() override {
        QList<QUrl> places = sidebarUrls();
        places.removeIf([this](const QUrl& place) { return added_.contains(place); });
        setSidebarUrls(places);
    }

    /// Shown where no name has been typed.
    void offerEnding(const QString& ending) {
        if (line_ && !ending.isEmpty()) {
            line_->setPlaceholderText(QStringLiteral("name") + ending);
        }
    }

    void accept() override {
        if (typed_ && !line_->text().isEmpty()) {
            selection_->clearSelection();
        }
        QFileDialog::accept();
    }

private:
    QLineEdit* line_ = nullptr;
    QItemSelectionModel* selection_ = nullptr;
    bool typed_ = false;
    QList<QUrl> added_;
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
    if (request.save) {
        dialog.offerEnding(firstEnding(request.kinds));
    }
    if (!request.fileName.isEmpty()) {
        dialog.selectFile(request.fileName);
    }
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    return {dialog.selectedFiles(), chosenKind(dialog, request.kinds)};
}

}  // namespace velorama
