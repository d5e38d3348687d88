#pragma once

#include "core/cls_filefoldr.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace velorama::test {

/// The slide list as simply as it can be written: every insertion saves and rebuilds the whole
/// list. The real one must end in the same state.
class PlainSlideList {
public:
    struct Slide {
        QString key;
        QString text;
        int icon = 0;
        bool selected = false;
    };

    // The folder shown, and the rows selected in it (from 1).
    QString folder;
    QStringList files;
    std::vector<int> rows;

    std::vector<Slide> slides;
    int current = 0;
    QStringList images;
    QHash<QString, QString> store;
    bool isAdding = false;
    bool isAddingAll = false;
    bool addsAgain = false;
    bool addsAllAgain = false;
    /// How often all slides were taken away.
    int emptied = 0;
    /// Runs where events would be let run.
    std::function<void()> onYield;
    /// Runs after an image was added.
    std::function<void()> onImage;

    /// Neither is begun inside itself: it follows. Both end where all slides are taken away.
    void Add() {
        takeTurn(isAdding, addsAgain, [this] {
            const std::vector<int> chosen = rows;
            const int begun = emptied;
            for (const int row : chosen) {
                insert(row - 1, begun);
            }
        });
    }
    void AddAll() {
        takeTurn(isAddingAll, addsAllAgain, [this] {
            const int begun = emptied;
            for (int i = static_cast<int>(files.size()); i >= 0; --i) {
                insert(i, begun);
            }
        });
    }
    static void takeTurn(bool& isRunning, bool& again, const std::function<void()>& command) {
        again = isRunning;
        if (std::exchange(isRunning, true)) {
            return;
        }
        do {
            again = false;
            command();
        } while (again);
        isRunning = false;
    }
    void Clear() {
        store[QStringLiteral("Items")] = QString::number(slides.size());
        bool removed = false;
        for (int i = count(); i >= 1; --i) {
            if (at(i).selected) {
                remove(i);
                removed = true;
            }
        }
        if (!removed) {
            remove(count());
        }
        if (current > 0) {
            at(current).selected = true;
        }
    }
    void ClearAll() {
        ++emptied;
        const int stored = load(QStringLiteral("Items"), QStringLiteral("0")).toInt();
        slides.clear();
        current = 0;
        for (int i = 1; i <= stored; ++i) {
            store[QString::number(i)] = QString();
        }
        if (stored >= 1) {
            store[QStringLiteral("Items")] = QStringLiteral("0");
        }
    }
    void move(int step) {
        const int other = current + step;
        if (current == 0 || other < 1 || other > count()) {
            return;
        }
        Slide& s = at(current);
        Slide& t = at(other);
        std::swap(s.key, t.key);
        for (Slide* each : {&s, &t}) {
            each->text = textOf(each->key);
            each->icon = iconOf(each->key);
        }
        s.selected = false;
        t.selected = true;
        current = other;
        save();
    }
    void edit(const QString& text) {
        if (current > 0) {
            at(current).text = QString(text).remove(QLatin1Char(','));
        }
    }
    void setCurrent(int index) { current = index; }
    void insert(int index) { insert(index, emptied); }
    void insert(int index, int begun) {
        const QString entry = files.value(index);
        const QString ending = entry.mid(entry.indexOf(QLatin1Char('.')) + 1).toUpper();
        if (ending != QLatin1String("BMP") && ending != QLatin1String("JPG") &&
            ending != QLatin1String("GIF")) {
            return;
        }
        const QString path = folder + QLatin1Char('/') + entry;
        addImage(path, begun);
        if (emptied != begun) {
            return;
        }
        if (slides.empty()) {
            addSlide(1, path);
        } else {
            addSlide(current, path);
            store[QStringLiteral("Items")] = QString::number(count());
            store[QString::number(count())] = path;
        }
        save();
        reload();
    }
    void save() {
        store[QStringLiteral("Items")] = QString::number(count());
        for (int i = 1; i <= count(); ++i) {
            store[QString::number(i)] = at(i).key;
        }
    }

private:
    int count() const { return static_cast<int>(slides.size()); }
    Slide& at(int index) { return slides.at(static_cast<std::size_t>(index) - 1); }

    void reload() {
        const int stored = load(QStringLiteral("Items"), QStringLiteral("0")).toInt();
        const std::vector<Slide> before = slides;
        slides.clear();
        current = 0;
        for (int i = 1; i <= stored; ++i) {
            const QString path = load(QString::number(i), QStringLiteral("1"));
            const auto place = static_cast<std::size_t>(i) - 1;
            const bool kept = place < before.size() && before[place].key.size() > 254;
            addSlide(i, kept ? before[place].key : path);
        }
        if (!slides.empty()) {
            slides.front().selected = true;
        }
    }
    void addSlide(int index, const QString& key) {
        for (const Slide& each : slides) {
            if (each.key == key && !key.isEmpty()) {
                return;
            }
        }
        if (index < 1 || index > count() + 1) {
            return;
        }
        slides.insert(slides.begin() + index - 1, {key, textOf(key), iconOf(key)});
        current = current == 0 ? 1 : current + (index <= current ? 1 : 0);
    }
    void remove(int index) {
        if (index < 1 || index > count()) {
            return;
        }
        slides.erase(slides.begin() + index - 1);
        if (index < current) {
            --current;
        }
        current = std::min(current, count());
    }
    void addImage(const QString& path, int begun) {
        if (emptied != begun || images.contains(path)) {
            return;
        }
        if (onYield) {
            onYield();
        }
        if (emptied == begun && !images.contains(path)) {
            images.append(path);
            if (onImage) {
                onImage();
            }
        }
    }
    QString load(const QString& name, const QString& fallback) const {
        const auto value = store.constFind(name);
        if (value == store.constEnd() || value->size() > 254) {
            return fallback;
        }
        return value->isEmpty() ? QString(255, u' ') : *value;
    }
    QString textOf(const QString& key) const { return clsFILEFOLDR().FileNameFromPath(key, false); }
    int iconOf(const QString& path) const {
        for (qsizetype i = 0; i < images.size(); ++i) {
            if (path.contains(images[i])) {
                return static_cast<int>(i) + 1;
            }
        }
        return 0;
    }
};

}  // namespace velorama::test
