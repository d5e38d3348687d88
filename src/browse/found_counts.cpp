#include "browse/found_counts.h"

#include "platform/numbers.h"

namespace velorama {
namespace {

QString pictures(int count) {
    return decimalText(count) +
           (count == 1 ? QStringLiteral(" picture") : QStringLiteral(" pictures"));
}

/// One is selected in nearly every folder, and is no news.
QString chosen(int selected, int count) {
    return selected < 2 ? pictures(count)
                        : decimalText(selected) + u" of " + decimalText(count) + u" selected";
}

QString notShown(int others) {
    return others == 0 ? QString()
                       : u", " + decimalText(others) +
                             (others == 1 ? QStringLiteral(" other not shown")
                                          : QStringLiteral(" others not shown"));
}

}  // namespace

QString foundCount(const FoundControls& found) {
    const int count = found.flbFOUND->ListCount();
    return count == 0 ? QString()
                      : QString(chosen(found.lvwFOUND->SelectedCount(), count) +
                                notShown(found.flbFOUND->OtherCount()));
}

QString nothingFound(int others) {
    if (others == 0) {
        return QStringLiteral(
            "No pictures in this folder.\nChoose a folder of photographs on the left.");
    }
    return QStringLiteral("No BMP, JPG or GIF pictures; ") + decimalText(others) +
           (others == 1 ? QStringLiteral(" other picture is not shown")
                        : QStringLiteral(" other pictures are not shown"));
}

}  // namespace velorama
