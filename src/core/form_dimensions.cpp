#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "core/cls_registry.h"
#include "core/lib_txt.h"
#include "platform/numbers.h"

#include <QGuiApplication>

#include <algorithm>

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

/// A stretch of the desktop along one axis, in twips.
struct Span {
    float from;
    float length;
    float end() const { return from + length; }
};

Span across(const QRect& area) {
    return {toTwips(area.x()), toTwips(area.width())};
}

Span down(const QRect& area) {
    return {toTwips(area.y()), toTwips(area.height())};
}

/// Where a form of this length begins in the middle of the screen: in whole twips, halves to even.
float centred(const Span& screen, float form) {
    const double free = static_cast<double>(screen.length) - static_cast<double>(form);
    return screen.from + static_cast<float>(roundHalfEven(free / 2));
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

    /// A form whose stored place lies outside the desktop, which is all screens together, comes to
    /// the middle of the nearest screen. `stopAtEdge`: one larger than that screen begins at its
    /// edge then and not left of or above it, where nobody could take hold of it.
    void restorePosition(bool stopAtEdge) {
        if (const auto left = number(leftName, Left(form_))) {
            setLeft(form_, *left);
        }
        if (const auto top = number(topName, Top(form_))) {
            setTop(form_, *top);
        }
        const QRect desktop = desktopPlace(form_);
        const Span wide = across(desktop);
        const Span high = down(desktop);
        const QRect screen = nearestScreen(form_);
        if (Left(form_) < wide.from || Left(form_) + Width(form_) > wide.end()) {
            centreAcross(screen, stopAtEdge);
        }
        if (Top(form_) < high.from || Top(form_) + Height(form_) > high.end()) {
            centreDown(screen, stopAtEdge);
        }
        if (!isReachable(form_)) {
            // Screens of unlike size leave corners of the desktop that nobody sees.
            centreAcross(screen, stopAtEdge);
            centreDown(screen, stopAtEdge);
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

    void centreAcross(const QRect& screen, bool stopAtEdge) {
        const Span span = across(screen);
        const float middle = centred(span, Width(form_));
        setLeft(form_, stopAtEdge ? std::max(middle, span.from) : middle);
    }

    void centreDown(const QRect& screen, bool stopAtEdge) {
        const Span span = down(screen);
        const float middle = centred(span, Height(form_));
        setTop(form_, stopAtEdge ? std::max(middle, span.from) : middle);
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
        // Maximised, a form keeps the place that it goes back to.
        const QPoint place = normalPlace(form);
        save(leftName, singleText(place.x() == form.x() ? Left(form) : toTwips(place.x())));
        save(topName, singleText(place.y() == form.y() ? Top(form) : toTwips(place.y())));
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
