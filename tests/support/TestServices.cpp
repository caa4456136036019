#include "support/TestServices.h"

#include "access/StartUp.h"
#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "screen/SuiteApplication.h"

using namespace Qt::StringLiterals;

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

quint32 RecordingProcesses::StartHidden(const QString& path, const QStringList& arguments) {
    calls.append(u"start hidden "_s + path + u" | "_s + arguments.join(u" | "_s));
    if (startFails) throw platform::RuntimeError(platform::kFileNotFound, u"プログラムがありません。"_s);
    return nextProcessId;
}

quint32 RecordingProcesses::OpenProcess(quint32 access, bool inherit, quint32 processId) {
    calls.append(u"open 0x%1 %2 %3"_s.arg(access, 0, 16).arg(inherit).arg(processId));
    return nextHandle;
}

bool RecordingProcesses::GetExitCodeProcess(quint32 handle, quint32& code) {
    calls.append(u"exit code of %1"_s.arg(handle));
    if (handle == nextHandle) code = kStillActive;
    return handle == nextHandle;
}

bool RecordingProcesses::TerminateProcess(quint32 handle, quint32 exitCode) {
    calls.append(u"kill %1 with %2"_s.arg(handle).arg(exitCode));
    return true;
}

bool RecordingProcesses::CloseHandle(quint32 handle) {
    calls.append(u"close %1"_s.arg(handle));
    return true;
}

namespace {
platform::ServiceSet Fakes() {
    platform::ServiceSet set;
    InstallWindowServices(set);
    set.clock = std::make_unique<FixedClock>();
    set.dialogs = std::make_unique<QueuedDialogs>();
    set.system = std::make_unique<FixedSystem>();
    set.processes = std::make_unique<RecordingProcesses>();
    return set;
}
}  // namespace

TestServices::TestServices() : TestServices(Fakes()) {}

TestServices::TestServices(platform::ServiceSet&& set)
    : clock(static_cast<FixedClock&>(*set.clock)),
      dialogs(static_cast<QueuedDialogs&>(*set.dialogs)),
      system(static_cast<FixedSystem&>(*set.system)),
      processes(static_cast<RecordingProcesses&>(*set.processes)),
      kept_(std::move(platform::Services())) {
    platform::Services() = std::move(set);
    ResetGlobals();
    ConnectFormsToGlobals();
}

TestServices::~TestServices() {
    ResetGlobals();
    platform::Services() = std::move(kept_);
}
