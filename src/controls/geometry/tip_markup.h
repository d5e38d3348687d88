#pragma once

#include <QFont>
#include <QStringList>

namespace velorama {

/// The markup of a tooltip that shows `lines` as the plain texts that they are, whatever they look
/// like, in lines of a readable width; empty for none. Of a text longer than a screen bears the
/// middle is left out.
QString tipMarkup(const QStringList& lines, const QFont& font);

}  // namespace velorama
