#pragma once

#include "albums/slide_list.h"
#include "browse/browse_world.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"

namespace velorama::test {

/// A slide list with all its controls on a form, in an empty store.
class WithSlides : public WithServices {
protected:
    WithSlides() {
        form.resize(700, 500);
        place(*lvwSLIDEBAR, 120, 4500, 3000, 1500);
        flbFOUND.setPattern(QStringLiteral("*.bmp;*.jpg;*.gif"));
        QObject::connect(list.get(), &SlideList::Popup, &form,
                         [this](const PopupRequest& request) { popups.push_back(request); });
        form.show();
    }

    /// A folder of small pictures, shown in the found list with none selected.
    QString browse(const QStringList& names) {
        const QString folder = temporaryFolder();
        for (const QString& name : names) {
            savePicture(folder, name);
        }
        browseFolder(folder);
        return folder;
    }
    void browseFolder(const QString& folder) {
        flbFOUND.setPath(folder);
        lvwFOUND->Clear();
        for (int i = 1; i <= flbFOUND.ListCount(); ++i) {
            lvwFOUND->Add(i, QString::number(i) + QLatin1Char('M'), flbFOUND.List(i - 1), 0);
        }
    }
    void selectFound(const std::vector<int>& rows) {
        lvwFOUND->clearSelection();
        for (const int row : rows) {
            lvwFOUND->item(row)->setSelected(true);
        }
    }
    void selectSlides(const std::vector<int>& rows) {
        lvwSLIDEBAR->clearSelection();
        for (const int row : rows) {
            lvwSLIDEBAR->item(row)->setSelected(true);
        }
    }
    /// Clears the modified flag and Save As.
    void unmodify() {
        commands.save.setEnabled(false);
        commands.saveAs.setEnabled(false);
    }
    bool isModified() const { return commands.save.isEnabled(); }

    QStringList keys() const {
        QStringList all;
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            all.append(lvwSLIDEBAR->item(i)->Key());
        }
        return all;
    }
    QStringList texts() const {
        QStringList all;
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            all.append(lvwSLIDEBAR->item(i)->Text());
        }
        return all;
    }
    int current() const {
        const ListItem* item = lvwSLIDEBAR->SelectedItem();
        return item ? item->Index() : 0;
    }
    std::vector<int> selected() const {
        std::vector<int> rows;
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            if (lvwSLIDEBAR->item(i)->Selected()) {
                rows.push_back(i);
            }
        }
        return rows;
    }

    /// As it lies in the store: nothing where there is no value.
    std::optional<QString> raw(const QString& segment, const QString& name) const {
        const auto value = store.value(Hive::CurrentUser, keyPath(segment), name);
        return value ? std::optional(QString::fromUtf8(value->data)) : std::nullopt;
    }
    std::optional<QString> storedCount() const {
        return raw(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"));
    }
    std::optional<QString> storedSlide(int number) const {
        return raw(QStringLiteral("frmSLIDESHOW\\Selection"), QString::number(number));
    }
    QStringList storedSlides(int count) const {
        QStringList all;
        for (int i = 1; i <= count; ++i) {
            all.append(storedSlide(i).value_or(QStringLiteral("absent")));
        }
        return all;
    }

    QWidget form;
    const SlideControls slideControls{form};
    const FoundControls foundControls{form};
    ListView* lvwSLIDEBAR = slideControls.lvwSLIDEBAR;
    ListView* lvwFOUND = foundControls.lvwFOUND;
    FileList& flbFOUND = *foundControls.flbFOUND;
    ImageList& imlFOUNDICONS = *foundControls.imlFOUNDICONS;
    ImageList& imlTHUMBNAILS = *slideControls.imlTHUMBNAILS;
    ProgressBar* prgBARSLIDES = slideControls.prgBARSLIDES;
    Commands commands;
    LookAhead pictures;
    Thumbnails thumbnails{imlFOUNDICONS, imlTHUMBNAILS, pictures};
    std::vector<PopupRequest> popups;
    std::unique_ptr<SlideList> list =
        std::make_unique<SlideList>(slideControls, foundControls, commands, thumbnails);
};

}  // namespace velorama::test
