#pragma once

#include "platform/store/registry_edit.h"

#include <QByteArray>
#include <QString>

namespace velorama {

/// Settings as a registry text, version 5.00: a first line that says so, then keys in brackets,
/// each with its values, a line for each. Letter case, comments (`;`) and continued lines (`\` at
/// the end of a line of bytes) as everywhere.

/// Where and why a text is refused; lines are counted from 1.
struct RegistryTextFault {
    qsizetype line = 0;
    QString reason;
};

/// The steps of a text in their order, or the first fault and no step at all.
struct RegistryText {
    std::vector<RegistryEdit> edits;
    std::optional<RegistryTextFault> fault;
};

/// Larger files hold no settings, and are not to be read into memory.
constexpr qint64 largestRegistryText = 256LL * 1024 * 1024;

/// Reads UTF-16 (little end first) and UTF-8, each with its byte order mark or without. Memory and
/// time are bounded by the length of the text.
RegistryText readRegistryText(const QByteArray& bytes);

enum class RegistryEncoding {
    Utf16,  // little end first with its mark, as the registry's own tools write it
    Utf8,   // without a mark
};

/// Every value, in the order of hives, keys and names: two stores that hold the same give the same
/// text. Reading it gives the values back. Nothing if a key or a name holds what a line of such a
/// text cannot (`unwritableAddress`).
QByteArray registryText(std::vector<AddressedValue> values, RegistryEncoding encoding);

/// The first key or name that cannot stand in a registry text, for it holds a line end or a zero,
/// or is not one that the reader takes; empty if there is none.
QString unwritableAddress(const std::vector<AddressedValue>& values);

}  // namespace velorama
