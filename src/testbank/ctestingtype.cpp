#include "testbank/ctestingtype.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "core/status_of.h"
#include "core/transaction.h"
#include "testbank/column_settings.h"

#include <QStringList>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

using Words = std::array<QString, testingTypeWords.size()>;

QString mainTypeInsert(const QString& name, const QString& code) {
    return u"insert into testingType (TestingType,TypeCode) values ('"_s + name + u"','"_s + code + u"')"_s;
}

QString subtypeInsert(const cTestingType& type, const QString& name, const QString& code) {
    QStringList values{name,          code,           type.Author,       type.Auditing,
                       type.Approver, type.WriteDate, type.AuditingDate, type.ApproverDate};
    for (const auto word : testingTypeWords) {
        values += type.*word;
    }
    for (const auto note : testingTypeNotes) {
        values += type.*note;
    }
    values += type.Note;
    return u"insert into testingType "
           u"(TestingType,TypeCode,Author,Auditing,Approver,WriteDate,AuditingDate,ApproverDate,"
           "TestingResult1,TestingResult2,TestingResult3,TestingResult4,TestingNote1,TestingNote2,TestingNote3,"
           "TestingNote4,Note) values ('"_s +
           values.join(u"','"_s) + u"')"_s;
}

QString rowUpdate(const cTestingType& type, const QString& code, const QString& name) {
    QStringList settings{columnSetting(u"TestingType"_s, name),
                         columnSetting(u" Author"_s, type.Author),
                         columnSetting(u" Auditing"_s, type.Auditing),
                         columnSetting(u" Approver"_s, type.Approver),
                         columnSetting(u" WriteDate"_s, type.WriteDate),
                         columnSetting(u" AuditingDate"_s, type.AuditingDate),
                         columnSetting(u" ApproverDate"_s, type.ApproverDate)};
    settings += numberedSettings(u" TestingResult"_s, type, testingTypeWords);
    settings += numberedSettings(u" TestingNote"_s, type, testingTypeNotes);
    settings += columnSetting(u" Note"_s, type.Note);
    return u"Update TestingType Set "_s + settings.join(u',') + u" where TypeCode='"_s + code + u'\'';
}

Words storedWords(const QString& code) {
    const Recordset rows = cnnPublic.Execute(
        u"Select TestingResult1,TestingResult2,TestingResult3,TestingResult4 from testingType where TypeCode='"_s +
        code + u'\'');
    const Row row = rows.first();
    return {row.rawText("TestingResult1"), row.rawText("TestingResult2"), row.rawText("TestingResult3"),
            row.rawText("TestingResult4")};
}

// The papers of a subtype hold copies of its words. The sixteen statements run one after the other, so that renames
// chain: words that swap their places end as one word on the papers, and a first word for an empty one goes into every
// empty band. Both are meant.
QStringList paperUpdates(const cTestingType& type, const QString& code, const Words& oldWords) {
    QStringList statements;
    for (std::size_t word = 0; word < oldWords.size(); ++word) {
        for (int band = 1; band <= static_cast<int>(oldWords.size()); ++band) {
            const QString column = u"descScope"_s + QString::number(band);
            statements += u"update examination set "_s + column + u"='"_s + type.*testingTypeWords[word] +
                          u"' where TypeCode='"_s + code + u"' and "_s + column + u"='"_s + oldWords[word] + u'\'';
        }
    }
    return statements;
}

}  // namespace

Status cTestingType::AddNew(const QString& kind, const QString& parentCode, const QString& name) const {
    return statusOf([&] {
        const QString code = NewTypeCode(kind, parentCode);
        const bool isMain = kind == "parent"_L1;
        const QString sameName = u"Select Count(*) from testingType where TestingType='"_s + name + u"' and "_s;
        const QString sameLevel =
            isMain ? u"len(TypeCode)=3"_s
                   : u"left(TypeCode,3)='"_s + code.left(mainTypeCodeLength) + u"' and len(TypeCode)=6"_s;
        // Only a single namesake counts: a name that stands twice is no longer taken.
        if (countOf(sameName + sameLevel) == 1) {
            return Status::Taken;
        }
        cnnPublic.Execute(isMain ? mainTypeInsert(name, code) : subtypeInsert(*this, name, code));
        return Status::Done;
    });
}

Status cTestingType::Update(const QString& code, const QString& name) const {
    // The whole table counts here, unlike in AddNew.
    if (countOf(u"Select Count(*) from testingType where TestingType='"_s + name + u"' and TypeCode<>'"_s + code +
                u'\'') == 1) {
        return Status::Taken;
    }
    ResumeNext reading;
    Words oldWords;
    reading([&] { oldWords = storedWords(code); });
    const Status written = executePassingErrors(paperUpdates(*this, code, oldWords) << rowUpdate(*this, code, name));
    return reading.status() == Status::Done ? written : Status::Failed;
}

Status cTestingType::Delete(const QString& code) {
    const bool isMain = code.size() == mainTypeCodeLength;
    ResumeNext steps;
    qint32 dependants = 0;
    steps([&] {
        dependants = countOf(isMain ? u"Select Count(*) from TestingType where left(TypeCode,3)='"_s + code +
                                          u"' and len(TypeCode)=6"_s
                                    : u"Select Count(*) from Examination where TypeCode='"_s + code + u'\'');
    });
    if (dependants > 0) {
        return Status::Dependants;
    }
    const QString deleteRow = u"Delete from TestingType where TypeCode='"_s + code + u'\'';
    // TestingTypeCode may be missing from a database: the row goes all the same, and the result is Failed.
    const Status deleted =
        isMain ? executed(deleteRow)
               : executePassingErrors({u"Delete from TestingTypeCode where TypeCode='"_s + code + u'\'', deleteRow});
    return steps.status() == Status::Done ? deleted : Status::Failed;
}

namespace {

QString findStatement(TypeKind kind, const QString& code) {
    switch (kind) {
        case TypeKind::All:
            return u"Select * from TestingType order by TypeCode "_s;
        case TypeKind::Main:
            return u"Select * from TestingType where Len(TypeCode)  =3 order by TypeCode"_s;
        case TypeKind::Under:
            return u"Select * from TestingType where left(TypeCode,"_s + QString::number(code.size()) + u") ='"_s +
                   code + u"' and len(TypeCode)>3 order by TypeCode"_s;
        case TypeKind::Detail:
            break;
    }
    return u"Select * from TestingType where TypeCode ='"_s + code + u'\'';
}

void fill(cTestingType& type, const Row& row) {
    type.Name = row.text("TestingType");
    type.NowCode = row.text("TypeCode");
    type.Author = row.text("Author");
    type.Auditing = row.text("Auditing");
    type.Approver = row.text("Approver");
    type.WriteDate = row.text("WriteDate");
    type.AuditingDate = row.text("AuditingDate");
    type.ApproverDate = row.text("ApproverDate");
    type.Note = row.text("Note");
    type.TestingResult1 = row.text("TestingResult1");
    type.TestingResult2 = row.text("TestingResult2");
    type.TestingResult3 = row.text("TestingResult3");
    type.TestingResult4 = row.text("TestingResult4");
    type.TestingNote1 = row.text("TestingNote1");
    type.TestingNote2 = row.text("TestingNote2");
    type.TestingNote3 = row.text("TestingNote3");
    type.TestingNote4 = row.text("TestingNote4");
}

}  // namespace

cTestingTypes& cTestingTypes::Find(TypeKind kind, const QString& code) {
    load(findStatement(kind, code), fill);
    return *this;
}

}  // namespace talvora
