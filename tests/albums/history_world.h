#pragma once

#include "albums/album_world.h"

namespace velorama::test {

/// All that undo and redo bring back, and the copy of the slides in the settings.
struct Look {
    QStringList keys{};
    QStringList texts{};
    QStringList pictures{};
    std::vector<int> selected{};
    int current = 0;
    bool modified = false;
    QString tag{};
    QString note{};
    QString caption{};
    QString nextStart{};

    bool operator==(const Look&) const = default;
    friend void PrintTo(const Look& look, std::ostream* out) {
        *out << look.keys.join(u' ').toStdString() << " | " << look.texts.join(u' ').toStdString()
             << " | " << look.pictures.join(u' ').toStdString() << " | current " << look.current
             << " of " << look.selected.size() << (look.modified ? " modified " : " ")
             << look.tag.toStdString() << " | " << look.note.toStdString() << " | "
             << look.caption.toStdString() << " | " << look.nextStart.toStdString();
    }
};

/// Slides and albums whose changes are undone.
class WithHistory : public WithAlbums {
protected:
    WithHistory() { form.setWindowTitle(QStringLiteral("Velorama")); }

    SlideHistory& history() { return list->history(); }
    Look look() const {
        Look now{.keys = keys(),
                 .texts = texts(),
                 .selected = selected(),
                 .current = current(),
                 .modified = file->isModified(),
                 .tag = file->Tag(),
                 .note = file->note(),
                 .caption = form.windowTitle(),
                 .nextStart = storedSlideshow().value_or(QString())};
        for (const int icon : icons()) {
            now.pictures.append(imlTHUMBNAILS.Key(icon));
        }
        return now;
    }
    /// After every undo and redo the settings hold the list as it is.
    void expectStored() const {
        EXPECT_EQ(storedCount(), QString::number(keys().size()));
        EXPECT_EQ(storedSlides(lvwSLIDEBAR->Count()), keys());
    }
    void undo() {
        commands.undo.trigger();
        expectStored();
    }
    void redo() {
        commands.redo.trigger();
        expectStored();
    }
    /// The command is one step; undo leads back to the letter, and redo forth again.
    void expectUndone(const std::function<void()>& command) {
        const Look before = look();
        const int steps = history().steps();
        command();
        const Look after = look();
        ASSERT_EQ(history().steps(), steps + 1);
        ASSERT_FALSE(after == before);
        for (int round = 0; round < 2; ++round) {
            undo();
            EXPECT_EQ(look(), before);
            redo();
            EXPECT_EQ(look(), after);
        }
    }
    void open(const QString& target) {
        chosen = target;
        file->mnuFILEOPEN_Click();
    }
    void edit(int slide, const QString& text) {
        lvwSLIDEBAR->setSelectedItem(slide);
        lvwSLIDEBAR->model()->setData(lvwSLIDEBAR->model()->index(slide - 1, 0), text,
                                      Qt::EditRole);
    }
};

}  // namespace velorama::test
