#pragma once

#include "support/noting_store.h"

#include <QEvent>
#include <QWidget>

namespace velorama::test {

/// Notes a control that comes into sight or goes out of it by the program's own word.
class SightNotes : public QObject {
public:
    SightNotes(QWidget& control, const char* name, const NotingStore& noting)
        : name_(QLatin1String(name)), noting_(noting) {
        control.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::HideToParent) {
            noting_.note(QStringLiteral("hide ") + name_);
        } else if (event->type() == QEvent::ShowToParent) {
            noting_.note(QStringLiteral("show ") + name_);
        }
        return false;
    }

private:
    QString name_;
    const NotingStore& noting_;
};

}  // namespace velorama::test
