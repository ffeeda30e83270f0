#include "platform/moment.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace talvora {

using namespace Qt::StringLiterals;

QDateTime presentMoment() {
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date(), QTime(now.time().hour(), now.time().minute(), now.time().second())};
}

QString momentText(const QDateTime& moment) {
    return moment.toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

QString dateText(const QDate& date) {
    return date.toString(u"yyyy-MM-dd"_s);
}

QDateTime toMoment(const QString& text) {
    QString plain = trimBlanks(text);
    plain.replace(u'/', u'-');
    for (const auto& form : {u"yyyy-M-d H:m:s"_s, u"yyyy-M-d H:m"_s, u"yyyy-M-d"_s}) {
        const QDateTime moment = QDateTime::fromString(plain, form);
        if (moment.isValid()) {
            return moment;
        }
    }
    throw RuntimeError(errors::TypeMismatch);
}

}  // namespace talvora
