#pragma once

#include <QString>

namespace talvora {

/// The per-user settings store: texts by section and key under the program's title. On Windows it is the registry,
/// elsewhere a file among the user's configuration files. What the user has not set is looked up among the settings
/// for all users of the machine, where an administrator may put it.
QString GetSetting(const QString& section, const QString& key, const QString& preset);

/// The same as a whole number; `preset` for a text that is none.
int GetSettingNumber(const QString& section, const QString& key, int preset);

/// Stores a text at once. A store that can't be written keeps what it had.
void SaveSetting(const QString& section, const QString& key, const QString& value);

/// Has the store be the file `path` instead, for a process that must leave the user's own alone; empty brings the
/// user's own back.
void setUserSettingsFile(const QString& path);

}  // namespace talvora
