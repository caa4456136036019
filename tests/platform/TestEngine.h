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
    /// One statement of another program that waits for no lock. False when the engine refuses it.
    virtual bool TryOutside(const QString& statement) = 0;
};

struct EngineKind {
    std::string name;
    std::function<std::unique_ptr<TestEngine>()> make;
};
inline void PrintTo(const EngineKind& kind, std::ostream* out) { *out << kind.name; }

/// The engines that this machine has.
const EngineKind* AllEnginesBegin();
const EngineKind* AllEnginesEnd();
