#pragma once

#include <functional>

#include "support/SampleInstallation.h"
#include "support/TestServices.h"

/// A row of プログラム連携情報, as another program of the suite writes it.
struct LinkRow {
    QString sentAt;
    QString sender = QStringLiteral("要員名簿照会");
    QString receiver = QStringLiteral("要員台帳更新");
    QString kind = QStringLiteral("99");
    QString key;
    QString endText = QStringLiteral("");
};
void AddLinkRow(const SampleFile& configuration, const LinkRow& row);
/// All messages in the channel with all columns, oldest first.
QList<QStringList> LinkRows(const SampleFile& configuration);

/// Makes the fake process service consume the start message, run the callback and answer before the start returns.
void AnswerAtOnce(
    const TestServices& services, const SampleInstallation& installation,
    const std::function<void(const RecordingProcesses::Start&)>& callback = [](const RecordingProcesses::Start&) {});
