#include "platform/database/embedded/embedded_driver.h"

#include "platform/database/connection_string.h"
#include "platform/database/embedded/binding.h"
#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/database_file.h"
#include "platform/database/embedded/functions.h"
#include "platform/database/embedded/parser.h"
#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/sqlite_error.h"
#include "platform/database/embedded/statement_cache.h"
#include "platform/database/embedded/translator.h"

#include <sqlite3.h>

#include <utility>

namespace talvora {

using namespace Qt::StringLiterals;
using namespace embedded;

namespace {

/// Runs steps of a definition as one: all of them, or none.
class Savepoint {
 public:
    explicit Savepoint(sqlite3* database) : database_(database) { runSqlite(database_, "SAVEPOINT definition"); }
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    ~Savepoint() {
        if (open_) {
            sqlite3_exec(database_, "ROLLBACK TO definition; RELEASE definition", nullptr, nullptr, nullptr);
        }
    }
    void keep() {
        runSqlite(database_, "RELEASE definition");
        open_ = false;
    }

 private:
    sqlite3* database_;
    bool open_ = true;
};

class EmbeddedDriver : public Driver {
 public:
    EmbeddedDriver(const ConnectionParts& parts, int timeoutSeconds)
        : file_(parts.initialCatalog, DatabaseFile::Mode::OpenExisting, timeoutSeconds), catalog_(file_.handle()) {
        registerFunctions(file_.handle(), &pending_);
    }

    Recordset execute(const QString& statement) override;
    void beginTransaction() override;
    void commitTransaction() override;
    void rollbackTransaction() override;

 private:
    Translation translate(std::vector<Plan::Structural>& structural);
    Plan prepare(Translation translation, std::vector<Plan::Structural> structural);
    void define(const Translation& translation);
    Recordset run(Plan& plan);
    void forgetTables();
    bool inTransaction() const { return sqlite3_get_autocommit(file_.handle()) == 0; }
    void finishChange();
    void endTransaction(const char* sql, int missingError);

    PendingError pending_;
    DatabaseFile file_;
    Catalog catalog_;
    StatementCache cache_;
    Tokens tokens_;
    /// Whether tables came or went since the transaction began: rolling back undoes that too.
    bool tablesChanged_ = false;
};

Recordset EmbeddedDriver::execute(const QString& statement) {
    file_.startClock();
    pending_.reset();
    try {
        tokenise(statement, tokens_);
        if (Plan* known = cache_.find(tokens_)) {
            return run(*known);
        }
        std::vector<Plan::Structural> structural;
        Translation translation = translate(structural);
        if (!translation.definitions.empty()) {
            define(translation);
            return {};
        }
        if (translation.takesKeys) {
            // A prepared insert could be wrong from now on.
            cache_.clear();
            catalog_.setTakesKeys(*translation.takesKeys);
            return {};
        }
        return run(cache_.add(tokens_, prepare(std::move(translation), std::move(structural))));
    } catch (const DatabaseError&) {
        if (tablesChanged_ && !inTransaction()) {
            forgetTables();
        }
        if (pending_) {
            throw DatabaseError(*pending_);
        }
        throw;
    }
}

Translation EmbeddedDriver::translate(std::vector<Plan::Structural>& structural) {
    Parser parser(tokens_);
    const Statement tree = parser.parse();
    Translation translation;
    try {
        translation = Translator(catalog_, tokens_).translate(tree);
    } catch (const DatabaseError&) {
        // Another session may have made the table or column since the catalogue was read.
        catalog_.clear();
        translation = Translator(catalog_, tokens_).translate(tree);
    }
    for (const auto* literals : {&parser.structural(), &std::as_const(translation.structural)}) {
        for (const int literal : *literals) {
            structural.push_back({literal, tokens_.literals[static_cast<std::size_t>(literal)].text.toString()});
        }
    }
    return translation;
}

void EmbeddedDriver::define(const Translation& translation) {
    cache_.clear();
    tablesChanged_ = true;
    finishChange();
    Savepoint savepoint(file_.handle());
    for (const QByteArray& definition : translation.definitions) {
        runSqlite(file_.handle(), definition);
    }
    if (!translation.statement.isEmpty()) {
        SqliteStatement fill(file_.handle(), translation.statement);
        bindParameters(fill.handle(), translation.parameters, tokens_.literals);
        while (fill.step()) {
        }
    }
    savepoint.keep();
    catalog_.clear();
}

Plan EmbeddedDriver::prepare(Translation translation, std::vector<Plan::Structural> structural) {
    Plan plan;
    plan.prepared = SqliteStatement(file_.handle(), translation.statement);
    plan.parameters = std::move(translation.parameters);
    plan.columns = std::move(translation.columns);
    plan.structural = std::move(structural);
    return plan;
}

Recordset EmbeddedDriver::run(Plan& plan) {
    sqlite3_stmt* statement = plan.prepared.handle();
    bindParameters(statement, plan.parameters, tokens_.literals);
    Recordset rows;
    for (const QString& name : plan.columns) {
        rows.addColumn(name);
    }
    if (sqlite3_stmt_readonly(statement) == 0) {
        finishChange();
    }
    const int columns = static_cast<int>(plan.columns.size());
    while (plan.prepared.step()) {
        for (int i = 0; i < columns; ++i) {
            addCell(rows, statement, i);
        }
    }
    plan.prepared.reset();
    return rows;
}

/// Lets a change inside a transaction run to its end: SQLite undoes the whole transaction with a change that is cut
/// off.
void EmbeddedDriver::finishChange() {
    if (inTransaction()) {
        file_.liftLimit();
    }
}

void EmbeddedDriver::forgetTables() {
    cache_.clear();
    catalog_.clear();
    tablesChanged_ = false;
}

void EmbeddedDriver::beginTransaction() {
    file_.startClock();
    // The write lock at once: two sessions that both read a maximum and then insert must not do so side by side.
    runSqlite(file_.handle(), "BEGIN IMMEDIATE");
    tablesChanged_ = false;
}

void EmbeddedDriver::endTransaction(const char* sql, int missingError) {
    file_.startClock();
    if (!inTransaction()) {
        throw serverError(missingError);
    }
    runSqlite(file_.handle(), sql);
}

void EmbeddedDriver::commitTransaction() {
    try {
        endTransaction("COMMIT", server_error::NothingToCommit);
    } catch (const DatabaseError&) {
        // Left open, it would refuse every later transaction of the session.
        sqlite3_exec(file_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    tablesChanged_ = false;
}

void EmbeddedDriver::rollbackTransaction() {
    endTransaction("ROLLBACK", server_error::NothingToRollBack);
    if (tablesChanged_) {
        forgetTables();
    }
}

}  // namespace

std::unique_ptr<Driver> openEmbedded(const ConnectionParts& parts, int timeoutSeconds) {
    return std::make_unique<EmbeddedDriver>(parts, timeoutSeconds);
}

void createEmbedded(const ConnectionParts& parts) {
    constexpr int patience = 10;
    const DatabaseFile made(parts.initialCatalog, DatabaseFile::Mode::Create, patience);
}

}  // namespace talvora
