#pragma once

namespace talvora {

class WatchedLink;

/// In what a server of the family differs from the others, as far as the session makes up for it.
struct ServerKind {
    /// A reader does not wait for what another session has not committed: SQL Server with READ_COMMITTED_SNAPSHOT,
    /// Babelfish. Two sessions may then read the same maximum.
    bool readsSnapshots = false;
    /// An update writes rows anew whose values it does not change: Babelfish.
    bool rewritesUnchangedRows = false;
    /// Some errors that end a statement on SQL Server roll the whole transaction back: Babelfish.
    bool endsTransactionsOnErrors = false;
};

/// Asks the server. One that does not answer the questions is taken for a SQL Server that locks.
ServerKind readServerKind(WatchedLink& link);

}  // namespace talvora
