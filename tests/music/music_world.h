#pragma once

#include "core/globals.h"
#include "core/lib_txt.h"
#include "music/audio_engine.h"
#include "platform/session/shell.h"
#include "platform/store/memory_registry_store.h"
#include "support/test_world.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace velorama::test {

class NoShell : public Shell {
public:
    bool open(const QString&) override { return false; }
    QString specialFolder(int) const override { return {}; }
};

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
        lstMUSIC.setObjectName(QStringLiteral("lstMUSIC"));
        MusicControls controls = {&lstMUSIC, &tmrMUSIC, &prgPLAY, &lblM1, &lblM2, &lblFile};
        for (size_t i = 0; i < cbtnAUDIO.size(); ++i) {
            controls.cbtnAUDIO.at(i) = &cbtnAUDIO.at(i);
        }
        controls.Command1 = &Command1;
        controls.Command2 = &Command2;
        engine = std::make_unique<AudioEngine>(controls, device,
                                               [this](const MusicFileRequest& request) {
                                                   requests.push_back(request);
                                                   return chosen;
                                               });
    }
    ~MusicWorld() override { releaseServices(); }

    void fill(const QStringList& rows, int selected) {
        for (const QString& row : rows) {
            lstMUSIC.AddItem(row);
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
    void press(size_t index) { cbtnAUDIO.at(index).click(); }
    bool enabled(size_t index) const { return cbtnAUDIO.at(index).isEnabled(); }
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
    NoShell shell;
    FakeDevice device;
    ListBox lstMUSIC;
    QTimer tmrMUSIC;
    ProgressBar prgPLAY;
    Label lblM1;
    Label lblM2;
    Label lblFile;
    std::array<QPushButton, 6> cbtnAUDIO;
    QPushButton Command1;
    QPushButton Command2;
    std::vector<MusicFileRequest> requests;
    QStringList chosen;
    std::unique_ptr<AudioEngine> engine;
};

}  // namespace velorama::test
