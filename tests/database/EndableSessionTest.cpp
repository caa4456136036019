// A request to end the program, with a fake session in which every procedure fails once the request has come.

#include "database/DatabaseSession.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "database/DatabaseFile.h"
#include "platform/EndRequest.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class InterruptedSession : public DatabaseSession {
  public:
    InterruptedSession(const QString& engine, QStringList& calls, bool request)
        : engine_(engine), calls_(calls), request_(request) {}

    QString EngineName() const override { return engine_; }
    std::shared_ptr<ResultTable> Query(const QString& /*sql*/) override { Fail(); }
    void Execute(const QString& /*sql*/) override { Fail(); }
    void BeginTransaction() override { Fail(); }
    void CommitTransaction() override { Fail(); }
    void RollBackTransaction() override {
        calls_.append(u"roll back"_s);
        if (!platform::EndRequested()) Fail();
    }
    UpdatableResult QueryForUpdate(const QString& /*sql*/) override { Fail(); }
    void Insert(RecordTarget& /*target*/, const std::vector<WrittenField>& /*fields*/) override { Fail(); }
    bool BeginReadScope() noexcept override { return false; }
    void EndReadScope() noexcept override { calls_.append(u"end of the scope"_s); }

  private:
    [[noreturn]] void Fail() {
        if (request_) platform::RequestEnd();
        throw DatabaseError(kEngineFailure, u"interrupted"_s);
    }

    QString engine_;
    QStringList& calls_;
    bool request_;
};

struct Step {
    const char* name;
    void (*run)(DatabaseSession& session);
};

class Endable : public testing::TestWithParam<Step> {
  protected:
    Endable() {
        platform::SetEndHandler([this] { calls.append(u"end"_s); });
    }
    ~Endable() override {
        platform::SetEndHandler({});
        platform::CarryOutEndRequest();
    }
    /// Runs the step; returns the text of the error that it throws.
    QString Run(const QString& engine, bool request = true) {
        calls.clear();
        const auto session = MakeEndable(std::make_unique<InterruptedSession>(engine, calls, request));
        return ErrorOf([&] { GetParam().run(*session); });
    }

    QStringList calls;
};

const Step kSteps[] = {
    {"Query", [](DatabaseSession& session) { session.Query({}); }},
    {"Execute", [](DatabaseSession& session) { session.Execute({}); }},
    {"Begin", [](DatabaseSession& session) { session.BeginTransaction(); }},
    {"Commit", [](DatabaseSession& session) { session.CommitTransaction(); }},
    {"QueryForUpdate", [](DatabaseSession& session) { session.QueryForUpdate({}); }},
    {"Insert",
     [](DatabaseSession& session) {
         RecordTarget target;
         session.Insert(target, {});
     }},
};

}  // namespace

TEST_P(Endable, OnAFileTheTransactionIsRolledBackBeforeTheEndAndTheFailureIsPassedOn) {
    EXPECT_EQ(Run(u""_s), u"interrupted"_s);
    EXPECT_EQ(calls, (QStringList{u"end of the scope"_s, u"roll back"_s, u"end"_s}));
    EXPECT_FALSE(platform::EndRequested());
}

TEST_P(Endable, OnAServerTheProgramEndsAtOnce) {
    EXPECT_EQ(Run(u"PostgreSQL"_s), u"interrupted"_s);
    EXPECT_EQ(calls, QStringList{u"end"_s});
}

TEST_P(Endable, AFailureWithoutARequestEndsNothing) {
    EXPECT_EQ(Run(u""_s, false), u"interrupted"_s);
    EXPECT_EQ(calls, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Of, Endable, testing::ValuesIn(kSteps), [](const auto& step) { return step.param.name; });

TEST(EndableRollback, ItselfEndsTheProgramToo) {
    QStringList calls;
    platform::SetEndHandler([&] { calls.append(u"end"_s); });
    const auto session = MakeEndable(std::make_unique<InterruptedSession>(u"PostgreSQL"_s, calls, true));
    EXPECT_EQ(ErrorOf([&] { session->RollBackTransaction(); }), u"interrupted"_s);
    EXPECT_EQ(calls, (QStringList{u"roll back"_s, u"end"_s}));
    platform::SetEndHandler({});
}
