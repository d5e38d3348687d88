#pragma once

#include "calls/call.h"
#include "calls/option_table.h"

#include <QCommandLineParser>

namespace velorama {

/// The call of that kind, made of its options, which are all the parser holds; a wrong call where
/// one is missing or its value will not do.
Call makeCall(CallKind kind, const QCommandLineParser& options);

}  // namespace velorama
