#pragma once

#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"
#include "ui/pages/web_album_page.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velorama::test {

/// The fonts offered; the two lists differ in one entry.
inline QStringList fontsWith(const char* geneva) {
    return {QStringLiteral("Arial, Helvetica, Sans-Serif"),
            QStringLiteral("Verdana, Arial, Helvetica, Sans-Serif"),
            QStringLiteral("Courier New, Courier, Monospace"),
            QStringLiteral("Tahoma, Sans-Serif"),
            QStringLiteral("\"Times New Roman\", Times, Serif"),
            QLatin1String(geneva),
            QStringLiteral("Georgia, \"Times New Roman\", Times, Serif")};
}

/// Remembers the order of what is read and written.
class OrderedStore : public MemoryRegistryStore {
public:
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override {
        read.append(name);
        return MemoryRegistryStore::value(hive, key, name);
    }
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override {
        written.append(name);
        return MemoryRegistryStore::setValue(hive, key, name, value);
    }
    mutable QStringList read;
    QStringList written;
};

class WithWebAlbumPage : public testing::Test {
protected:
    WithWebAlbumPage() {
        fillTextConstants(2026, QStringLiteral("http://localhost/"));
        makeServices(store, shell);
        store.read.clear();
        frame.resize(736, 300);
        page = std::make_unique<WebAlbumPage>(frame, commands, cdlDIALOG);
        page->setGeometry(frame.rect());
        page->layOut();
        page->show();
        frame.show();
    }
    ~WithWebAlbumPage() override {
        CommonDialog::answerColourWith({});
        page.reset();
        releaseServices();
    }

    static void setStored(const char* name, const QString& value) {
        saveSetting(QStringLiteral("\\mfrmPRGMAIN\\webalbum"), QLatin1String(name), value);
    }
    QString stored(const char* name) const {
        const auto value =
            store.value(Hive::CurrentUser, keyPath(QStringLiteral("mfrmPRGMAIN\\webalbum")),
                        QLatin1String(name));
        return value ? QString::fromUtf8(value->data) : QStringLiteral("absent");
    }
    /// The eleven values as the page has them, in the order of the text of a save.
    QStringList values() const {
        const auto colour = [](const ColourField* field) {
            return QString::number(field->BackColor());
        };
        return {colour(page->picBACKGROUND),
                colour(page->picTEXTCOLOR),
                page->cboFONTS->currentText(),
                page->cboFONTSIZE->currentText(),
                colour(page->picBARCOL),
                colour(page->picTITLEBARCOL),
                colour(page->picTITLEBARTEXTCOL),
                page->cboFONTSBAR->currentText(),
                page->cboFONTSSIZEBAR->currentText(),
                page->udnPHOTO->Text(),
                page->udnTHUMBNAIL->Text()};
    }
    std::vector<ColourField*> fields() const {
        return {page->picBACKGROUND, page->picTEXTCOLOR, page->picBARCOL, page->picTITLEBARCOL,
                page->picTITLEBARTEXTCOL};
    }
    const WebAlbumSamples& samples() const { return page->samples(); }
    QString captionFont() const { return samples().lbltxtMAINCOL.at(0)->font().family(); }
    QString titleFont() const { return samples().lblTTLMAINCOL->font().family(); }
    /// As a click on an entry does it.
    static void choose(QComboBox& list, int entry) {
        list.setCurrentIndex(entry);
        emit list.activated(entry);
    }

    const QStringList names = {QStringLiteral("BackColor"),
                               QStringLiteral("TextColor"),
                               QStringLiteral("Fonts"),
                               QStringLiteral("FontsSize"),
                               QStringLiteral("BarColor"),
                               QStringLiteral("TitleBarColor"),
                               QStringLiteral("TitleBarTextColor"),
                               QStringLiteral("FontsBar"),
                               QStringLiteral("FontsSizeBar"),
                               QStringLiteral("PhotoSize"),
                               QStringLiteral("ThumbnailSize")};
    const QStringList defaults = {QStringLiteral("16708836"),
                                  QStringLiteral("4194304"),
                                  QStringLiteral("Arial, Helvetica, Sans-Serif"),
                                  QStringLiteral("3 (12 pt)"),
                                  QStringLiteral("16761024"),
                                  QStringLiteral("16744576"),
                                  QStringLiteral("16777215"),
                                  QStringLiteral("Georgia, \"Times New Roman\", Times, Serif"),
                                  QStringLiteral("6 (24 pt)"),
                                  QStringLiteral("500"),
                                  QStringLiteral("95")};

    OrderedStore store;
    RecordingShell shell;
    Commands commands;
    CommonDialog cdlDIALOG;
    QWidget frame;
    std::unique_ptr<WebAlbumPage> page;
};

}  // namespace velorama::test
