#include "testbank/papers_ahead.h"

#include "core/mdlpublic.h"
#include "testbank/paper_statements.h"

namespace talvora {

namespace {

QStringList paperStatements(const cTestingTypes& types) {
    QStringList statements;
    for (const auto& type : types) {
        if (type->NowCode.size() > mainTypeCodeLength) {
            statements += papersOfType(type->NowCode, true);
        }
    }
    return statements;
}

QStringList countStatements(const ReadAhead& papers) {
    QStringList statements;
    for (const auto& rows : papers.results()) {
        for (const Row row : *rows) {
            statements += questionCountOf(row.text("ExaminationID"));
        }
    }
    return statements;
}

}  // namespace

PapersAhead::PapersAhead(const cTestingTypes& types)
    : papers_(cnnPublic, paperStatements(types)), counts_(cnnPublic, countStatements(papers_)) {}

}  // namespace talvora
