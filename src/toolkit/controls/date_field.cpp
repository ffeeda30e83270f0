#include "toolkit/controls/date_field.h"

#include "platform/moment.h"

namespace talvora {

using namespace Qt::StringLiterals;

void showDate(QDateEdit* picker, const QString& stored) {
    picker->setDate(stored.isEmpty() ? QDate::currentDate() : toMoment(stored).date());
}

QString dateText(const QDateEdit* picker) {
    return picker->date().toString(u"yyyy-MM-dd"_s);
}

}  // namespace talvora
