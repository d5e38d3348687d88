#include "desktop/main_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace velorama::desktop {
namespace {

constexpr int kTwips = 15;
constexpr int kPages = 5;
// The tab strip's corner on the surface, the page's corner, and the pages' frame in the strip.
constexpr int kStripTop = 75;
constexpr int kPageLeft = 75;
constexpr int kPageTop = 405;
constexpr int kFrameTop = 300;

// The toolbar's buttons from the left: six, the settings and the one that plays.
constexpr std::size_t kToolbarButtons = 8;
constexpr int kLeastButton = 20;

bool differ(QRgb a, QRgb b) {
    return ((a ^ b) & 0xFFFFFF) != 0;
}

}  // namespace

MainWindow::MainWindow(DesktopSession& session, Program& program, double scale)
    : m_session(session), m_program(program), m_scale(scale) {
    WindowId found = 0;
    // With an album its title holds more than the name.
    waitFor([&] {
        const auto all = session.windows(QString(), program.pid());
        found = all.empty() ? 0 : all.front();
        return found != 0 || !program.runs();
    });
    m_window = session.activate(found) ? found : 0;
}

bool MainWindow::waitForTitle(const QString& wanted) const {
    return waitFor([&] { return title() == wanted; });
}

QImage MainWindow::look(const QRect& place) const {
    return m_session.glance(place.translated(geometry().topLeft()));
}

// The frame of the pages ends a little before the window's right edge: the first row where the two
// differ. -1 if there is none.
int MainWindow::pageFrame(const QImage& image) const {
    const int outside = image.width() - static_cast<int>(2 * m_scale);
    const int inside = image.width() - static_cast<int>(20 * m_scale);
    for (int y = 0; inside > 0 && y < image.height() / 2; ++y) {
        if (differ(image.pixel(inside, y), image.pixel(outside, y))) {
            return y;
        }
    }
    return -1;
}

int MainWindow::shownPage() const {
    const QImage image = m_session.glance(geometry());
    const int top = pageFrame(image) - static_cast<int>(std::lround(kFrameTop * m_scale / kTwips));
    if (top < 0) {
        return 0;
    }
    // Above the captions a tab is all of one colour, and only the one that is up reaches the top.
    const int row = top + static_cast<int>(3.5 * m_scale);
    const QRgb ground = image.pixel(image.width() - static_cast<int>(2 * m_scale), top);
    int number = 0;
    int shown = 0;
    for (int start = static_cast<int>(4 * m_scale), x = start; x < image.width(); ++x) {
        if (!differ(image.pixel(x, row), image.pixel(start, row))) {
            continue;
        }
        if (x - start > 12 * m_scale && differ(image.pixel(start, row), ground)) {
            ++number;
            shown = differ(image.pixel((start + x) / 2, top), ground) ? number : shown;
        }
        start = x;
    }
    return number == kPages ? shown : 0;
}

bool MainWindow::turnTo(Page page) const {
    int now = 0;
    if (!waitFor([&] { return (now = shownPage()) != 0; })) {
        return false;
    }
    while (now != page) {
        now = now % kPages + 1;
        m_session.key(QStringLiteral("ctrl+Tab"));
        if (!waitFor([&] { return shownPage() == now; })) {
            return false;
        }
    }
    return true;
}

int MainWindow::surfaceTop() const {
    return pageFrame(m_session.glance(geometry())) - (kStripTop + kFrameTop) / kTwips;
}

QPoint MainWindow::onPage(int x, int y) const {
    return onPage(x, y, 0, 0).topLeft();
}

QRect MainWindow::onPage(int x, int y, int width, int height) const {
    const auto pixels = [](int twips) {
        return static_cast<int>(std::lround(double(twips) / kTwips));
    };
    return {pixels(kPageLeft + x), surfaceTop() + pixels(kPageTop + y), pixels(width),
            pixels(height)};
}

QPoint MainWindow::firstSlide(int right) const {
    return {120 / kTwips + 50 + right, geometry().height() - (2460 / kTwips) + 50};
}

QPoint MainWindow::button(ToolbarItem item) const {
    const std::vector<QRect> all = toolbarButtons();
    return all.size() != kToolbarButtons ? QPoint() : all.at(item == Play ? 7 : item).center();
}

