#pragma once

#include "controls/browser/page_load.h"
#include "controls/browser/web_page.h"

#include <QPointer>
#include <QTextBrowser>

#include <vector>

namespace velorama {

/// A small browser for plain pages of the web: texts, tables, links, pictures, a history. It runs
/// no script, asks for no style sheet and opens no file of this machine, so that a page takes its
/// colours from the desktop. Pages load while the program goes on.
class webWINDOW : public QTextBrowser {
    Q_OBJECT
public:
    explicit webWINDOW(QWidget* parent = nullptr);
    ~webWINDOW() override;

    /// Opens a page. What is no address of the web is refused: nothing happens.
    void Navigate(const QString& URL);
    void GoBack() { moveTo(place_ - 1); }
    void GoForward() { moveTo(place_ + 1); }
    /// Fetches the page on show anew. While a page is loading it is fresh anyway, and nothing
    /// happens. A page that cannot be had any more stays as it is.
    void Refresh();
    /// Of the page of the history that is, or will be, on show; empty before the first.
    QString LocationURL() const;
    bool isLoading() const { return load_ != nullptr; }

    /// HTML for the page that says that another cannot be had, below the reason. None at first.
    void setSubstitute(const QString& html) { substitute_ = html; }
    void setLimits(const WebLimits& limits) { limits_ = limits; }

    enum Command : int { CommandForward = 1, CommandBack = 2 };

public slots:  // NOLINT(readability-redundant-access-specifiers): makes them slots
    void backward() override { GoBack(); }
    void forward() override { GoForward(); }
    void reload() override { Refresh(); }
    void home() override {}

signals:
    /// For each of the two commands whenever the history has changed.
    void CommandStateChange(int Command, bool Enable);
    /// A page and its pictures are on show, or the page that says why not. Refresh does not tell.
    void DocumentComplete(const QString& URL);
    /// A link that leads to another server, to the mail program or to something that is no page.
    void OutsideLink(const QUrl& address);

protected:
    void doSetSource(const QUrl& address, QTextDocument::ResourceType type) override;
    QVariant loadResource(int type, const QUrl& address) override;
    void changeEvent(QEvent* event) override;

private:
    enum class Task { New, Move, Refresh };

    struct Entry {
        QUrl address;
        int scroll = 0;
    };

    void start(const QUrl& address, Task task);
    void stop();
    void pageArrived(const HttpAnswer& answer, const QUrl& asked, Task task);
    void enter(const QUrl& address, Task task);
    void takePicture(const QUrl& address, const QImage& picture);
    void loadDone(Task task);

    void moveTo(int place);
    void follow(const QUrl& link);
    bool isOnShow(const QUrl& address) const;
    void keepScroll();
    void tellCommands();

    void render();
    void forgetOtherPictures();
    void scrollToWanted();

    WebLimits limits_;
    QString substitute_;
    QPointer<PageLoad> load_;

    std::vector<Entry> history_;
    int place_ = -1;

    // What is on show, from which it can be drawn again.
    QString text_;
    /// As it was last drawn: a page that comes anew unchanged keeps what is selected.
    QString rendered_;
    PageKind kind_ = PageKind::Html;
    QUrl shown_;
    bool shownFailed_ = true;
    QPointer<QTextDocument> page_;
    QHash<QUrl, QImage> pictures_;

    /// Where to scroll to: again and again while pictures arrive, until the user scrolls.
    QString wantedAnchor_;
    int wantedScroll_ = 0;
    int placedScroll_ = 0;
};

}  // namespace velorama
