#pragma once

#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"
#include "support/test_world.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace velorama::test {

class SilentDevice : public MediaCommands {
public:
    bool send(const QString& command, QString* answer) override {
        commands.append(command);
        return MediaCommands::send(command, answer);
    }
    void whenPulled(std::function<void()> told) override { pulled = std::move(told); }
    QStringList commands;
    std::function<void()> pulled;
};

/// No server answers.
class NoFetch : public HttpFetch {
public:
    QString OpenURL(const QString&) override { return {}; }
    void Cancel() override {}
};

/// Presses one button, by its name, in every modal form that comes up while it lives.
class Presser {
public:
    explicit Presser(const QString& button) : button_(button) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { press(); });
        timer_.start(0);
    }
    /// Object names of the forms that came up.
    QStringList forms;
    /// Called with each form before its button is pressed.
    std::function<void(QWidget& form)> look;

private:
    void press() {
        QWidget* form = QApplication::activeModalWidget();
        if (form == nullptr) {
            return;
        }
        forms.append(form->objectName());
        if (look) {
            look(*form);
        }
        for (QAbstractButton* button : form->findChildren<QAbstractButton*>(button_)) {
            if (button->isVisible()) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << form->objectName().toStdString() << " has no such button";
        form->close();
    }

    QString button_;
    QTimer timer_;
};

/// What a main window works on: services over an empty store, and folders and albums on disk.
class WithWindow : public testing::Test {
protected:
    WithWindow() {
        SaveCancelled = false;
        fillTextConstants(2026, QStringLiteral("http://localhost/"));
        makeServices(store, shell);
        // Who has chosen no folder sees the samples; most tests want a quiet start.
        setToolSetting("Files Location", temporaryFolder());
        CommonDialog::answerWith([this](const FileDialogRequest& request) {
            asked.push_back(request);
            return FileDialogAnswer{chosen.isEmpty() ? QStringList() : QStringList(chosen), 1};
        });
    }
    ~WithWindow() override {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        CommonDialog::answerWith({});
        releaseServices();
    }

    /// A window that has loaded; the one before goes.
    mfrmPRGMAIN& start(const QString& commandLine = {}) {
        window.reset();
        window = std::make_unique<mfrmPRGMAIN>(services());
        window->Form_Load(commandLine);
        return *window;
    }
    MainServices services() { return {screenSaver, device, desktop, netCHECKUPDATE}; }
    Pages& pages() { return window->pages(); }
    SlideBar& slideBar() { return window->slideBar(); }
    QWidget& surface() { return *window->centralWidget(); }
    const FoundControls& foundControls() { return pages().pictures->found; }
    const SlideControls& slideControls() { return slideBar().slides; }
    const AlbumControls& albumControls() { return pages().slideshows->albums; }
    const MusicControls& music() { return pages().music->controls; }
    Commands& commands() { return window->commands(); }
    QMenu* menu(const char* name) { return window->findChild<QMenu*>(QLatin1String(name)); }
    /// An entry of a popup menu.
    QAction* entry(const char* name) { return window->findChild<QAction*>(QLatin1String(name)); }

    static QString savePicture(const QString& folder, const QString& name) {
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        const QString path = folder + QLatin1Char('/') + name;
        EXPECT_TRUE(picture.save(path)) << path.toStdString();
        return path;
    }
    static QString folderWith(const QStringList& names) {
        const QString folder = temporaryFolder();
        for (const QString& name : names) {
            savePicture(folder, name);
        }
        return folder;
    }
    /// The folder that the tree shows at the next start.
    static QString browse(const QStringList& names) {
        const QString folder = folderWith(names);
        setToolSetting("Files Location", folder);
        return folder;
    }
    /// An album of `count` pictures a.bmp, b.bmp ... in a folder of its own; its path.
    static QString album(int count, const QString& name = QStringLiteral("one.vlr")) {
        const QString folder = temporaryFolder();
        QByteArray text = QByteArray::number(count) + "\r\n";
        for (int i = 0; i < count; ++i) {
            text += savePicture(folder, QString(QChar(u'a' + i)) + QStringLiteral(".bmp")).toUtf8();
            text += "\r\n";
        }
        QFile file(folder + QLatin1Char('/') + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text + "\r\n");
        return file.fileName();
    }
    static QByteArray contentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList slides() { return keysOf(*slideControls().lvwSLIDEBAR); }
    QStringList albums() { return keysOf(*albumControls().lvwALBUMS); }
    template <typename List>
    static QStringList keysOf(const List& list) {
        QStringList keys;
        for (int i = 1; i <= list.Count(); ++i) {
            keys.append(list.item(i)->Key());
        }
        return keys;
    }
    QString selectedAlbum() {
        const ReportItem* item = albumControls().lvwALBUMS->SelectedItem();
        return item != nullptr ? item->Key() : QString();
    }

    /// As it lies in the store; "absent" where there is no value.
    QString stored(const char* segment, const char* name) const {
        const auto value =
            store.value(Hive::CurrentUser, keyPath(QLatin1String(segment)), QLatin1String(name));
        return value ? QString::fromUtf8(value->data) : QStringLiteral("absent");
    }
    static void setStored(const char* segment, const char* name, const QString& value) {
        saveSetting(QLatin1String(segment), QLatin1String(name), value);
    }
    QString toolSetting(const char* name) const { return stored("frmTOOLSSETTINGS\\Items", name); }
    static void setToolSetting(const char* name, const QString& value) {
        setStored("frmTOOLSSETTINGS\\Items", name, value);
    }

    MemoryRegistryStore store;
    RecordingShell shell;
    ScreenSaver screenSaver;
    SilentDevice device;
    DesktopBackground desktop;
    NoFetch netCHECKUPDATE;
    /// What file dialogs answer; empty cancels.
    QString chosen;
    std::vector<FileDialogRequest> asked;
    std::unique_ptr<mfrmPRGMAIN> window;
};

/// A window whose menus come up. They raise themselves and take the keyboard, which the display of
/// the tests cannot do, and says so.
class WithMenus : public WithWindow {
protected:
    WithMenus() { before = qInstallMessageHandler(passOverTheDisplay); }
    ~WithMenus() override {
        window.reset();
        qInstallMessageHandler(before);
    }

private:
    static void passOverTheDisplay(QtMsgType type, const QMessageLogContext& where,
                                   const QString& text) {
        if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
            before(type, where, text);
        }
    }
    inline static QtMessageHandler before = nullptr;
};

}  // namespace velorama::test
