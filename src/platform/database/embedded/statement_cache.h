#pragma once

#include "platform/database/embedded/statement.h"
#include "platform/database/embedded/translator.h"

#include <QHash>
#include <QString>

#include <list>
#include <vector>

namespace talvora::embedded {

/// A statement translated and prepared, ready to run for every statement of its shape.
struct Plan {
    std::vector<Parameter> parameters;
    std::vector<QString> columns;
    SqliteStatement prepared;
    /// The literals that are part of the translated text, with what they said.
    struct Structural {
        int literal;
        QString text;
    };
    std::vector<Structural> structural;
};

/// The plans used lately, by the shape of their statements.
class StatementCache {
 public:
    /// The plan for these tokens, null when there is none. Valid until the next add or clear.
    Plan* find(const Tokens& tokens);
    Plan& add(const Tokens& tokens, Plan plan);
    void clear();

 private:
    struct Entry {
        QString shape;
        Plan plan;
    };

    std::list<Entry> entries_;  ///< the latest used first
    QHash<QStringView, std::list<Entry>::iterator> byShape_;
};

}  // namespace talvora::embedded
