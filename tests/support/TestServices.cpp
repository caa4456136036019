#include "support/TestServices.h"

#include "frame/ProgramGlobals.h"

QStringList QueuedDialogs::Texts() const {
    QStringList texts;
    for (const Box& box : shown) texts.append(box.text);
    return texts;
}

std::optional<QString> QueuedDialogs::ShowSave(const platform::SaveQuestion& question) {
    saveQuestions.append(question);
    if (saveAnswers.isEmpty()) return std::nullopt;
    return saveAnswers.takeFirst();
}

void FixedSystem::Write(const QString& name, QString& buffer) {
    if (name.isEmpty() || name.size() >= buffer.size()) return;
    buffer.replace(0, name.size() + 1, name + QChar(u'\0'));
}

namespace {
platform::ServiceSet StandIns() {
    platform::ServiceSet set;
    set.clock = std::make_unique<FixedClock>();
    set.dialogs = std::make_unique<QueuedDialogs>();
    set.system = std::make_unique<FixedSystem>();
    set.processes = std::make_unique<RecordingProcesses>();
    return set;
}
}  // namespace

TestServices::TestServices() : TestServices(StandIns()) {}

TestServices::TestServices(platform::ServiceSet&& set)
    : clock(static_cast<FixedClock&>(*set.clock)),
      dialogs(static_cast<QueuedDialogs&>(*set.dialogs)),
      system(static_cast<FixedSystem&>(*set.system)),
      processes(static_cast<RecordingProcesses&>(*set.processes)),
      kept_(std::move(platform::Services())) {
    platform::Services() = std::move(set);
    ResetGlobals();
}

TestServices::~TestServices() {
    ResetGlobals();
    platform::Services() = std::move(kept_);
}
