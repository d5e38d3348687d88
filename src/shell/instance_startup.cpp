#include "shell/instance_startup.h"

#include "shell/assoc_com.h"
#include "shell/assoc_reg.h"
#include "shell/command_line.h"
#include "shell/window_number.h"

namespace velorama {
namespace {

const QString handleName = QStringLiteral("hwnd");

/// The first word if it is a file; otherwise the whole line, whose blanks may be a path's own.
QString fileOf(const QString& commandLine) {
    QStringList words;
    StringSplit(commandLine, words, QStringLiteral(" "));
    return FileExistsQuick(words.front()) ? words.front() : commandLine;
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
    const QString file = fileOf(commandLine);
    if (FileExistsQuick(file)) {
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
