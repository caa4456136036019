#include "platform/TestEngine.h"

#include <array>

#include "platform/DatabaseFile.h"

namespace {

class SqliteTestEngine : public TestEngine {
  public:
    QString ConnectionString() const override { return file_.ConnectionString(); }
    void Run(const QString& statements) override { file_.Run(statements); }
    bool TryOutside(const QString& statement) override {
        return OtherProgram(file_.Path()).Run(statement.toUtf8().constData()) == SQLITE_OK;
    }

  private:
    DatabaseFile file_;
};

const std::array<EngineKind, 1> kEngines = {{
    {"Sqlite", [] { return std::make_unique<SqliteTestEngine>(); }},
}};

}  // namespace

const EngineKind* AllEnginesBegin() { return kEngines.data(); }
const EngineKind* AllEnginesEnd() { return kEngines.data() + kEngines.size(); }
