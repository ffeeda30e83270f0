#include "platform/embedded_bank.h"

#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"

#include <QFile>
#include <QStringList>

#include <stdexcept>

namespace talvora::test {

using namespace Qt::StringLiterals;

QString embeddedString(const QString& file) {
    return u"Provider=SQLOLEDB.1;Initial Catalog=%1;Data Source=embedded;pwd="_s.arg(file);
}

EmbeddedBank::EmbeddedBank(const QString& file) {
    session.ConnectionString = embeddedString(file);
    createEmbedded(ConnectionParts::parse(session.ConnectionString));
    session.Open();
    QFile schema(QStringLiteral(TALVORA_SOURCE_DIR "/setup/schema.sql"));
    if (!schema.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("the schema cannot be read");
    }
    QString batch;
    for (const QString& line : QString::fromUtf8(schema.readAll()).split(u'\n')) {
        if (line.trimmed() == "GO"_L1) {
            session.Execute(batch);
            batch.clear();
        } else {
            batch += line + u'\n';
        }
    }
}

QString EmbeddedBank::run(const QString& statement) {
    try {
        const Recordset rows = session.Execute(statement);
        QStringList lines;
        for (const Row row : rows) {
            QStringList cells;
            for (int i = 0; i < rows.FieldCount(); ++i) {
                cells += row.isNull(i) ? u"null"_s : row.text(i);
            }
            lines += cells.join(u'|');
        }
        return lines.join(u'\n');
    } catch (const DatabaseError& error) {
        return u"error %1"_s.arg(error.number());
    }
}

int EmbeddedBank::errorOf(const QString& statement) {
    try {
        session.Execute(statement);
        return 0;
    } catch (const DatabaseError& error) {
        return error.number();
    }
}

}  // namespace talvora::test
