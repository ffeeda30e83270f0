#pragma once

#include "core/connection_file.h"
#include "core/mdlpublic.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

/// The real program in a folder of its own, where it writes its connection file.
class SetupTool : public ::testing::Test {
 protected:
    struct Outcome {
        int code = -1;
        QString out;
        QString err;
    };

    SetupTool() { EXPECT_TRUE(QFile::copy(QStringLiteral(TALVORA_SETUP_TOOL), path(toolName()))); }
    ~SetupTool() override { cnnPublic.Close(); }

    static QString toolName() { return QFileInfo(QStringLiteral(TALVORA_SETUP_TOOL)).fileName(); }
    QString path(const QString& name) const { return QDir(folder_.path()).filePath(name); }
    QString connectionFile() const { return path(connectionFileName()); }

    Outcome run(const QStringList& arguments, const QString& input = {}) {
        QProcess tool;
        start(tool, arguments);
        tool.write(input.toUtf8() + '\n');
        tool.closeWriteChannel();
        EXPECT_TRUE(tool.waitForFinished(60'000));
        EXPECT_EQ(tool.exitStatus(), QProcess::NormalExit);
        return {tool.exitCode(), QString::fromUtf8(tool.readAllStandardOutput()),
                QString::fromUtf8(tool.readAllStandardError())};
    }
    void start(QProcess& tool, const QStringList& arguments) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);  // a command line needs no display
        environment.remove(u"QT_QPA_PLATFORM"_s);
        tool.setProcessEnvironment(environment);
        tool.start(path(toolName()), arguments);
    }

    /// What the tool says, on both its ways, when it succeeds.
    QString expectSuccess(const QStringList& arguments, const QString& input = {}) {
        const Outcome outcome = run(arguments, input);
        EXPECT_EQ(outcome.code, 0) << qPrintable(outcome.out + outcome.err);
        return outcome.out + outcome.err;
    }
    void expectFailure(const QStringList& arguments, const QString& input, const QString& words) {
        const Outcome outcome = run(arguments, input);
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.err.contains(words)) << qPrintable(outcome.err);
    }

    static void expectOwnersOnly(const QString& file) {
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        EXPECT_EQ(QFile::permissions(file) & others, QFile::Permissions()) << qPrintable(file);
    }

    QString write(const QString& name, const QByteArray& content) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return file.fileName();
    }

 private:
    QTemporaryDir folder_;
};

}  // namespace talvora::test