// They are of another colour than the toolbar, which is where its left edge is.
std::vector<QRect> MainWindow::toolbarButtons() const {
    const QSize size = geometry().size();
    const int top = size.height() - (3180 - 45) / kTwips;
    const QImage row = look({0, top + 4, size.width(), 1});
    std::vector<QRect> found;
    for (int x = 1, start = 0; x < row.width(); ++x) {
        if (!differ(row.pixel(x, 0), row.pixel(1, 0))) {
            if (x - start > kLeastButton && start > 0) {
                found.emplace_back(start, top, x - start, 450 / kTwips);
            }
            start = x + 1;
        }
    }
    return found;
}

bool MainWindow::isDark(const QRect& place) const {
    const QImage image = look(place);
    int darkest = 255;
    int lightest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
            lightest = std::max(lightest, qGray(image.pixel(x, y)));
        }
    }
    // A window that is not painted yet is dark all over.
    return darkest < 100 && lightest > 180;
}

bool MainWindow::isOn(ToolbarItem item) const {
    const QRect symbol(button(item) - QPoint(10, 10), QSize(20, 20));
    if (item == Play) {
        // Light on a ground that stands out.
        const QImage image = look(symbol);
        const QRgb ground = image.isNull() ? 0 : image.pixel(0, 0);
        return qBlue(ground) > qRed(ground) + 40;
    }
    return isDark(symbol);
}

void MainWindow::press(ToolbarItem item) const {
    // The pointer is as dark as a symbol.
    m_session.moveMouse(m_window, {2, geometry().height() - 2});
    EXPECT_TRUE(waitFor([&] { return isOn(item); })) << "button " << item;
    m_session.click(m_window, button(item));
}

void MainWindow::menu(const QString& top, const QString& entry) const {
    m_session.key(QStringLiteral("alt+") + top);
    if (waitForPopup()) {
        m_session.key(entry);
    }
}

bool MainWindow::waitForPopup(int windows) const {
    return waitFor([&] { return hasPopup(windows); });
}

bool MainWindow::hasPopup(int windows) const {
    return static_cast<int>(shownWindows().size()) > windows;
}

// A popup has no title.
std::vector<WindowId> MainWindow::shownWindows() const {
    const auto visible = m_session.run(
        QStringLiteral("xdotool"),
        {QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
         QStringLiteral("--pid"), QString::number(m_program.pid()), QStringLiteral("--class"),
         QStringLiteral("velorama")});
    std::vector<WindowId> all;
    for (const QByteArray& id : visible.value_or(QByteArray()).split('\n')) {
        if (!id.isEmpty()) {
            all.push_back(id.toUInt());
        }
    }
    return all;
}

WindowId MainWindow::waitForDialog(const QString& title) const {
    const WindowId dialog = m_session.waitForWindow(title, m_program.pid());
    return m_session.activate(dialog) ? dialog : 0;
}

bool MainWindow::waitForNoDialog() const {
    return waitForEndOfShow() && m_session.activate(m_window);
}

bool MainWindow::chooseFile(const QString& title, const QString& path) const {
    if (waitForDialog(title) == 0) {
        return false;
    }
    m_session.type(path);
    m_session.key(QStringLiteral("Return"));
    return m_session.waitForNoWindow(title, m_program.pid()) && m_session.activate(m_window);
}

bool MainWindow::answer(const QString& key) const {
    const WindowId question = waitForDialog(kMessageTitle);
    m_session.key(key);
    return question != 0 && m_session.waitForNoWindow(kMessageTitle, m_program.pid());
}

std::optional<int> MainWindow::close(const QString& answer) const {
    m_session.activate(m_window);
    m_session.key(QStringLiteral("alt+F4"));
    bool asks = false;
    waitFor([&] {
        asks = !m_session.windows(kMessageTitle, m_program.pid()).empty();
        return asks || !m_program.runs();
    });
    if (asks && m_program.runs()) {
        this->answer(answer);
    }
    return m_program.waitForExit();
}

WindowId MainWindow::startShow() const {
    m_session.key(QStringLiteral("F5"));
    const QRect screen(QPoint(), m_session.glance().size());
    WindowId show = 0;
    waitFor([&] {
        for (const WindowId each : m_session.windows(QString(), m_program.pid())) {
            show = each != m_window && m_session.geometry(each) == screen ? each : show;
        }
        return show != 0 && m_session.activeWindow() == show;
    });
    return show;
}

bool MainWindow::waitForEndOfShow() const {
    return waitFor([&] {
        const auto visible = m_session.windows(QString(), m_program.pid());
        return visible == std::vector<WindowId>{m_window};
    });
}

bool setFirstPage(const Store& store, Page page) {
    return store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX"),
                            QString::number(page));
}

}  // namespace velorama::desktop
