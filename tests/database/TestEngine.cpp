#include "database/TestEngine.h"

#include <array>

#include "database/DatabaseFile.h"
#include "support/ServerDatabase.h"

using namespace Qt::StringLiterals;

namespace {

class SqliteTestEngine : public TestEngine {
  public:
    QString ConnectionString() const override { return file_.ConnectionString(); }
    void Run(const QString& statements) override { file_.Run(statements); }
    QString MoneyType() const override { return u"CURRENCY"_s; }
    bool TryOutside(const QString& statement) override {
        return OtherProgram(file_.Path()).Run(statement.toUtf8().constData()) == SQLITE_OK;
    }

  private:
    DatabaseFile file_;
};

class ServerTestEngine : public TestEngine {
  public:
    QString ConnectionString() const override { return database_.ConnectionString(); }
    void Run(const QString& statements) override { database_.Run(InOwnTypes(statements)); }
    QString MoneyType() const override { return IsMariaDb() ? u"DECIMAL"_s : u"MONEY"_s; }
    bool TryOutside(const QString& statement) override { return database_.TryOutside(statement); }

  private:
    static bool IsMariaDb() { return ServerDatabase::Engine() == u"MariaDB"_s; }
    // TEXT is limited to 64 KB in MariaDB.
    static QString InOwnTypes(QString statements) {
        return IsMariaDb() ? statements.replace(u" TEXT"_s, u" LONGTEXT"_s) : statements;
    }

    ServerDatabase database_;
};

const std::array<EngineKind, 1>& Engines() {
    static const std::array<EngineKind, 1> engines = {
        ServerDatabase::Engine().isEmpty()
            ? EngineKind{"Sqlite", [] { return std::make_unique<SqliteTestEngine>(); }}
            : EngineKind{ServerDatabase::Engine().toStdString(), [] { return std::make_unique<ServerTestEngine>(); }}};
    return engines;
}

}  // namespace

const EngineKind* AllEnginesBegin() { return Engines().data(); }
const EngineKind* AllEnginesEnd() { return Engines().data() + Engines().size(); }
