#pragma once

#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "records/scoring_bank.h"
#include "support/database_fixture.h"
#include "support/relay.h"

#include <memory>

namespace talvora::test {

/// cnnPublic on the server of TALVORA_TEST_SERVER through a relay, with two papers and a model in an otherwise fresh
/// bank. Skips without a server.
class RelayedServerTest : public testing::Test {
 protected:
    void SetUp() override {
        if (engines().size() == 1) {
            GTEST_SKIP() << "Set TALVORA_TEST_SERVER to an ADO connection string to try a server.";
        }
        openFreshDatabase(Engine::Server);
        addPaper({QStringLiteral("001001"), 4, 2, {QStringLiteral("0-99 中")}});
        addPaper({QStringLiteral("001002"), 4, 2, {QStringLiteral("0-99 中")}});
        addModel(QStringLiteral("主管模型"), {QStringLiteral("001001 0.5"), QStringLiteral("001002 0.5")});
        direct_ = cnnPublic.ConnectionString;
        const QString server = ConnectionParts::parse(direct_).dataSource;
        relay_ = std::make_unique<Relay>(server);
        cnnPublic.ConnectionString = QString(direct_).replace(server, relay_->dataSource());
        openWithLimit(10);
    }

    static void openWithLimit(int seconds) {
        cnnPublic.CommandTimeout = seconds;
        cnnPublic.Open();
    }

    void TearDown() override {
        cnnPublic.setObserver({});
        cnnPublic.Close();
    }

    Relay& relay() { return *relay_; }

    /// What another session sees.
    QString stored(const QString& query) {
        if (!other_.IsOpen()) {
            other_.ConnectionString = direct_;
            other_.Open();
        }
        return QString::number(other_.Execute(query).first().number32(0));
    }

 private:
    QString direct_;
    Connection other_;
    std::unique_ptr<Relay> relay_;
};

}  // namespace talvora::test
