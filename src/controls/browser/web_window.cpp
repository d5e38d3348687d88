#include "controls/browser/web_window.h"

#include "controls/browser/page_addresses.h"

#include <QEvent>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextCursor>

namespace velorama {
namespace {

QUrl withoutFragment(const QUrl& address) {
    return address.adjusted(QUrl::RemoveFragment);
}

/// A link that the keyboard is on stands out as a selected text does: a dotted line around it is
/// hard to find.
class LinkStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override {
        auto* variant = qstyleoption_cast<QStyleHintReturnVariant*>(answer);
        const bool isLink = hint == SH_TextControl_FocusIndicatorTextCharFormat;
        if (!isLink || variant == nullptr || option == nullptr) {
            return QProxyStyle::styleHint(hint, option, widget, answer);
        }
        QTextCharFormat format;
        format.setBackground(option->palette.brush(QPalette::Active, QPalette::Highlight));
        format.setForeground(option->palette.brush(QPalette::Active, QPalette::HighlightedText));
        variant->variant = format;
        return 1;
    }
};

/// What of a text is selected, be it by the mouse or as the link that the keyboard is on.
struct Selected {
    explicit Selected(const QTextCursor& cursor)
        : begin(cursor.selectionStart()), end(cursor.selectionEnd()) {}
    void putBack(QTextEdit& text) const {
        QTextCursor cursor(text.document());
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        text.setTextCursor(cursor);
    }
    int begin;
    int end;
};

}  // namespace

webWINDOW::webWINDOW(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    auto* style = new LinkStyle;
    style->setParent(this);
    setStyle(style);
    connect(this, &QTextBrowser::anchorClicked, this, &webWINDOW::follow);
}

webWINDOW::~webWINDOW() {
    delete load_;
}

QString webWINDOW::LocationURL() const {
    return place_ < 0 ? QString()
                      : history_.at(static_cast<std::size_t>(place_)).address.toString();
}

void webWINDOW::Navigate(const QString& URL) {
    const QUrl address(URL);
    if (isHttpAddress(address)) {
        start(address, Task::New);
    }
}

void webWINDOW::Refresh() {
    if (!load_ && place_ >= 0) {
        start(history_.at(static_cast<std::size_t>(place_)).address, Task::Refresh);
    }
}

void webWINDOW::doSetSource(const QUrl& address, QTextDocument::ResourceType) {
    Navigate(address.toString());
}

void webWINDOW::start(const QUrl& address, Task task) {
    stop();
    if (!page_) {
        text_ = QStringLiteral("<p>One moment, please.</p>");
        render();
    }
    load_ = new PageLoad(withoutFragment(address), limits_);
    load_->setParent(this);
    connect(load_, &PageLoad::arrived, this, [this, address, task](const HttpAnswer& answer) {
        pageArrived(answer, address, task);
    });
    connect(load_, &PageLoad::pictureArrived, this, &webWINDOW::takePicture);
    connect(load_, &PageLoad::done, this, [this, task] { loadDone(task); });
}

// It may be telling something at this moment.
void webWINDOW::stop() {
    if (load_) {
        load_->disconnect(this);
        load_->deleteLater();
        load_ = nullptr;
    }
}

void webWINDOW::pageArrived(const HttpAnswer& answer, const QUrl& asked, Task task) {
    if (!answer.ok && task == Task::Refresh && !shownFailed_) {
        return;
    }
    const bool isForeign = answer.ok && pageKind(answer.contentType) == PageKind::Foreign;
    // The first has to leave something on show.
    if (isForeign && task == Task::New && place_ >= 0) {
        stop();
        emit OutsideLink(answer.address);
        return;
    }
    QUrl address = answer.ok ? answer.address : asked;
    if (!address.hasFragment()) {
        address.setFragment(asked.hasFragment() ? asked.fragment(QUrl::FullyEncoded) : QString());
    }
    enter(address, task);
    shown_ = address;
    kind_ = answer.ok ? pageKind(answer.contentType) : PageKind::Html;
    shownFailed_ = !answer.ok || kind_ == PageKind::Foreign;
    if (shownFailed_) {
        kind_ = PageKind::Html;
    }
    text_ =
        shownFailed_ ? errorPage(address, substitute_) : pageText(answer.body, answer.contentType);
    render();
    scrollToWanted();
    load_->fetchPictures(picturesOf(*page_));
}

