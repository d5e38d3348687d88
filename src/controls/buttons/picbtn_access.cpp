#include "controls/buttons/picbtn_access.h"

#include "controls/buttons/picbtn.h"

#include <QAccessibleWidget>

namespace velorama {

class PictureButtonAccess : public QAccessibleWidget {
public:
    explicit PictureButtonAccess(picbtn& button)
        : QAccessibleWidget(&button, QAccessible::Button), button_(button) {}

    QStringList actionNames() const override {
        return button_.isEnabled() ? QStringList(pressAction()) + QAccessibleWidget::actionNames()
                                   : QStringList();
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (button_.isEnabled()) {
            button_.click();
        }
    }

private:
    picbtn& button_;
};

namespace {

QAccessibleInterface* makeAccess(const QString&, QObject* object) {
    auto* button = qobject_cast<picbtn*>(object);
    return button != nullptr ? new PictureButtonAccess(*button) : nullptr;
}

}  // namespace

void installPictureButtonAccess() {
    static const bool once = (QAccessible::installFactory(makeAccess), true);
    Q_UNUSED(once)
}

}  // namespace velorama
