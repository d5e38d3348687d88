#include "controls/buttons/tab_strip_access.h"

#include "controls/buttons/tab_strip.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <map>

namespace velorama {
namespace {

/// One tab; it lives as long as the strip's own interface.
class TabAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TabAccess(tab& strip, int number) : strip_(strip), number_(number) {}

    bool isValid() const override { return number_ <= strip_.Tabcount(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&strip_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text what) const override {
        return isValid() && what == QAccessible::Name ? strip_.Caption(number_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect area = strip_.bounds(number_).toAlignedRect();
        return {strip_.mapToGlobal(area.topLeft()), area.size()};
    }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.invalid = !isValid();
        state.selected = isValid() && strip_.isActive(number_);
        state.focused = state.selected && strip_.hasFocus();
        state.disabled = isValid() && !strip_.isEnabled();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (isValid() && name == pressAction()) {
            strip_.press(number_);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    tab& strip_;
    int number_;
};

class TabStripAccess : public QAccessibleWidget {
public:
    explicit TabStripAccess(tab& strip)
        : QAccessibleWidget(&strip, QAccessible::PageTabList), strip_(strip) {}
    ~TabStripAccess() override {
        for (const auto& [number, id] : children_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return strip_.Tabcount(); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        const auto known = children_.find(index);
        if (known != children_.end()) {
            return QAccessible::accessibleInterface(known->second);
        }
        auto* made = new TabAccess(strip_, index + 1);
        children_[index] = QAccessible::registerAccessibleInterface(made);
        return made;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [index, id] : children_) {
            if (QAccessible::accessibleInterface(id) == wanted) {
                return index;
            }
        }
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(strip_.tabAt(strip_.mapFromGlobal(QPoint(x, y))) - 1);
    }

private:
    tab& strip_;
    mutable std::map<int, QAccessible::Id> children_;
};

QAccessibleInterface* makeAccess(const QString&, QObject* object) {
    auto* strip = qobject_cast<tab*>(object);
    return strip != nullptr ? new TabStripAccess(*strip) : nullptr;
}

}  // namespace

void installTabStripAccess() {
    static const bool once = (QAccessible::installFactory(makeAccess), true);
    Q_UNUSED(once)
}

}  // namespace velorama
