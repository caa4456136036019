#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

/// One database of an engine that the contract tests run over. It is made, filled and looked at past the code
/// under test.
class TestEngine {
  public:
    virtual ~TestEngine() = default;
    virtual QString ConnectionString() const = 0;
    /// Runs statements that the engine understands; fails the test on an error.
    virtual void Run(const QString& statements) = 0;
    /// A type of the engine's for amounts of money, in capitals.
    virtual QString MoneyType() const = 0;
    /// One statement of another program that waits for no lock. False when the engine refuses it.
    virtual bool TryOutside(const QString& statement) = 0;
};

struct EngineKind {
    std::string name;
    std::function<std::unique_ptr<TestEngine>()> make;
};
inline void PrintTo(const EngineKind& kind, std::ostream* out) { *out << kind.name; }

/// The engine of this run: the desktop files, or the server that MEIBO_TEST_ENGINE names.
const EngineKind* AllEnginesBegin();
const EngineKind* AllEnginesEnd();
