#pragma once

#include "platform/store/registry_store.h"

#include <QString>

namespace velorama {

struct HiveName {
    Hive hive;
    QLatin1String name;      // as the file of the store has it
    QLatin1String longName;  // as people know it from elsewhere
};

/// Nothing for another name; letter case is ignored.
const HiveName* hiveByName(QStringView name);
const HiveName* hiveByLongName(QStringView name);
const HiveName& nameOf(Hive hive);

/// Whether a registry text may name such a key: one below its hive or, empty, the hive itself. No
/// segment is empty or longer than 255 characters, and none has a line end or a zero.
bool isKeyOfText(QStringView key);
/// The same of a value; empty is the key's default value.
bool isNameOfText(QStringView name);

}  // namespace velorama
