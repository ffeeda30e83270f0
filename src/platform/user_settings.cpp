#include "platform/user_settings.h"

#include "platform/title.h"

#include <QSettings>

#include <memory>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString& storeFile() {
    static QString path;
    return path;
}

std::unique_ptr<QSettings> store() {
    if (storeFile().isEmpty()) {
        return std::make_unique<QSettings>(u"Talvora"_s, titleText());
    }
    return std::make_unique<QSettings>(storeFile(), QSettings::IniFormat);
}

QString path(const QString& section, const QString& key) {
    return section + u'/' + key;
}

}  // namespace

QString GetSetting(const QString& section, const QString& key, const QString& preset) {
    return store()->value(path(section, key), preset).toString();
}

int GetSettingNumber(const QString& section, const QString& key, int preset) {
    bool isNumber = false;
    const int number = GetSetting(section, key, QString()).toInt(&isNumber);
    return isNumber ? number : preset;
}

void SaveSetting(const QString& section, const QString& key, const QString& value) {
    const auto settings = store();
    settings->setValue(path(section, key), value);
    settings->sync();
}

void setUserSettingsFile(const QString& path) {
    storeFile() = path;
}

}  // namespace talvora
