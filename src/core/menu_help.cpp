#include "core/cls_status.h"
#include "core/lib_txt.h"

#include <QApplication>
#include <QFontMetrics>

namespace velorama {
namespace {

struct MenuRow {
    const char* key;
    /// %1 stands for the product's name.
    const char* help;
};

// The first row that a text begins with counts.
constexpr MenuRow menuRows[] = {
    {"&Restore", "Restore the window to its normal size"},
    {"&Move", "Change the window position"},
    {"&Size", "Change the window size"},
    {"Mi&nimize", "Reduce the window to an icon"},
    {"Ma&ximize", "Enlarge the window to its full size"},
    {"&New", "Create a new empty slideshow"},
    {"&Open", "Open an existing slideshow"},
    {"&Save", "Save the current list as a slideshow file"},
    {"Save &As", "Save the current file with a new file name"},
    {"E&xit", "Quits %1; prompts to save file"},
    {"&Add Selected", "Add selected slides"},
    {"A&dd All", "Add all slides"},
    {"&Clear Selected", "Clear selected slides"},
    {"Set As Desktop &Wallpaper", "Use the selected picture as the Desktop Wallpaper"},
    {"Check For &Updates", "Checks the website for newer release of %1"},
    {"Customer &Support", "Send email to our support"},
    {"&About", "Display information about %1"},
};

QString fallbackHelp(const QString& text) {
    if (text.startsWith(QLatin1Char('C'))) {
        return QStringLiteral(" ");
    }
    if (text.contains(QLatin1Char('&')) || text == QStringLiteral("Recent File") ||
        text.size() < 2) {
        return QString();
    }
    return QStringLiteral("View ") + text;
}

}  // namespace

QString clsSTATUS::menuHelp(const QString& Text) {
    for (const MenuRow& row : menuRows) {
        if (Text.startsWith(QLatin1String(row.key))) {
            return QString::fromLatin1(row.help).replace(QStringLiteral("%1"), libTxt.ProductName);
        }
    }
    return fallbackHelp(Text);
}

void clsSTATUS::MenuText(const QString& Text) {
    StatusTextShow(menuHelp(Text));
}

// The window has no status area; one would be given its text here.
void clsSTATUS::StatusTextShow(const QString& text) {
    [[maybe_unused]] const int width = QFontMetrics(QApplication::font()).horizontalAdvance(text);
}

}  // namespace velorama
