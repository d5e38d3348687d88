#include "shell/instance_startup.h"

#include "platform/process/await_work.h"
#include "shell/assoc_com.h"
#include "shell/assoc_reg.h"
#include "shell/command_line.h"
#include "shell/window_number.h"

#include <QTimer>

#include <chrono>

namespace velorama {
namespace {

const QString handleName = QStringLiteral("hwnd");

/// The file is handed over for nothing but the order of things: no window waits for longer than
/// this until its disk has answered.
constexpr std::chrono::seconds longestLook{2};

/// The first word if it is a file, or the whole line, whose blanks may be a path's own; empty if
/// neither is one.
QString fileOf(const QString& commandLine) {
    QStringList words;
    StringSplit(commandLine, words, QStringLiteral(" "));
    for (const QString& file : {words.front(), commandLine}) {
        if (FileExistsQuick(file)) {
            return file;
        }
    }
    return {};
}

/// The same, and empty for one on a disk that hangs.
QString fileInTime(const QString& commandLine) {
    if (commandLine.isEmpty()) {
        return {};
    }
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(longestLook);
    return awaitWork([commandLine] { return fileOf(commandLine); },
                     [&limit] { return !limit.isActive(); }, Events::Painting)
        .value_or(QString());
}

}  // namespace

InstanceStart::InstanceStart(RegistryStore& store, InstanceBus* bus, const AppPlace& app)
    : store_(store), bus_(bus), key_(detailsKey(app)) {}

void InstanceStart::InstanceStartup(QWidget& mainWindow, const QString& commandLine) {
    caption_ = mainWindow.windowTitle();
    if (bus_ != nullptr) {
        cComm_ = std::make_unique<Comm>(*bus_);
        QObject::connect(cComm_.get(), &Comm::MessageReceived, cComm_.get(),
                         [this](const QString& message) { cComm_MessageReceived(message); });
        whenNumbered(mainWindow, [this, &mainWindow] { cComm_->CommBind(mainWindow); });
    }
    if (const QString file = fileInTime(commandLine); !file.isEmpty()) {
        handOver(file);
    }
    whenNumbered(mainWindow, [this, &mainWindow] {
        RegDwordSet(store_, root_, key_, handleName, windowNumber(mainWindow));
    });
}

void InstanceStart::handOver(const QString& file) {
    const bool PrevInstance = bus_ != nullptr && bus_->othersRun();
    if (!PrevInstance) {
        StartFileOpen(file);
        return;
    }
    const quint32 target = InstanceFind();
    // The first word of a line may still be named from the working folder, and the other's is not
    // this one.
    cComm_->CommSend(absoluteFile(file), target);
}

quint32 InstanceStart::InstanceFind() const {
    if (const quint32 found = cComm_->CommFindWindow(caption_ + QStringLiteral(" *"))) {
        return found;
    }
    if (const quint32 found = cComm_->CommFindWindow(caption_)) {
        return found;
    }
    return RegDwordGet(store_, root_, key_, handleName);
}

// The album of the start is opened by the main window itself, from the command line.
void InstanceStart::StartFileOpen(const QString& /*path*/) {}

// What another instance hands over changes nothing here.
void InstanceStart::cComm_MessageReceived(const QString& /*message*/) {}

}  // namespace velorama
