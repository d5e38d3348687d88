#include "controls/twips.h"
#include "core/cls_registry.h"
#include "core/lib_txt.h"
#include "platform/numbers.h"

#include <QGuiApplication>

namespace velorama {
namespace {

enum FormState : qint32 { Normal = 0, Minimised = 1, Maximised = 2 };

const QString stateName = QStringLiteral("Window State");
const QString leftName = QStringLiteral("Left");
const QString topName = QStringLiteral("Top");
const QString widthName = QStringLiteral("Width");
const QString heightName = QStringLiteral("Height");

QString windowKey(const QWidget& form) {
    return keyPath(form.objectName() + QStringLiteral("\\Window"));
}

FormState formState(const QWidget& form) {
    const Qt::WindowStates state = form.windowState();
    if (state.testFlag(Qt::WindowMinimized)) {
        return Minimised;
    }
    return state.testFlag(Qt::WindowMaximized) ? Maximised : Normal;
}

/// On Wayland the desktop alone places windows and tells nobody where: what stands here as a place
/// is made up, and would be stored over the one from X11.
bool knowsPlaces() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

void setMaximised(QWidget& form, bool maximised) {
    const Qt::WindowStates others =
        form.windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    form.setWindowState(maximised ? others | Qt::WindowMaximized : others);
}

/// Position that puts a length in the middle of the screen. Only the order of the arithmetic is
/// odd.
float centred(float screen, float form) {
    return static_cast<float>(roundHalfEven(
        (static_cast<double>(screen) + static_cast<double>(form)) / 2 - static_cast<double>(form)));
}

/// One form and the stored values under its name.
class StoredForm {
public:
    StoredForm(const clsREGISTRY& registry, QWidget& form)
        : registry_(registry), form_(form), key_(windowKey(form)) {}

    void restoreState() {
        const QString text = load(stateName, decimalText(formState(form_)));
        const qint32 state = wholeNumber(text).value_or(formState(form_));
        const bool known = state >= Normal && state <= Maximised;
        setMaximised(form_, (known ? state : formState(form_)) != Normal);
    }

    void restoreSize() {
        if (const auto height = number(heightName, Height(form_))) {
            setHeight(form_, *height);
        }
        if (const auto width = number(widthName, Width(form_))) {
            setWidth(form_, *width);
        }
    }

    /// `stopAtZero`: a form larger than the screen starts at 0 instead of left of or above it.
    void restorePosition(bool stopAtZero) {
        const float centreLeft = centred(screenWidth(form_), Width(form_));
        const float centreTop = centred(screenHeight(form_), Height(form_));
        if (const auto left = number(leftName, Left(form_))) {
            setLeft(form_, *left);
        }
        if (const auto top = number(topName, Top(form_))) {
            setTop(form_, *top);
        }
        keepRightOfEdge(centreLeft, stopAtZero);
        keepBelowEdge(centreTop, stopAtZero);
        if (Left(form_) + Width(form_) > screenWidth(form_)) {
            setLeft(form_, centreLeft);
        }
        if (Top(form_) + Height(form_) > screenHeight(form_)) {
            setTop(form_, centreTop);
        }
    }

private:
    QString load(const QString& name, const QString& current) const {
        return registry_.StringLoad(HKEY_CURRENT_USER, key_, name, current);
    }

    std::optional<float> number(const QString& name, float current) const {
        const std::optional<double> stored = decimalNumber(load(name, singleText(current)));
        return stored ? std::optional(static_cast<float>(*stored)) : std::nullopt;
    }

    void keepRightOfEdge(float centreLeft, bool stopAtZero) {
        if (Left(form_) < 0) {
            setLeft(form_, centreLeft);
        }
        if (stopAtZero && Left(form_) < 0) {
            setLeft(form_, 0);
        }
    }

    void keepBelowEdge(float centreTop, bool stopAtZero) {
        if (Top(form_) < 0) {
            setTop(form_, centreTop);
        }
        if (stopAtZero && Top(form_) < 0) {
            setTop(form_, 0);
        }
    }

    const clsREGISTRY& registry_;
    QWidget& form_;
    QString key_;
};

}  // namespace

void clsREGISTRY::FormDimensionsSave(const QWidget& form, bool Full) {
    const QString key = windowKey(form);
    const auto save = [this, &key](const QString& name, const QString& text) {
        StringSave(hiveCurrentUser, key, name, text);
    };
    const FormState state = formState(form);
    if (Full && state == Minimised) {
        return;
    }
    if (Full) {
        save(stateName, decimalText(state));
    }
    if (Full && state == Maximised) {
        return;
    }
    if (knowsPlaces()) {
        save(leftName, singleText(Left(form)));
        save(topName, singleText(Top(form)));
    }
    if (Full) {
        save(widthName, singleText(Width(form)));
        save(heightName, singleText(Height(form)));
    }
}

void clsREGISTRY::FormDimensionsSetup(QWidget& form, bool Full) const {
    StoredForm stored(*this, form);
    if (Full) {
        stored.restoreSize();
    }
    stored.restorePosition(Full);
    if (Full) {
        // Last, over the geometry that leaving the maximised state brings back.
        stored.restoreState();
    }
}

}  // namespace velorama