/// Puts the page that has arrived into the history, and sets where it is to be scrolled to.
void webWINDOW::enter(const QUrl& address, Task task) {
    if (task == Task::New) {
        keepScroll();
        // A page asked for again is the same step of the history.
        if (LocationURL() != address.toString()) {
            history_.resize(static_cast<std::size_t>(++place_));
            history_.emplace_back();
        }
    }
    Entry& entry = history_.at(static_cast<std::size_t>(place_));
    entry.address = address;
    entry.scroll = task == Task::New ? 0 : entry.scroll;
    wantedScroll_ = task == Task::Refresh ? verticalScrollBar()->value() : entry.scroll;
    wantedAnchor_ = task == Task::New ? address.fragment() : QString();
    tellCommands();
}

void webWINDOW::takePicture(const QUrl& address, const QImage& picture) {
    pictures_.insert(address, picture);
    if (page_) {
        page_->addResource(QTextDocument::ImageResource, address, picture);
        page_->markContentsDirty(0, page_->characterCount());
        if (verticalScrollBar()->value() == placedScroll_) {
            scrollToWanted();
        }
    }
}

void webWINDOW::loadDone(Task task) {
    stop();
    if (task != Task::Refresh) {
        emit DocumentComplete(LocationURL());
    }
}

void webWINDOW::moveTo(int place) {
    if (place < 0 || place >= static_cast<int>(history_.size()) || place == place_) {
        return;
    }
    stop();
    keepScroll();
    place_ = place;
    const Entry& entry = history_.at(static_cast<std::size_t>(place));
    tellCommands();
    if (isOnShow(entry.address)) {
        shown_ = entry.address;
        wantedScroll_ = entry.scroll;
        wantedAnchor_.clear();
        scrollToWanted();
    } else {
        start(entry.address, Task::Move);
    }
}

void webWINDOW::follow(const QUrl& link) {
    if (!isHttpAddress(link) || !isSameServer(link, shown_)) {
        emit OutsideLink(link);
    } else if (link.hasFragment() && isOnShow(link)) {
        stop();
        enter(link, Task::New);
        shown_ = link;
        scrollToWanted();
    } else {
        Navigate(link.toString(QUrl::FullyEncoded));
    }
}

bool webWINDOW::isOnShow(const QUrl& address) const {
    return !shownFailed_ && withoutFragment(address) == withoutFragment(shown_);
}

void webWINDOW::keepScroll() {
    if (place_ >= 0 && history_.at(static_cast<std::size_t>(place_)).address == shown_) {
        history_.at(static_cast<std::size_t>(place_)).scroll = verticalScrollBar()->value();
    }
}

void webWINDOW::tellCommands() {
    emit CommandStateChange(CommandForward, place_ + 1 < static_cast<int>(history_.size()));
    emit CommandStateChange(CommandBack, place_ > 0);
}

void webWINDOW::render() {
    QTextDocument* const before = page_;
    const bool isSame = before != nullptr && rendered_ == text_;
    const Selected selected(textCursor());
    rendered_ = text_;
    page_ = makePage(text_, kind_, shown_, font()).release();
    page_->setParent(this);
    forgetOtherPictures();
    for (auto picture = pictures_.constBegin(); picture != pictures_.constEnd(); ++picture) {
        page_->addResource(QTextDocument::ImageResource, picture.key(), *picture);
    }
    setDocument(page_);
    delete before;
    if (isSame && selected.begin < selected.end) {
        selected.putBack(*this);
    }
}

void webWINDOW::forgetOtherPictures() {
    const QList<QUrl> needed = picturesOf(*page_);
    pictures_.removeIf([&needed](QHash<QUrl, QImage>::iterator picture) {
        return !needed.contains(picture.key());
    });
}

void webWINDOW::scrollToWanted() {
    if (wantedAnchor_.isEmpty()) {
        verticalScrollBar()->setValue(wantedScroll_);
    } else {
        scrollToAnchor(wantedAnchor_);
    }
    placedScroll_ = verticalScrollBar()->value();
}

// Only what stands here before the first page could come to this.
QVariant webWINDOW::loadResource(int, const QUrl&) {
    return QString();
}

// Links have the colour that the palette gave them when the page was made.
void webWINDOW::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && page_) {
        const int scroll = verticalScrollBar()->value();
        render();
        verticalScrollBar()->setValue(scroll);
    }
}

}  // namespace velorama
