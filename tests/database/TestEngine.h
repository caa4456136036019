#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

/// A database of one engine for the contract tests. Created, filled and read directly, not by the code under test.
class TestEngine {
  public:
    virtual ~TestEngine() = default;
    virtual QString ConnectionString() const = 0;
    /// Runs statements in the engine's syntax; an error fails the test.
    virtual void Run(const QString& statements) = 0;
    /// A column type of the engine for money, in upper case.
    virtual QString MoneyType() const = 0;
    /// Runs one statement as another program that waits for no lock. False if the engine rejects it.
    virtual bool TryOutside(const QString& statement) = 0;
};

struct EngineKind {
    std::string name;
    std::function<std::unique_ptr<TestEngine>()> make;
};
inline void PrintTo(const EngineKind& kind, std::ostream* out) { *out << kind.name; }

/// The engine under test: desktop files, or the server in MEIBO_TEST_ENGINE.
const EngineKind* AllEnginesBegin();
const EngineKind* AllEnginesEnd();
