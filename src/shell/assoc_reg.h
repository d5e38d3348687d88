#pragma once

#include "platform/store/registry_store.h"

namespace velorama {

/// Thin wrappers around the system's own store (`mASSOCREG`), for the keys that do not lie below
/// the program's root. The default value of a key has the empty name.

/// Set once a number could not be read; nothing clears it.
extern bool RegReadFailed;

/// The number, or 0 and `RegReadFailed` where there is none, where it is a text, or where it does
/// not fit in 32 bits.
quint32 RegDwordGet(const RegistryStore& store, Hive root, const QString& key, const QString& name);
void RegDwordSet(RegistryStore& store, Hive root, const QString& key, const QString& name,
                 quint32 number);

/// A plain text up to its first NUL; empty for every other kind of value and for none.
QString RegStringGet(const RegistryStore& store, Hive root, const QString& key,
                     const QString& name);
/// An empty text deletes the value. True if the store has changed.
bool RegStringSet(RegistryStore& store, Hive root, const QString& key, const QString& name,
                  const QString& text);

/// True if there was such a value and it is gone.
bool RegValueDelete(RegistryStore& store, Hive root, const QString& key, const QString& name);

}  // namespace velorama
