#pragma once

namespace velorama {

// How fast a show goes. All times are milliseconds.

/// What a timer has by design, and keeps where the settings hold no number that it runs on.
constexpr int designInterval = 6000;
constexpr int designTransition = 15;
/// Steps of a fade, each a transition interval after the one before.
constexpr int fadeSteps = 240;

/// How long a slide stays, by the settings.
int slideInterval();
/// The same of a step of the fade.
int transitionInterval();

}  // namespace velorama
