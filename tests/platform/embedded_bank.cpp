#include "platform/embedded_bank.h"

#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"

#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

QString embeddedString(const QString& file) {
    return u"Provider=SQLOLEDB.1;Initial Catalog=%1;Data Source=embedded;pwd="_s.arg(file);
}

EmbeddedBank::EmbeddedBank(const QString& file) {
    session.ConnectionString = embeddedString(file);
    const bool isNew = !QFile::exists(file);
    createEmbedded(ConnectionParts::parse(session.ConnectionString));
    session.Open();
    QFile schema(QStringLiteral(TALVORA_SOURCE_DIR "/setup/schema.sql"));
    EXPECT_TRUE(schema.open(QIODevice::ReadOnly));
    const QStringList batches = QString::fromUtf8(schema.readAll()).split(u"\nGO\n"_s, Qt::SkipEmptyParts);
    for (const QString& batch : isNew ? batches : QStringList()) {
        session.Execute(batch);
    }
}

QString EmbeddedBank::run(const QString& statement) {
    QStringList lines;
    const int error = test::errorOf([&] {
        const Recordset rows = session.Execute(statement);
        for (const Row row : rows) {
            QStringList cells;
            for (int i = 0; i < rows.FieldCount(); ++i) {
                cells += row.isNull(i) ? u"null"_s : row.text(i);
            }
            lines += cells.join(u'|');
        }
    });
    return error == 0 ? lines.join(u'\n') : u"error %1"_s.arg(error);
}

void EmbeddedBank::walk(QString script, const QString& front) {
    for (const QString& step : script.replace(u"\\\n"_s, u" "_s).replace(u';', u'\n').split(u'\n')) {
        const QStringList parts = step.trimmed().split(u" -> "_s);
        if (!parts.first().isEmpty()) {
            const QString gave = run(front + parts.first());
            EXPECT_EQ(gave, parts.value(1).replace(u" / "_s, u"\n"_s)) << qPrintable(step + u"\ngave "_s + gave);
        }
    }
}

}  // namespace talvora::test
