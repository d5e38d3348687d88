#pragma once

#include <QString>

namespace velorama {

/// Whether a page is laid out in a moment, whatever it is made of.
bool isLight(const QString& html);

}  // namespace velorama
