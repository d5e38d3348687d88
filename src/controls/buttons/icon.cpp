#include "controls/buttons/icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <memory>

namespace velorama {
namespace {

QByteArray symbolText(const QString& name) {
    static QHash<QString, QByteArray> texts;
    const auto known = texts.constFind(name);
    if (known != texts.constEnd()) {
        return *known;
    }
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    texts.insert(name, text);
    return text;
}

// Parsing costs more than painting, and a palette has few colours: a renderer a symbol and colour.
std::shared_ptr<QSvgRenderer> renderer(const QString& name, const QColor& colour) {
    static QHash<std::pair<QString, QRgb>, std::shared_ptr<QSvgRenderer>> known;
    constexpr qsizetype most = 200;
    std::shared_ptr<QSvgRenderer> found = known.value({name, colour.rgb()});
    if (!found) {
        QByteArray text = symbolText(name);
        text.replace("currentColor", colour.name().toLatin1());
        found = std::make_shared<QSvgRenderer>();
        if (!text.isEmpty()) {
            found->load(text);
        }
        found->setAspectRatioMode(Qt::KeepAspectRatio);
        if (known.size() >= most) {
            known.clear();
        }
        known.insert({name, colour.rgb()}, found);
    }
    return found;
}

QColor colourOf(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
        case QIcon::Disabled:
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        case QIcon::Selected:
            return palette.color(QPalette::Active, QPalette::HighlightedText);
        default:
            return palette.color(QPalette::Active, QPalette::ButtonText);
    }
}

class SymbolEngine : public QIconEngine {
public:
    explicit SymbolEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        paintSymbol(*painter, rect, name_, colourOf(mode));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }
    QIconEngine* clone() const override { return new SymbolEngine(name_); }
    QString key() const override { return QStringLiteral("velorama-symbol"); }
    QString iconName() override { return name_; }
    bool isNull() override { return symbolText(name_).isEmpty(); }

private:
    QString name_;
};

}  // namespace

QIcon symbolIcon(const QString& name) {
    return symbolText(name).isEmpty() ? QIcon() : QIcon(new SymbolEngine(name));
}

void paintSymbol(QPainter& painter, const QRectF& bounds, const QString& name,
                 const QColor& colour) {
    const std::shared_ptr<QSvgRenderer> symbol = renderer(name, colour);
    if (!symbol->isValid()) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * static_cast<qreal>(colour.alphaF()));
    symbol->render(&painter, bounds);
    painter.restore();
}

}  // namespace velorama
