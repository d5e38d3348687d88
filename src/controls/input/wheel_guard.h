#pragma once

class QWidget;

namespace velorama {

/// From now on the wheel changes the field only while the keyboard is in it, and never brings the
/// keyboard there; elsewhere it scrolls what is around.
void guardFromWheel(QWidget& field);

}  // namespace velorama
