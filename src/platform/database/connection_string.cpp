#include "platform/database/connection_string.h"

namespace talvora {

using namespace Qt::StringLiterals;

ConnectionParts ConnectionParts::parse(const QString& connectionString) {
    ConnectionParts parts;
    qsizetype at = 0;
    while (at < connectionString.size()) {
        const qsizetype equals = connectionString.indexOf(u'=', at);
        if (equals < 0) {
            break;
        }
        const QString key = connectionString.sliced(at, equals - at).trimmed().toLower();
        qsizetype end = connectionString.indexOf(u';', equals);
        if (end < 0 || key == "pwd"_L1) {
            end = connectionString.size();
        }
        const QString value = connectionString.sliced(equals + 1, end - equals - 1);
        if (key == "data source"_L1) {
            parts.dataSource = value;
        } else if (key == "initial catalog"_L1) {
            parts.initialCatalog = value;
        } else if (key == "user id"_L1) {
            parts.userId = value;
        } else if (key == "pwd"_L1) {
            parts.password = value;
        }
        at = end + 1;
    }
    return parts;
}

bool ConnectionParts::isEmbedded() const {
    return dataSource.trimmed().compare("embedded"_L1, Qt::CaseInsensitive) == 0;
}

}  // namespace talvora
