#include "platform/database/server/narrowed_update.h"

#include <QRegularExpression>

namespace talvora {

using namespace Qt::StringLiterals;

QStringList NarrowedUpdate::updates(const QStringList& keys) const {
    constexpr qsizetype most = 500;
    QStringList statements;
    for (qsizetype start = 0; start < keys.size(); start += most) {
        statements += update + u'(' + keys.mid(start, most).join(u',') + u')';
    }
    return statements;
}

std::optional<NarrowedUpdate> narrowedUpdate(const QString& statement) {
    // "update TARGET set COLUMN=case … end from SOURCE ALIAS where CONDITION". The texts in it are single letters, so
    // that the words "from" and "where" are what they seem.
    static const QRegularExpression form(
        u"^update TestingResultDetail set Score=(case .* end)\\s+from (\\w+ \\w+) where (.*)$"_s);
    const QRegularExpressionMatch match = form.match(statement);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString value = match.captured(1);
    const QString source = match.captured(2);
    const QString condition = match.captured(3);
    const QString stands =
        u"(TestingResultDetail.Score=%1 or (TestingResultDetail.Score is null and %1 is null))"_s.arg(value);
    return NarrowedUpdate{
        u"select TestingResultDetail.ID from TestingResultDetail,%1 where %2 and case when %3 then 0 else 1 end=1"_s
            .arg(source, condition, stands),
        statement + u" and not exists (select 1 from %1 where %2 and %3) and TestingResultDetail.ID in "_s.arg(
                        source, condition, stands)};
}

}  // namespace talvora
