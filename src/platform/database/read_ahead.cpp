#include "platform/database/read_ahead.h"

#include "platform/runtime_error.h"

namespace talvora {

ReadAhead::ReadAhead(Connection& connection, const QStringList& selects) : connection_(connection), selects_(selects) {
    // A server works on one piece while the next is not yet sent, so that the window can be painted in between.
    constexpr qsizetype pieceSize = 250;
    for (qsizetype start = 0; start < selects.size(); start += pieceSize) {
        const QStringList piece = selects.mid(start, pieceSize);
        std::vector<Recordset> rows = connection_.executeTogether(piece);
        if (rows.size() != static_cast<std::size_t>(piece.size())) {
            break;
        }
        for (qsizetype i = 0; i < piece.size(); ++i) {
            results_.push_back(std::make_shared<Recordset>(std::move(rows[static_cast<std::size_t>(i)])));
            connection_.ahead_.insert(piece[i], results_.back());
        }
    }
}

ReadAhead::~ReadAhead() {
    for (const QString& select : selects_) {
        connection_.ahead_.remove(select);
    }
}

}  // namespace talvora
