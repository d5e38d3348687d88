#pragma once

#include <QString>

namespace velorama {

/// What `--help` prints: every option, a line or more each, at most 79 characters wide.
QString callHelp();

}  // namespace velorama
