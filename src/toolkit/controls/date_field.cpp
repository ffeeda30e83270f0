#include "toolkit/controls/date_field.h"

#include "platform/moment.h"

namespace talvora {

void showDate(QDateEdit* picker, const QString& stored) {
    picker->setDate(stored.isEmpty() ? QDate::currentDate() : toMoment(stored).date());
}

QString dateText(const QDateEdit* picker) {
    return dateText(picker->date());
}

}  // namespace talvora
