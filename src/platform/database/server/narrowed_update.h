#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace talvora {

/// An update in two steps, for a server that writes every row anew that an update meets: a select that finds the keys
/// of the rows whose value changes, which a server may share among its processors, and the update of these rows.
///
/// Where several rows of the source match one target and one of them gives the value that stands there, the target
/// stays, so that a repeated update changes nothing.
struct NarrowedUpdate {
    QString findKeys;
    QString update;  ///< without the list of keys at its end

    /// The statements that update the rows of these keys, each of a size that stays far from the time limit.
    QStringList updates(const QStringList& keys) const;
};

/// What to send in place of `statement`; nothing for a statement that goes as it is. Only the update of all answers of
/// a paper is worth it.
std::optional<NarrowedUpdate> narrowedUpdate(const QString& statement);

}  // namespace talvora
