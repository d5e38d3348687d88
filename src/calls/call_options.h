#pragma once

#include "calls/call.h"

#include <QStringList>

#include <optional>

namespace velorama {

/// The call that a command line asks for; nothing where it asks for the main window, with an album
/// or without. `arguments` begin with the program's own name. Needs no application object.
///
/// A first word that begins with two dashes is an option, unless a file of that name exists. From
/// there on all words belong to the call: one option that names it and those that go with it, in
/// any order. A value may begin with dashes too.
std::optional<Call> callOf(const QStringList& arguments);

}  // namespace velorama
