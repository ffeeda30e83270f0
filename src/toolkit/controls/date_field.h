#pragma once

#include <QDateEdit>

namespace talvora {

/// Shows a stored date, or today when `stored` is empty. RuntimeError 13 when it is no date.
void showDate(QDateEdit* picker, const QString& stored);

/// The date as the tables keep it: "yyyy-MM-dd".
QString dateText(const QDateEdit* picker);

}  // namespace talvora
