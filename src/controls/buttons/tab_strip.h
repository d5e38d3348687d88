#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QWidget>

#include <vector>

namespace velorama {

/// A row of page tabs above a frame that reaches to the widget's edges. Tabs are numbered from 1;
/// the active one stands 30 twips higher than the others. All sizes are in twips.
class tab : public QWidget {
    Q_OBJECT
public:
    /// The parts of a tab; the caption's size is that of its text.
    struct Parts {
        QRectF left;
        QRectF middle;
        QRectF right;
        QRectF caption;
    };

    explicit tab(QWidget* parent = nullptr);

    /// Number of the active tab; 0 until one has been chosen. Reading it also keeps it as the
    /// number that the next TabsSetup activates.
    short ActiveTab();
    /// Any 16-bit number is taken; where there is no such tab, none looks active. Raises no event.
    void setActiveTab(int number);
    /// The captions, separated by commas.
    QString ActiveTabs() const { return tabString_; }
    void setActiveTabs(const QString& tabs);
    /// Adds a tab at the end; without a caption it is called "Tab " and its number.
    void AddTab(const QString& caption);
    /// The tabs behind it move up. Nothing happens where there is no such tab.
    void RemoveTab(int number);
    void TabClear();
    int Tabcount() const { return static_cast<int>(tabs_.size()); }
    /// Makes the tabs anew from the tab string.
    void TabsSetup();
    void Redraw();
    void SetFont(const QFont& font);

    /// Caption of a tab, empty where there is none.
    QString Caption(int number) const;
    bool isActive(int number) const { return number == active_; }
    Parts parts(int number) const;
    /// The tab at a point in pixels, 0 for none.
    int tabAt(QPointF position) const;
    /// The tab as a whole, in pixels.
    QRectF bounds(int number) const;
    /// What a press of the left button on a tab does: activates it and raises Click, also where it
    /// is the active one already.
    void press(int number);

    /// Piece `n`, from 1, of a delimited text; empty outside.
    static QString StringPiece(const QString& text, const QString& delimiter, int n);
    /// Number of pieces between commas; line ends and hyphens count as commas. 0 for an empty text.
    static int StringWordCount(const QString& text);
    /// `colour` (0x00BBGGRR) with `delta` added to each of its bytes, each kept within 0 to 255.
    static int funcCOLORVALEDIT(int colour, int delta);

    QSize sizeHint() const override;

signals:
    void Click(const QString& caption);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void walkTo(int number);
    struct Tab {
        QString caption;
        Parts parts;
    };

    bool holds(int number) const { return number >= 1 && number <= Tabcount(); }
    float layOut(Tab& each, float left, float top) const;
    QFont captionFont() const;
    void setHovered(int number);
    void paintTab(QPainter& painter, int number) const;
    void paintCaption(QPainter& painter, int number) const;
    QColor lineColour() const;

    QString tabString_ = QStringLiteral("General");
    std::vector<Tab> tabs_;
    int active_ = 0;
    int saved_ = 0;
    int hovered_ = 0;
};

}  // namespace velorama
