#pragma once

#include "core/globals.h"
#include "core/lib_txt.h"
#include "music/audio_engine.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace velorama::test {

/// Writes down the commands and answers what it is told to.
class FakeDevice : public MediaCommands {
public:
    bool send(const QString& command, QString* answer) override {
        commands.append(command);
        if (answer) {
            *answer = command.endsWith(QStringLiteral("length")) ? length : position;
        }
        return succeeds;
    }

    QStringList taken() { return std::exchange(commands, {}); }

    QStringList commands;
    QString length = QStringLiteral("0");
    QString position = QStringLiteral("0");
    bool succeeds = true;
};

inline QString openCommand(const QString& path) {
    return u"open \"" + path + u"\" type MPEGVideo alias CURRFILE";
}
inline const QString playCommand = QStringLiteral("play CURRFILE ");
inline const QString closeCommand = QStringLiteral("close CURRFILE");
inline const QString pauseCommand = QStringLiteral("pause CURRFILE");
inline const QString resumeCommand = QStringLiteral("Resume CURRFILE");
inline const QString setCommand = QStringLiteral("set CURRFILE time format s");
inline const QString lengthCommand = QStringLiteral("status CURRFILE length");
inline const QString positionCommand = QStringLiteral("status CURRFILE position");
inline const QStringList pollCommands = {setCommand, lengthCommand, positionCommand};

/// The engine with all its controls and the services, no window and no sound.
class MusicWorld : public testing::Test {
protected:
    MusicWorld() {
        fillTextConstants(2026, QStringLiteral("http://velorama.invalid/"));
        makeServices(store, shell);
        CommonDialog::answerWith([this](const FileDialogRequest& request) {
            requests.push_back(request);
            return FileDialogAnswer{chosen, 1};
        });
    }
    ~MusicWorld() override {
        CommonDialog::answerWith({});
        releaseServices();
    }

    void fill(const QStringList& rows, int selected) {
        for (const QString& row : rows) {
            lstMUSIC.addItem(row);
        }
        ASSERT_TRUE(lstMUSIC.setListIndex(selected));
    }
    QStringList rows() const {
        QStringList texts;
        for (int i = 0; i < lstMUSIC.ListCount(); ++i) {
            texts.append(lstMUSIC.List(i));
        }
        return texts;
    }
    void press(size_t index) { cbtnAUDIO.at(index)->click(); }
    bool enabled(size_t index) const { return cbtnAUDIO.at(index)->isEnabled(); }
    void poll(const QString& length, const QString& position) {
        device.length = length;
        device.position = position;
        engine->tmrMUSIC_Timer();
    }
    void expectStopped() const {
        EXPECT_FALSE(tmrMUSIC.isActive());
        EXPECT_TRUE(prgPLAY.isHidden());
        EXPECT_TRUE(lstMUSIC.Enabled());
        EXPECT_FALSE(enabled(3));
        EXPECT_FALSE(enabled(4));
    }
    void expectPlaying() const {
        EXPECT_TRUE(tmrMUSIC.isActive());
        EXPECT_FALSE(prgPLAY.isHidden());
        EXPECT_TRUE(lstMUSIC.Enabled());
        EXPECT_TRUE(enabled(2));
        EXPECT_TRUE(enabled(3));
        EXPECT_TRUE(enabled(4));
    }

    MemoryRegistryStore store;
    RecordingShell shell;
    FakeDevice device;
    QWidget page;
    const MusicControls controls{page};
    ListBox& lstMUSIC = *controls.lstMUSIC;
    QTimer& tmrMUSIC = *controls.tmrMUSIC;
    ProgressBar& prgPLAY = *controls.prgPLAY;
    const std::array<cbtn*, 6>& cbtnAUDIO = controls.cbtnAUDIO;
    CommonDialog cdlDIALOG{&page};
    std::vector<FileDialogRequest> requests;
    QStringList chosen;
    std::unique_ptr<AudioEngine> engine =
        std::make_unique<AudioEngine>(controls, device, cdlDIALOG);
};

}  // namespace velorama::test
