#pragma once

#include <QBoxLayout>
#include <QScrollArea>

namespace velorama {

/// A part of a page that a layout fills and that scrolls where it has too little room. The page's
/// colour shows through. Its place is the page's to give. It follows the keyboard where a key has
/// moved that, and nothing else.
class ScrolledContent : public QScrollArea {
    Q_OBJECT
public:
    explicit ScrolledContent(QWidget* page);

    /// What the controls are made on, and what the layout is set on.
    QWidget& content() const { return *widget(); }
    /// Puts what the boxes hold side by side, or, from the first box on, one below the other until
    /// the width suffices.
    void arrange(std::initializer_list<QBoxLayout*> boxes);
    /// Sizes are asked for before events run, which would tell the layouts of a change inside them.
    void refresh();
    /// Puts what a box holds one below the other as long as nothing has to scroll down for that.
    void stackIfHigh(QBoxLayout& box);
    void toTop();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void arrangeIn(int width, std::initializer_list<QBoxLayout*> boxes);
};

}  // namespace velorama
